import java.io.IOException;
import java.util.Hashtable;

/** Codes of 12 bits; the table starts anew when it is full. */
class Lzw implements Codec {
    private static final int FULL = 1 << 12, CLEAR = 256, END = CLEAR + 1;

    public String name() {
        return "lzw";
    }

    public byte[] pack(byte[] data) {
        BitWriter out = new BitWriter();
        Hashtable table = new Hashtable();
        int next = END + 1, prefix = -1;
        for (int i = 0; i < data.length; i++) {
            int b = data[i] & 0xFF;
            if (prefix < 0) {
                prefix = b;
                continue;
            }
            Integer key = new Integer(prefix << 8 | b), code = (Integer) table.get(key);
            if (code != null) {
                prefix = code.intValue();
                continue;
            }
            out.put(prefix, 12);
            if (next < FULL) table.put(key, new Integer(next++));
            else {
                out.put(CLEAR, 12);
                table.clear();
                next = END + 1;
            }
            prefix = b;
        }
        if (prefix >= 0) out.put(prefix, 12);
        out.put(END, 12);
        return out.bytes();
    }

    public byte[] unpack(byte[] packed) throws IOException {
        BitReader in = new BitReader(packed);
        String[] table = new String[FULL];
        for (char c = 0; c < 256; c++) table[c] = String.valueOf(c);
        StringBuffer out = new StringBuffer();
        int next = END + 1;
        String last = null;
        loop:
        while (true) {
            int code = in.get(12);
            switch (code) {
                case END:
                    break loop;
                case CLEAR:
                    last = null;
                    next = END + 1;
                    continue;
            }
            String s = code < next && (code < 256 || code > END) ? table[code] : last + last.charAt(0);
            if (last != null && next < FULL) table[next++] = last + s.charAt(0);
            out.append(last = s);
        }
        byte[] bytes = new byte[out.length()];
        for (int i = bytes.length; i-- > 0; ) bytes[i] = (byte) out.charAt(i);
        return bytes;
    }
}
