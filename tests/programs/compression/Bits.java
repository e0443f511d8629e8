import java.io.*;

class BitWriter {
    private final ByteArrayOutputStream out = new ByteArrayOutputStream();
    private int buffer, used;

    void put(int value, int bits) {
        while (bits-- > 0) {
            buffer = buffer << 1 | value >>> bits & 1;
            if (++used == 8) {
                out.write(buffer);
                buffer = used = 0;
            }
        }
    }

    byte[] bytes() {
        while (used != 0) put(0, 1);
        return out.toByteArray();
    }
}

class BitReader {
    private final byte[] in;
    private int at, left;

    BitReader(byte[] in) {
        this.in = in;
    }

    int get() throws EOFException {
        if (at >= in.length) throw new EOFException("bit " + (at * 8L + left));
        int bit = in[at] >> 7 - left & 1;
        if (++left == 8) {
            left = 0;
            at++;
        }
        return bit;
    }

    int get(int bits) throws EOFException {
        int v = 0;
        while (--bits >= 0) v = (v << 1) + get();
        return v;
    }
}
