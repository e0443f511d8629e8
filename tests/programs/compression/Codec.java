import java.io.IOException;

interface Codec {
    String name();

    byte[] pack(byte[] data) throws IOException;

    byte[] unpack(byte[] packed) throws IOException;
}

/** One after the other. */
class Both implements Codec {
    private final Codec first, second;

    Both(Codec first, Codec second) {
        this.first = first;
        this.second = second;
    }

    public String name() {
        return first.name() + "+" + second.name();
    }

    public byte[] pack(byte[] data) throws IOException {
        return second.pack(first.pack(data));
    }

    public byte[] unpack(byte[] packed) throws IOException {
        return first.unpack(second.unpack(packed));
    }
}

class RunLength implements Codec {
    public String name() {
        return "runs";
    }

    public byte[] pack(byte[] data) {
        byte[] out = new byte[data.length * 2];
        int n = 0;
        for (int i = 0; i < data.length; ) {
            int run = 1;
            while (run < 255 && i + run < data.length && data[i + run] == data[i]) run++;
            out[n++] = (byte) run;
            out[n++] = data[i];
            i += run;
        }
        byte[] cut = new byte[n];
        System.arraycopy(out, 0, cut, 0, n);
        return cut;
    }

    public byte[] unpack(byte[] packed) {
        int n = 0;
        for (int i = 0; i < packed.length; i += 2) n += packed[i] & 0xFF;
        byte[] out = new byte[n];
        for (int i = 0, at = 0; i < packed.length; i += 2)
            for (int k = packed[i] & 255; --k >= 0; ) out[at++] = packed[i + 1];
        return out;
    }
}
