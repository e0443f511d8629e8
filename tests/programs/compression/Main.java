import java.io.*;

/** Runs each method there and back over texts of different kinds. */
public class Main {
    static byte[] bytes(String s) {
        byte[] b = new byte[s.length()];
        for (int i = 0; i < b.length; i++) b[i] = (byte) s.charAt(i);
        return b;
    }

    static void tryIt(Codec codec, String name, byte[] data) throws IOException {
        byte[] packed = codec.pack(data), back = codec.unpack(packed);
        boolean same = back.length == data.length;
        for (int i = 0; same && i < data.length; i++) same = back[i] == data[i];
        System.out.println(codec.name() + " " + name + ": " + data.length + " -> " + packed.length + (same ? "" : " BROKEN") + " crc "
            + Integer.toHexString(Crc.of(packed)));
    }

    public static void main(String[] args) throws IOException {
        StringBuffer verse = new StringBuffer();
        for (int i = 0; i < 40; i++) verse.append("she sells sea shells by the sea shore ").append(i);
        byte[] noise = new byte[2000], ramp = new byte[1024];
        int seed = 12345;
        for (int i = 0; i < noise.length; i++) noise[i] = (byte) ((seed = seed * 1103515245 + 12345) >>> 16);
        for (int i = 0; i < ramp.length; i++) ramp[i] = (byte) (i >> 2);
        byte[][] data = { bytes(verse.toString()), noise, ramp, new byte[3000], bytes("a"), { }, bytes("abababababababababababab") };
        String[] names = { "verse", "noise", "ramp", "zeros", "letter", "nothing", "pairs" };
        Codec[] codecs = { new Huffman(), new Lzw(), new Lz77(), new RunLength(), new Both(new Lz77(), new Huffman()) };
        for (int i = 0; i < codecs.length; i++)
            for (int j = 0; j < data.length; j++) tryIt(codecs[i], names[j], data[j]);
        System.out.println("crc of 123456789 is " + Integer.toHexString(Crc.of(bytes("123456789"))) + ", adler " + Long.toHexString(Crc.adler(bytes("Wikipedia"))));
        try {
            new Huffman().unpack(new byte[] { 0, 0, 0, 9, 1 });
        } catch (EOFException e) {
            System.out.println("cut: " + e.getMessage());
        }
    }
}
