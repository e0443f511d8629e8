/** Every operator on int and long, with the operands in variables and, where it can be, folded: both must agree. */
public class Main {
    static final int MIN = Integer.MIN_VALUE, MAX = Integer.MAX_VALUE;
    static final long LMIN = Long.MIN_VALUE, LMAX = Long.MAX_VALUE;

    static int[] ints = { 0, 1, -1, 7, -7, 3, MAX, MIN, 0x55AA55AA };
    static long[] longs = { 0L, 1L, -1L, 1000000007L, -1000000007L, LMAX, LMIN, 0x123456789ABCDEF0L };

    static int hash;

    static void note(int i) {
        hash = hash * 31 + i;
    }

    static void note(long l) {
        note((int) l);
        note((int) (l >>> 32));
    }

    static void binaryInts() {
        for (int i = 0; i < ints.length; i++) {
            int a = ints[i];
            StringBuffer line = new StringBuffer("int " + a + ":");
            for (int j = 0; j < ints.length; j++) {
                int b = ints[j];
                note(a + b); note(a - b); note(a * b);
                note(a & b); note(a | b); note(a ^ b);
                note(a << b); note(a >> b); note(a >>> b);
                if (b != 0) {
                    int q = a / b, r = a % b;
                    note(q); note(r);
                    if (q * b + r != a) System.out.println("broken division " + a + " " + b);
                }
                line.append(' ').append(Integer.toHexString(hash));
            }
            System.out.println(line);
        }
    }

    static void binaryLongs() {
        for (int i = 0; i < longs.length; i++) {
            long a = longs[i];
            StringBuffer line = new StringBuffer("long " + a + ":");
            for (int j = 0; j < longs.length; j++) {
                long b = longs[j];
                note(a + b); note(a - b); note(a * b);
                note(a & b); note(a | b); note(a ^ b);
                note(a << b); note(a >> b); note(a >>> b);
                note(a << (int) b); note(a >> (byte) b); note(a >>> (char) b);
                if (b != 0L) {
                    long q = a / b, r = a % b;
                    note(q); note(r);
                    if (q * b + r != a) System.out.println("broken division " + a + " " + b);
                }
                line.append(' ').append(Integer.toHexString(hash));
            }
            System.out.println(line);
        }
    }

    static void check(String what, long folded, long computed) {
        System.out.println(what + " = " + folded + (folded == computed ? "" : " BUT COMPUTED " + computed));
    }

    static void folding() {
        int min = MIN, max = MAX, one = 1, minusOne = -1, seven = 7, three = 3;
        long lmin = LMIN, lmax = LMAX;
        check("max + 1", MAX + 1, max + one);
        check("min - 1", MIN - 1, min - one);
        check("-min", -MIN, -min);
        check("min / -1", MIN / -1, min / minusOne);
        check("min % -1", MIN % -1, min % minusOne);
        check("max * max", MAX * MAX, max * max);
        check("7 / -3", 7 / -3, seven / -three);
        check("7 % -3", 7 % -3, seven % -three);
        check("-7 / 3", -7 / 3, -seven / three);
        check("-7 % 3", -7 % 3, -seven % three);
        check("1 << 33", 1 << 33, one << 33);
        check("1 << 33L", 1 << 33L, one << 33L);
        check("1 << -1", 1 << -1, one << minusOne);
        check("-1 >>> 28", -1 >>> 28, minusOne >>> 28);
        check("-1 >> 28", -1 >> 28, minusOne >> 28);
        check("1L << 65", 1L << 65, (long) one << 65);
        check("1L << 40", 1L << 40, (long) one << 40);
        check("-1L >>> 60", -1L >>> 60, (long) minusOne >>> 60);
        check("-1 >>> 4L", -1 >>> 4L, minusOne >>> 4L);
        check("lmax + 1", LMAX + 1, lmax + one);
        check("lmin / -1", LMIN / -1, lmin / minusOne);
        check("lmin % -1", LMIN % -1, lmin % minusOne);
        check("lmin - 1L", LMIN - 1L, lmin - one);
        check("~max", ~MAX, ~max);
        check("max & lmax", MAX & LMAX, max & lmax);
        check("-1 ^ lmax", -1 ^ LMAX, minusOne ^ lmax);
        check("'a' + 1", 'a' + 1, (char) (one + 96) + one);
        check("(byte) 200 * (short) 3", (byte) 200 * (short) 3, (byte) (one * 200) * (short) three);
        check("max + 1L", MAX + 1L, max + 1L);
        check("1 + 2 * 3 - 4 / 2 % 3 << 1 | 8 & 12 ^ 5", 1 + 2 * 3 - 4 / 2 % 3 << 1 | 8 & 12 ^ 5,
            one + 2 * three - 4 / 2 % three << one | 8 & 12 ^ 5);
    }

    /** Operands that are narrower than an int. */
    static void narrowOperands() {
        byte b = -128;
        short s = -32768;
        char c = '\uffff';
        System.out.println("b + b = " + (b + b) + ", -b = " + -b + ", ~b = " + ~b + ", b * s = " + b * s);
        System.out.println("c + c = " + (c + c) + ", -c = " + -c + ", c << 16 = " + (c << 16) + ", s >>> 4 = " + (s >>> 4));
        System.out.println("b / s = " + b / s + ", s / b = " + s / b + ", c % s = " + c % s + ", b ^ c = " + (b ^ c));
        System.out.println("b >> s = " + (b >> s) + ", b << c = " + (b << c) + ", (c & s) = " + (c & s) + ", b | 1L = " + (b | 1L));
        System.out.println("c >> 40L = " + (c >> 40L) + ", 1L << c = " + (1L << c) + ", c + 1L = " + (c + 1L) + ", +c = " + +c);
    }

    public static void main(String[] args) {
        binaryInts();
        binaryLongs();
        folding();
        narrowOperands();
    }
}
