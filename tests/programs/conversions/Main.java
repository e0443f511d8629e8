/** Every cast and every implicit conversion between the primitive types; casts and tests of references and arrays. */
public class Main {
    static String name(byte x) { return "byte " + x; }
    static String name(short x) { return "short " + x; }
    static String name(char x) { return "char " + (int) x; }
    static String name(int x) { return "int " + x; }
    static String name(long x) { return "long " + x; }
    static String name(float x) { return "float " + Integer.toHexString(Float.floatToIntBits(x)); }
    static String name(double x) { return "double " + Long.toHexString(Double.doubleToLongBits(x)); }
    static String name(boolean x) { return "boolean " + x; }

    static void casts(byte v) {
        System.out.println(name(v) + ": " + name((byte) v) + ", " + name((short) v) + ", " + name((char) v) + ", " + name((int) v)
            + ", " + name((long) v) + ", " + name((float) v) + ", " + name((double) v));
    }

    static void casts(short v) {
        System.out.println(name(v) + ": " + name((byte) v) + ", " + name((short) v) + ", " + name((char) v) + ", " + name((int) v)
            + ", " + name((long) v) + ", " + name((float) v) + ", " + name((double) v));
    }

    static void casts(char v) {
        System.out.println(name(v) + ": " + name((byte) v) + ", " + name((short) v) + ", " + name((char) v) + ", " + name((int) v)
            + ", " + name((long) v) + ", " + name((float) v) + ", " + name((double) v));
    }

    static void casts(int v) {
        System.out.println(name(v) + ": " + name((byte) v) + ", " + name((short) v) + ", " + name((char) v) + ", " + name((int) v)
            + ", " + name((long) v) + ", " + name((float) v) + ", " + name((double) v));
    }

    static void casts(long v) {
        System.out.println(name(v) + ": " + name((byte) v) + ", " + name((short) v) + ", " + name((char) v) + ", " + name((int) v)
            + ", " + name((long) v) + ", " + name((float) v) + ", " + name((double) v));
    }

    static void casts(float v) {
        System.out.println(name(v) + ": " + name((byte) v) + ", " + name((short) v) + ", " + name((char) v) + ", " + name((int) v)
            + ", " + name((long) v) + ", " + name((float) v) + ", " + name((double) v));
    }

    static void casts(double v) {
        System.out.println(name(v) + ": " + name((byte) v) + ", " + name((short) v) + ", " + name((char) v) + ", " + name((int) v)
            + ", " + name((long) v) + ", " + name((float) v) + ", " + name((double) v));
    }

    /** The same casts of constants, done by the compiler. */
    static void folded() {
        System.out.println(name((byte) 200) + ", " + name((byte) -129) + ", " + name((byte) 'z') + ", " + name((byte) 0x1FFFFFFFFL)
            + ", " + name((byte) 1e10) + ", " + name((byte) -1e10f) + ", " + name((byte) 300.7));
        System.out.println(name((short) 70000) + ", " + name((short) 0xFFFF) + ", " + name((short) '\uffff') + ", " + name((short) -40000L)
            + ", " + name((short) 1e10f) + ", " + name((short) Double.NaN));
        System.out.println(name((char) -1) + ", " + name((char) 65536) + ", " + name((char) (byte) -1) + ", " + name((char) 1e10)
            + ", " + name((char) -1.5) + ", " + name((char) 97.9f) + ", " + name((char) Float.NaN) + ", " + name((char) 0x100000041L));
        System.out.println(name((int) 'a') + ", " + name((int) 0x123456789L) + ", " + name((int) 1e10) + ", " + name((int) -1e10)
            + ", " + name((int) Float.NaN) + ", " + name((int) -0.9) + ", " + name((int) 2147483647f));
        System.out.println(name((long) 'a') + ", " + name((long) -1) + ", " + name((long) 1e19) + ", " + name((long) -1e19f)
            + ", " + name((long) Double.NaN) + ", " + name((long) 9.99e18) + ", " + name((long) -123456789012.9));
        System.out.println(name((float) 16777217) + ", " + name((float) 9007199254740993L) + ", " + name((float) 1e40) + ", " + name((float) 1e-50)
            + ", " + name((float) -1e-50) + ", " + name((float) 'a') + ", " + name((float) 0.1));
        System.out.println(name((double) 0.1f) + ", " + name((double) Long.MAX_VALUE) + ", " + name((double) Integer.MIN_VALUE) + ", " + name((double) 'a'));
        System.out.println(name((boolean) true) + ", " + name((boolean) (1 > 2)));
        System.out.println(name((byte) (char) (short) -129) + ", " + name((int) (char) (byte) -2) + ", " + name((long) (int) 3e9f));
    }

    static double widen(double d) { return d; }
    static float widenFloat(float f) { return f; }
    static long widenLong(long l) { return l; }

    static double returns(int which) {
        switch (which) {
            case 0: { byte b = 1; return b; }
            case 1: { char c = 'c'; return c; }
            case 2: { long l = Long.MAX_VALUE; return l; }
            case 3: { float f = 0.1f; return f; }
            default: return 'x';
        }
    }

    static void implicit() {
        byte b = -3;
        short s = b;
        char c = 'A';
        int i = c;
        long l = s;
        float f = l;
        double d = f;
        i = b; System.out.println(i);
        l = c; System.out.println(l);
        f = 123456789; System.out.println(name(f));
        d = 9007199254740993L; System.out.println(name(d));
        f = Long.MAX_VALUE; System.out.println(name(f));
        System.out.println(widen(b) + widen(c) + widen(l) + widen('b'));
        System.out.println(widenFloat(b) + widenFloat(c) + widenFloat(7L));
        System.out.println(widenLong(b) + widenLong('A') + widenLong(i));
        for (int k = 0; k < 5; k++) System.out.println("returned " + name(returns(k)));
        double[] ds = { b, s, c, i, l, f, d, 1, 'x', 2L, 1.5f };
        for (int k = 0; k < ds.length; k++) System.out.print(" " + name(ds[k]));
        System.out.println();
        final int small = 100;
        byte fromConstant = small, expression = small + 27, fromChar = 'a';
        char charConstant = small, charFromByte = (byte) 65;
        short shortConstant = 'b' + 1;
        byte[] bytes = { 1, 'c', -128, small, (short) 5 };
        System.out.println(fromConstant + " " + expression + " " + fromChar + " " + charConstant + " " + charFromByte + " " + shortConstant + " " + bytes[1]);
        System.out.println(name(b + s) + ", " + name(c + c) + ", " + name(b + l) + ", " + name(l + f) + ", " + name(f + d) + ", " + name(-c) + ", " + name(+b)
            + ", " + name(~s) + ", " + name(b << l) + ", " + name(l << b) + ", " + name(c + 1f));
        int[] index = { 10, 20, 30, 40 };
        byte one = 1;
        char two = 2;
        System.out.println(index[one] + " " + index[two] + " " + index['\3'] + " " + new int[one + two].length);
    }

    public static void main(String[] args) {
        byte[] bytes = { 127, -128 };
        for (int i = 0; i < bytes.length; i++) casts(bytes[i]);
        short[] shorts = { 255, -129 };
        for (int i = 0; i < shorts.length; i++) casts(shorts[i]);
        char[] chars = { '\u00ff', '\u8000' };
        for (int i = 0; i < chars.length; i++) casts(chars[i]);
        int[] ints = { 40000, -65537, 16777217 };
        for (int i = 0; i < ints.length; i++) casts(ints[i]);
        long[] longs = { -40000L, 0x123456789ABCDEFL };
        for (int i = 0; i < longs.length; i++) casts(longs[i]);
        float[] floats = { -1.9f, 70000f, Float.NaN };
        for (int i = 0; i < floats.length; i++) casts(floats[i]);
        double[] doubles = { -1.9, 3e9, 1e300, Double.NaN };
        for (int i = 0; i < doubles.length; i++) casts(doubles[i]);
        folded();
        implicit();
    }
}
