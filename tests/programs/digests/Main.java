/** Message digests and codes, on bytes that are signed and integers that overflow. */
abstract class Digest {
    private final byte[] block = new byte[64];
    private int used;
    private long total;
    protected int[] state;
    protected final int[] words = new int[16];
    private final boolean bigEndian;

    protected Digest(int[] initial, boolean bigEndian) {
        state = (int[]) initial.clone();
        this.bigEndian = bigEndian;
    }

    protected abstract void mix();

    static int rotate(int x, int n) {
        return x << n | x >>> 32 - n;
    }

    final Digest update(byte[] b) {
        for (int i = 0; i < b.length; i++) update(b[i]);
        return this;
    }

    void update(byte b) {
        block[used++] = b;
        total += 8;
        if (used < block.length) return;
        for (int i = 0; i < 64; i++) {
            int shift = bigEndian ? 24 - i % 4 * 8 : i % 4 * 8;
            if ((i & 3) == 0) words[i >> 2] = 0;
            words[i >> 2] |= (block[i] & 0xFF) << shift;
        }
        mix();
        used = 0;
    }

    String finish() {
        long length = total;
        update((byte) 0x80);
        while (used != 56) update((byte) 0);
        for (int i = 0; i < 8; i++) update((byte) (length >>> (bigEndian ? 56 - 8 * i : 8 * i)));
        StringBuffer s = new StringBuffer();
        for (int i = 0; i < state.length * 4; i++) {
            int b = state[i / 4] >>> (bigEndian ? 24 - i % 4 * 8 : i % 4 * 8) & 0xFF;
            s.append("0123456789abcdef".charAt(b >> 4)).append("0123456789abcdef".charAt(b & 15));
        }
        return s.toString();
    }
}

class Md5 extends Digest {
    private static final int[] START = { 0x67452301, 0xefcdab89, 0x98badcfe, 0x10325476 }, K = new int[64];
    private static final byte[][] SHIFTS = { { 7, 12, 17, 22 }, { 5, 9, 14, 20 }, { 4, 11, 16, 23 }, { 6, 10, 15, 21 } };

    static {
        for (int i = 0; i < 64; i++) K[i] = (int) (long) (Math.abs(Math.sin(i + 1)) * 4294967296.0);
    }

    Md5() {
        super(START, false);
    }

    protected void mix() {
        int a = state[0], b = state[1], c = state[2], d = state[3];
        for (int i = 0; i < 64; i++) {
            int f, g;
            switch (i >> 4) {
                case 0: f = b & c | ~b & d; g = i; break;
                case 1: f = d & b | ~d & c; g = 5 * i + 1; break;
                case 2: f = b ^ c ^ d; g = 3 * i + 5; break;
                default: f = c ^ (b | ~d); g = 7 * i;
            }
            int t = d;
            d = c;
            c = b;
            b += rotate(a + f + K[i] + words[g & 15], SHIFTS[i >> 4][i & 3]);
            a = t;
        }
        state[0] += a;
        state[1] += b;
        state[2] += c;
        state[3] += d;
    }
}

class Sha extends Digest {
    private final int[] w = new int[80];

    Sha() {
        super(new int[] { 0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476, 0xC3D2E1F0 }, true);
    }

    protected void mix() {
        System.arraycopy(words, 0, w, 0, 16);
        for (int i = 16; i < 80; i++) w[i] = rotate(w[i - 3] ^ w[i - 8] ^ w[i - 14] ^ w[i - 16], 1);
        int a = state[0], b = state[1], c = state[2], d = state[3], e = state[4];
        for (int i = 0; i < 80; i++) {
            int f = i < 20 ? (b & c | ~b & d) + 0x5A827999 : i < 40 ? (b ^ c ^ d) + 0x6ED9EBA1 : i < 60 ? (b & c | b & d | c & d) + 0x8F1BBCDC : (b ^ c ^ d) + 0xCA62C1D6;
            int t = rotate(a, 5) + f + e + w[i];
            e = d;
            d = c;
            c = rotate(b, 30);
            b = a;
            a = t;
        }
        int[] add = { a, b, c, d, e };
        for (int i = 0; i < 5; ++i) state[i] += add[i];
    }
}

class Base64 {
    private static final char[] LETTERS = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/".toCharArray();
    private static final byte[] VALUES = new byte[128];

    static {
        for (int i = 0; i < VALUES.length; i++) VALUES[i] = -1;
        for (byte i = 0; i < 64; i++) VALUES[LETTERS[i]] = i;
    }

    static String encode(byte[] b) {
        StringBuffer s = new StringBuffer((b.length + 2) / 3 * 4);
        for (int i = 0; i < b.length; i += 3) {
            int n = (b[i] & 255) << 16;
            if (i + 1 < b.length) n |= (b[i + 1] & 255) << 8;
            if (i + 2 < b.length) n |= b[i + 2] & 255;
            for (int k = 0, shift = 18; k < 4; k++, shift -= 6) s.append(i + k > b.length ? '=' : LETTERS[n >> shift & 077]);
        }
        return s.toString();
    }

    static byte[] decode(String s) {
        int n = s.length() / 4 * 3;
        for (int i = s.length(); i > 0 && s.charAt(i - 1) == '='; i--) n--;
        byte[] b = new byte[n];
        int buffer = 0, bits = 0, at = 0;
        for (int i = 0; at < n; i++) {
            byte v = VALUES[s.charAt(i)];
            if (v < 0) throw new IllegalArgumentException("letter " + s.charAt(i));
            buffer = buffer << 6 | v;
            bits += 6;
            if (bits >= 8) b[at++] = (byte) (buffer >> (bits -= 8));
        }
        return b;
    }
}

/** A cipher of 32 rounds over two words. */
class Tea {
    private static final int DELTA = 0x9E3779B9;
    private final int[] key;

    Tea(int a, int b, int c, int d) {
        key = new int[] { a, b, c, d };
    }

    long encrypt(long block) {
        int y = (int) (block >>> 32), z = (int) block, sum = 0;
        for (int n = 32; n-- > 0; ) {
            sum += DELTA;
            y += (z << 4) + key[0] ^ z + sum ^ (z >>> 5) + key[1];
            z += (y << 4) + key[2] ^ y + sum ^ (y >>> 5) + key[3];
        }
        return (long) y << 32 | z & 0xFFFFFFFFL;
    }

    long decrypt(long block) {
        int y = (int) (block >> 32), z = (int) block, sum = DELTA << 5;
        for (int n = 0; n < 32; n++) {
            z -= (y << 4) + key[2] ^ y + sum ^ (y >>> 5) + key[3];
            y -= (z << 4) + key[0] ^ z + sum ^ (z >>> 5) + key[1];
            sum -= DELTA;
        }
        return (long) y << 32 | (long) z << 32 >>> 32;
    }
}

/** The generator of the class library, written again. */
class Linear {
    private long seed;

    Linear(long seed) {
        this.seed = (seed ^ 0x5DEECE66DL) & (1L << 48) - 1;
    }

    int next(int bits) {
        seed = seed * 0x5DEECE66DL + 0xBL & (1L << 48) - 1;
        return (int) (seed >>> 48 - bits);
    }

    long nextLong() {
        return ((long) next(32) << 32) + next(32);
    }

    double nextDouble() {
        return (((long) next(26) << 27) + next(27)) / (double) (1L << 53);
    }
}

public class Main {
    static byte[] bytes(String s) {
        byte[] b = new byte[s.length()];
        for (int i = 0; i < b.length; i++) b[i] = (byte) s.charAt(i);
        return b;
    }

    static String text(byte[] b) {
        StringBuffer s = new StringBuffer();
        for (int i = 0; i < b.length; i++) s.append((char) (b[i] & 0xFF));
        return s.toString();
    }

    static long fnv(byte[] b) {
        long h = 0xcbf29ce484222325L;
        for (int i = 0; i < b.length; i++) {
            h ^= b[i] & 0xff;
            h *= 0x100000001b3L;
        }
        return h;
    }

    public static void main(String[] args) {
        StringBuffer million = new StringBuffer();
        for (int i = 0; i < 5000; i++) million.append("a\u00ff");
        String[] texts = { "", "a", "abc", "message digest", "The quick brown fox jumps over the lazy dog", "12345678901234567890123456789012345678901234567890123456789012345678901234567890", million.toString() };
        for (int i = 0; i < texts.length; i++) {
            byte[] b = bytes(texts[i]);
            System.out.println(b.length + " md5 " + new Md5().update(b).finish() + " sha " + new Sha().update(b).finish() + " fnv " + Long.toHexString(fnv(b)));
        }
        String[] words = { "", "f", "fo", "foo", "foob", "fooba", "foobar", "\u00fb\u00ff\u00fe" };
        for (int i = 0; i < words.length; i++) {
            String e = Base64.encode(bytes(words[i]));
            System.out.print(e + (text(Base64.decode(e)).equals(words[i]) ? " " : " BROKEN "));
        }
        System.out.println();
        try {
            Base64.decode("ab!=");
        } catch (IllegalArgumentException e) {
            System.out.println(e.getMessage());
        }
        Tea tea = new Tea(1, -2, 0x7FFFFFFF, 0x80000000);
        long[] blocks = { 0, -1L, 0x0123456789ABCDEFL, Long.MIN_VALUE };
        for (int i = 0; i < blocks.length; i++) {
            long c = tea.encrypt(blocks[i]);
            System.out.print(Long.toHexString(c) + (tea.decrypt(c) == blocks[i] && c != blocks[i] ? " " : " BROKEN "));
        }
        System.out.println();
        Linear mine = new Linear(123);
        java.util.Random library = new java.util.Random(123);
        boolean same = true;
        for (int i = 0; i < 100; i++) same &= mine.next(32) == library.nextInt() & mine.nextLong() == library.nextLong() && mine.nextDouble() == library.nextDouble();
        System.out.println("generators agree: " + same + ", next " + mine.next(8));
    }
}
