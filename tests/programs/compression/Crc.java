class Crc {
    private static final int[] TABLE = new int[256];

    static {
        for (int n = 0; n < 256; n++) {
            int c = n;
            for (int k = 0; k < 8; k++) c = (c & 1) != 0 ? 0xEDB88320 ^ c >>> 1 : c >>> 1;
            TABLE[n] = c;
        }
    }

    static int of(byte[] data) {
        int c = ~0;
        for (int i = 0; i < data.length; i++) c = TABLE[(c ^ data[i]) & 0xFF] ^ (c >>> 8);
        return ~c;
    }

    static long adler(byte[] data) {
        long a = 1, b = 0;
        for (int i = 0; i < data.length; i++) {
            a += data[i] & 0xffL;
            a %= 65521;
            b = (b + a) % 65521;
        }
        return b << 16 | a;
    }
}
