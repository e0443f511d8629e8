/** float and double: the special values, comparisons of the unordered, and constants against variables. */
public class Main {
    static final double NAN = Double.NaN, INF = Double.POSITIVE_INFINITY;

    static String bits(double d) {
        return Long.toHexString(Double.doubleToLongBits(d));
    }

    static String bits(float f) {
        return Integer.toHexString(Float.floatToIntBits(f));
    }

    static String compare(double a, double b) {
        String s = "";
        s += a < b ? "<" : ".";
        s += a <= b ? "L" : ".";
        s += a > b ? ">" : ".";
        s += a >= b ? "G" : ".";
        s += a == b ? "=" : ".";
        s += a != b ? "#" : ".";
        s += !(a < b) ? "n" : ".";
        s += !(a <= b) ? "n" : ".";
        s += !(a > b) ? "n" : ".";
        s += !(a >= b) ? "n" : ".";
        if (a < b) s += "1";
        if (!(a < b)) s += "2";
        if (a > b || a <= b) s += "3"; else s += "4";
        if (!(a >= b) && !(a < b)) s += "5";
        boolean less = a < b, notGreater = !(a > b);
        return s + (less ? "6" : "") + (notGreater ? "7" : "");
    }

    static String compare(float a, float b) {
        String s = "";
        s += a < b ? "<" : ".";
        s += a <= b ? "L" : ".";
        s += a > b ? ">" : ".";
        s += a >= b ? "G" : ".";
        s += a == b ? "=" : ".";
        s += a != b ? "#" : ".";
        s += !(a < b) ? "n" : ".";
        s += !(a <= b) ? "n" : ".";
        s += !(a > b) ? "n" : ".";
        s += !(a >= b) ? "n" : ".";
        if (a < b) s += "1";
        if (!(a < b)) s += "2";
        if (a > b || a <= b) s += "3"; else s += "4";
        if (!(a >= b) && !(a < b)) s += "5";
        boolean less = a < b, notGreater = !(a > b);
        return s + (less ? "6" : "") + (notGreater ? "7" : "");
    }

    static void comparisons() {
        System.out.println("1 2     " + compare(1.0, 2.0) + " " + compare(1f, 2f));
        System.out.println("2 1     " + compare(2.0, 1.0) + " " + compare(2f, 1f));
        System.out.println("1 1     " + compare(1.0, 1.0) + " " + compare(1f, 1f));
        System.out.println("0 -0    " + compare(0.0, -0.0) + " " + compare(0f, -0f));
        System.out.println("NaN 1   " + compare(NAN, 1.0) + " " + compare(Float.NaN, 1f));
        System.out.println("1 NaN   " + compare(1.0, NAN) + " " + compare(1f, Float.NaN));
        System.out.println("NaN NaN " + compare(NAN, NAN) + " " + compare(Float.NaN, Float.NaN));
        System.out.println("inf max " + compare(INF, Double.MAX_VALUE) + " " + compare(Float.POSITIVE_INFINITY, Float.MAX_VALUE));
    }

    static void check(String what, double folded, double computed) {
        String same = Double.doubleToLongBits(folded) == Double.doubleToLongBits(computed) ? "" : " BUT COMPUTED " + computed;
        System.out.println(what + " = " + bits(folded) + same);
    }

    static void folding() {
        double one = 1, three = 3, tenth = 0.1, big = 1e308, zero = 0;
        float fone = 1, fthree = 3, ftenth = 0.1f, fbig = 16777216f, fzero = 0;
        check("1.0 / 3.0", 1.0 / 3.0, one / three);
        check("1.0f / 3.0f", 1.0f / 3.0f, fone / fthree);
        check("1 / 3f", 1 / 3f, 1 / fthree);
        check("0.1 + 0.1 + 0.1", 0.1 + 0.1 + 0.1, tenth + tenth + tenth);
        check("0.1f + 0.1f + 0.1f", 0.1f + 0.1f + 0.1f, ftenth + ftenth + ftenth);
        check("0.1f + 0.1", 0.1f + 0.1, ftenth + tenth);
        check("16777216f + 1f", 16777216f + 1f, fbig + fone);
        check("16777216f + 1", 16777216f + 1, fbig + 1);
        check("16777216f + 1.0", 16777216f + 1.0, fbig + one);
        check("16777217 * 1f", 16777217 * 1f, 16777217 * fone);
        check("1e308 * 10", 1e308 * 10, big * 10);
        check("-1e308 * 10", -1e308 * 10, -big * 10);
        check("1.0 / 0", 1.0 / 0, one / 0);
        check("-1.0 / 0", -1.0 / 0, -one / 0);
        check("1.0 / -0.0", 1.0 / -0.0, one / -zero);
        check("0.0 / 0.0", 0.0 / 0.0, zero / zero);
        check("0f / 0f", 0f / 0f, fzero / fzero);
        check("-0.0", -0.0, -zero);
        check("0 - 0.0", 0 - 0.0, 0 - zero);
        check("-(0f)", -(0f), -fzero);
        check("5.5 % 2", 5.5 % 2, 5.5 * one % 2);
        check("-5.5 % 2", -5.5 % 2, -5.5 * one % 2);
        check("5.5f % -2f", 5.5f % -2f, 5.5f * fone % -2f);
        check("-4.0 % 2", -4.0 % 2, -4.0 * one % 2);
        check("5.5 % 0", 5.5 % 0, 5.5 * one % 0);
        check("5.5f % (1 / 0f)", 5.5f % (1 / 0f), 5.5f * fone % (1 / fzero));
        check("9007199254740993L * 1.0", 9007199254740993L * 1.0, 9007199254740993L * one);
        check("1e-320 / 10", 1e-320 / 10, 1e-320 * one / 10);
        check("Float.MAX_VALUE * 2", Float.MAX_VALUE * 2, Float.MAX_VALUE * (2 * fone));
        check("Float.MAX_VALUE * 2.0", Float.MAX_VALUE * 2.0, Float.MAX_VALUE * (2 * one));
        check("Float.MIN_VALUE / 2", Float.MIN_VALUE / 2, Float.MIN_VALUE / (2 * fone));
        System.out.println(0.0 == -0.0);
        System.out.println(0.0 / 0.0 == 0.0 / 0.0);
        System.out.println(0.0 / 0.0 != 0.0 / 0.0);
        System.out.println(NAN < 1 || NAN > 1 || NAN == 1);
        System.out.println(1f / 3f == 1.0 / 3.0);
        System.out.println((double) (1f / 3f) == 1f / 3f);
        System.out.println(0.1f == 0.1);
        System.out.println(0.5f == 0.5);
    }

    static void constants() {
        System.out.println(bits(Double.MAX_VALUE) + " " + bits(1.7976931348623157e308) + " " + bits(Double.MIN_VALUE) + " " + bits(4.9e-324));
        System.out.println(bits(2.2250738585072014E-308) + " " + bits(2.2250738585072011e-308) + " " + bits(1e23) + " " + bits(9007199254740993.0));
        System.out.println(bits(Float.MAX_VALUE) + " " + bits(3.40282347e+38f) + " " + bits(Float.MIN_VALUE) + " " + bits(1.4e-45f));
        System.out.println(bits(1.17549435E-38f) + " " + bits(1.1754942e-38f) + " " + bits(0.1f) + " " + bits((float) 0.1));
        System.out.println(bits(0f) + " " + bits(-0f) + " " + bits(0.) + " " + bits(-.0) + " " + bits(0e10) + " " + bits(00.0e+00f));
        System.out.println(bits(1.) + " " + bits(.5) + " " + bits(1e3) + " " + bits(1.e-3) + " " + bits(1d) + " " + bits(1f) + " " + bits(0x10) + " " + bits(010f) + " " + bits(09.5) + " " + bits(2D) + " " + bits(3.E1F));
        System.out.println(bits(INF) + " " + bits(-INF) + " " + bits(NAN) + " " + bits(Float.NEGATIVE_INFINITY) + " " + bits(Float.NaN));
        System.out.println(1.0 + " " + 2f + " " + 0.5 + " " + 100.25f + " " + 1e10 + " " + 1.0E7 + " " + 123456.0 + " " + -0.0 + " " + 1e-5f + " " + NAN + " " + INF + " " + -INF);
        System.out.println(1f + 1 + "" + 0f + 1e7f + 1e6 + 0.001 + 1e-4);
        System.out.println(remainder(3) + " " + remainder(-3) + " " + remainder(0));
    }

    static String remainder(int i) {
        switch (i) {
        case (int) (7.5 % 4.0): return "3.5";
        case (int) (-7.5f % 4f): return "-3.5";
        default: return "neither";
        }
    }

    public static void main(String[] args) {
        comparisons();
        folding();
        constants();
    }
}
