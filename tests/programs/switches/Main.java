/** The switch statement in all its forms. */
public class Main {
    static final int LOW = -3, HIGH = LOW + 5;

    static String table(int i) {
        switch (i) {
            case 0: return "zero";
            case 1: return "one";
            case 3: return "three";
            case 2: return "two";
            case 5: return "five";
        }
        return "other";
    }

    static String lookup(int i) {
        String s = "";
        switch (i) {
            case 1000000: s += "million";
            case -1000: s += "-thousand"; break;
            case Integer.MAX_VALUE: s += "max"; break;
            default: s += "default ";
            case Integer.MIN_VALUE: s += "min"; break;
            case 0: s += "zero";
        }
        return s;
    }

    static String edges(int i) {
        switch (i) {
            case Integer.MAX_VALUE: return "max";
            case Integer.MAX_VALUE - 1: return "max-1";
            case Integer.MAX_VALUE - 2: return "max-2";
        }
        switch (i) {
            case Integer.MIN_VALUE: return "min";
            case Integer.MIN_VALUE + 1: return "min+1";
            case -2147483646: return "min+2";
            default: return "between";
        }
    }

    static int fallThrough(int i) {
        int r = 0;
        switch (i) {
            case LOW: r++;
            case LOW + 1: r++;
            case -1: case 0: r += 10;
            default: r += 100;
            case 1: r += 1000; break;
            case HIGH: { r = -1; break; }
            case 'a': ;
        }
        return r;
    }

    static int effects;
    int field;

    static int selector(int i) {
        effects++;
        return i;
    }

    static void strange() {
        switch (selector(1)) { }
        switch (selector(2)) { default: }
        switch (selector(3)) { default: effects += 10; break; }
        switch (selector(4)) { default: if (effects > 0) break; effects += 1000; }
        switch (selector(5)) { case 5: }
        switch (selector(6)) { case 7: effects += 1000; }
        switch (selector(7)) { case 7: default: case 8: effects += 100; }
        switch (3) { case 3: effects += 10000; break; case 4: effects = 0; }
        int[] none = { };
        try { switch (none[1]) { default: effects = 0; } } catch (ArrayIndexOutOfBoundsException e) { effects += 100000; }
        Main nobody = null;
        try { switch (nobody.field) { default: effects = 0; } } catch (NullPointerException e) { effects += 200000; }
        System.out.println("effects " + effects);
    }

    /** A declaration in one group is in scope in the later ones. */
    static int scopes(int i) {
        switch (i) {
            case 0:
                int k = 5;
                return k;
            case 1:
                k = 7;
                int m = k * 2;
                return m;
            case 2: {
                int local = 3;
                k = local;
                return k + 100;
            }
            default:
                k = -1;
                m = k;
        }
        int k = 99;
        return k;
    }

    static int inTry(int i) {
        int r = 0;
        for (;;) {
            try {
                switch (i) {
                    case 0: return r + 1;
                    case 1: r += 10; i = 0; continue;
                    case 2: r += 100; i--; break;
                    case 3: throw new RuntimeException();
                    default: i = 3;
                }
            } catch (RuntimeException e) {
                switch (r) { case 0: r = 5000; }
                i = 2;
            } finally {
                switch (i) { case 2: case 3: r += 100000; break; default: r += 1000000; }
            }
        }
    }

    public static void main(String[] args) {
        for (int i = -1; i <= 6; i++) System.out.print(table(i) + " ");
        System.out.println();
        int[] keys = { 1000000, -1000, Integer.MAX_VALUE, Integer.MIN_VALUE, 0, 1, 999999 };
        for (int i = 0; i < keys.length; i++) System.out.print(lookup(keys[i]) + ", ");
        System.out.println();
        for (int i = -4; i < 4; i++) System.out.print(edges(Integer.MAX_VALUE + i) + " ");
        System.out.println();
        for (int i = -4; i <= 3; i++) System.out.print(fallThrough(i) + " ");
        System.out.println(fallThrough(97));
        strange();
        for (int i = 0; i < 4; i++) System.out.print(scopes(i) + " ");
        System.out.println();
        System.out.println(inTry(0) + " " + inTry(1) + " " + inTry(2) + " " + inTry(3) + " " + inTry(9));
    }
}
