import java.io.*;

/** A bit for each item: a byte as it is, or how far back and how long. */
class Lz77 implements Codec {
    private static final int WINDOW = 1 << 10, LEAST = 3, MOST = LEAST + 63;

    public String name() {
        return "lz77";
    }

    public byte[] pack(byte[] data) {
        BitWriter out = new BitWriter();
        out.put(data.length, 32);
        int[] heads = new int[1 << 12], previous = new int[data.length];
        for (int i = 0; i < heads.length; i++) heads[i] = -1;
        for (int at = 0; at < data.length; ) {
            int bestLength = 0, bestAt = 0, tries = 0;
            if (at + LEAST <= data.length)
                search:
                for (int p = heads[hash(data, at)]; p >= 0 && at - p < WINDOW && tries++ < 32; p = previous[p]) {
                    int n = 0;
                    while (n < MOST && at + n < data.length) {
                        if (data[p + n] != data[at + n]) {
                            if (n <= bestLength) continue search;
                            break;
                        }
                        n++;
                    }
                    if (n > bestLength) {
                        bestLength = n;
                        bestAt = p;
                        if (n == MOST) break search;
                    }
                }
            int step;
            if (bestLength >= LEAST) {
                out.put(1, 1);
                out.put(at - bestAt, 10);
                out.put(bestLength - LEAST, 6);
                step = bestLength;
            } else {
                out.put(0, 1);
                out.put(data[at], 8);
                step = 1;
            }
            do {
                if (at + LEAST <= data.length) {
                    int h = hash(data, at);
                    previous[at] = heads[h];
                    heads[h] = at;
                }
                at++;
            } while (--step > 0);
        }
        return out.bytes();
    }

    private static int hash(byte[] d, int at) {
        return (d[at] << 8 ^ d[at + 1] << 4 ^ d[at + 2]) & (1 << 12) - 1;
    }

    public byte[] unpack(byte[] packed) throws IOException {
        BitReader in = new BitReader(packed);
        byte[] out = new byte[in.get(32)];
        for (int at = 0; at < out.length; ) {
            if (in.get() == 0) {
                out[at++] = (byte) in.get(8);
            } else {
                int from = at - in.get(10), n = in.get(6) + LEAST;
                while (n-- > 0) out[at++] = out[from++];
            }
        }
        return out;
    }
}
