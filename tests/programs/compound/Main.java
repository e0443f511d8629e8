/**
 * Compound assignment: the operator's result is narrowed back to the target, which is evaluated once. The classes On...
 * are written by `generate`; the rest is about boolean, String, evaluation order and constants.
 */
public class Main {
    static int steps;

    /** The index 2, counting how often it was asked for. */
    static int next() {
        steps++;
        return 2;
    }

    static OnByte count(OnByte c) { steps++; return c; }
    static OnShort count(OnShort c) { steps++; return c; }
    static OnChar count(OnChar c) { steps++; return c; }
    static OnInt count(OnInt c) { steps++; return c; }
    static OnLong count(OnLong c) { steps++; return c; }
    static OnFloat count(OnFloat c) { steps++; return c; }
    static OnDouble count(OnDouble c) { steps++; return c; }

    static String note(String line, String op, int statement, int value, int after) {
        return line + " " + op + statement + (value == statement && after == statement ? "" : " BUT VALUE " + value + " THEN " + after);
    }

    static String note(String line, String op, long statement, long value, long after) {
        return line + " " + op + statement + (value == statement && after == statement ? "" : " BUT VALUE " + value + " THEN " + after);
    }

    static String note(String line, String op, float statement, float value, float after) {
        return line + " " + op + Integer.toHexString(Float.floatToIntBits(statement))
            + (value == statement && after == statement ? "" : " BUT VALUE " + value + " THEN " + after);
    }

    static String note(String line, String op, double statement, double value, double after) {
        return line + " " + op + Long.toHexString(Double.doubleToLongBits(statement))
            + (value == statement && after == statement ? "" : " BUT VALUE " + value + " THEN " + after);
    }

    /** Says once what each kind of variable gives. */
    static void same(String[] notes) {
        for (int i = 1; i < notes.length; i++)
            if (!notes[i].equals(notes[0])) System.out.println("BUT " + notes[i]);
        System.out.println(notes[0]);
    }

    static boolean flag;
    boolean field = true;
    static String text = "t";
    String name = "n";

    static boolean say(boolean b) {
        System.out.print(b ? "T" : "F");
        return b;
    }

    static void booleans() {
        boolean b = true;
        boolean[] bs = { true, false };
        Main m = new Main();
        b &= say(false);
        b |= say(true);
        b ^= say(true);
        flag |= b;
        flag ^= !(b &= say(true));
        m.field &= flag != b;
        bs[0] &= bs[1] |= m.field ^= say(true);
        System.out.println(" " + b + flag + m.field + bs[0] + bs[1]);
        if (b |= flag) System.out.println("set");
        if (!(b &= false)) System.out.println("cleared");
        System.out.println((b ^= true) + " " + (b ^= b) + " " + (flag = b |= true));
    }

    static void strings() {
        String s = null;
        s += null;
        s += 1;
        s += 'c';
        s += 2L;
        s += 1.5f;
        s += 2.5;
        s += true;
        s += "x" + 1 + 2;
        s += 1 + 2 + "y";
        byte b = -1;
        short h = -2;
        s += b;
        s += h;
        s += new int[0].length;
        System.out.println(s);
        String[] array = { "a", null };
        Main m = new Main();
        array[0] += array[1] += "z";
        text += m.name += text += "!";
        System.out.println(array[0] + " " + array[1] + " " + text + " " + m.name + " " + (s = "") + (s += 'q'));
        int i = 0;
        array[i++] += i++;
        System.out.println(array[0] + " " + i);
    }

    /** The left operand's old value is fetched before the right side runs. */
    static void order() {
        int i = 5;
        i += i = 2;
        System.out.print(i + " ");
        i = 5;
        i += i++ + ++i;
        System.out.print(i + " ");
        i -= i -= 3;
        System.out.print(i + " ");
        int[] a = { 1, 2, 3, 4 };
        int k = 0;
        a[k++] += a[k++] * (k = 3);
        a[k] <<= k -= 2;
        a[k] += k += 1;
        a[a[0] - 4] *= a[a[0] - 5];
        System.out.println(a[0] + " " + a[1] + " " + a[2] + " " + a[3] + " " + k);
        String trace = "";
        try {
            a[4] += k = 9;
        } catch (ArrayIndexOutOfBoundsException e) {
            trace += "index before right side, k = " + k + "; ";
        }
        int[] none = null;
        try {
            none[k = 7] += k = 8;
        } catch (NullPointerException e) {
            trace += "null before right side, k = " + k + "; ";
        }
        try {
            a[k = 1] /= a[0] - a[0];
        } catch (ArithmeticException e) {
            trace += "division, a[1] = " + a[1];
        }
        System.out.println(trace);
    }

    static void constants() {
        int i = 10;
        i += 127; System.out.print(i + " ");
        i += 128; System.out.print(i + " ");
        i += -128; System.out.print(i + " ");
        i += -129; System.out.print(i + " ");
        i -= 127; System.out.print(i + " ");
        i -= 128; System.out.print(i + " ");
        i -= -128; System.out.print(i + " ");
        i -= -127; System.out.print(i + " ");
        i += 'a'; System.out.print(i + " ");
        i += 32767; System.out.print(i + " ");
        i -= 32768; System.out.print(i + " ");
        i -= -2147483648; System.out.print(i + " ");
        i += 5L; System.out.print(i + " ");
        i += 1.75; System.out.print(i + " ");
        i += 1e10f; System.out.print(i + " ");
        i -= (byte) 200; System.out.println(i);
        byte b = 120;
        b += 10; System.out.print(b + " ");
        b -= 1e3; System.out.print(b + " ");
        b >>>= 1; System.out.print(b + " ");
        b >>= 33L; System.out.print(b + " ");
        b <<= 3; System.out.print(b + " ");
        char c = 'a';
        c += 1; System.out.print(c + " ");
        c *= 1.01; System.out.print(c + " ");
        c -= 'b' - 'A'; System.out.print(c + " ");
        short s = 1;
        s <<= 15; System.out.print(s + " ");
        s >>>= 4; System.out.print(s + " ");
        s ^= 0xFFFF0001; System.out.print(s + " ");
        long l = 1;
        l <<= 40; System.out.print(l + " ");
        l += .5f; System.out.print(l + " ");
        l *= 1.5; System.out.print(l + " ");
        l |= 'a'; System.out.print(l + " ");
        l >>= 'a'; System.out.print(l + " ");
        float f = 1;
        f += 16777216; System.out.print(f + " ");
        f /= 3L; System.out.print((int) f + " ");
        double d = 7;
        d %= 2.5f; System.out.print(d + " ");
        d -= 'a'; System.out.println(d);
    }

    public static void main(String[] args) {
        OnByte.all((byte) -100);
        OnShort.all((short) 30000);
        OnChar.all('\ufff0');
        OnInt.all(2000000000);
        OnLong.all(-9000000000000000000L);
        OnFloat.all(-1.5f);
        OnDouble.all(1e10);
        System.out.println("targets evaluated " + steps + " times");
        booleans();
        strings();
        order();
        constants();
    }
}
