/** The switch statement in all its forms. */
public class Main {
    static final int LOW = -3, HIGH = LOW + 5;
    static final char COMMA = ',';

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

    static String chars(char c) {
        switch (c) {
            case 'a': case 'e': case 'i': case 'o': case 'u': return "vowel";
            case ' ': case '\t': return "blank";
            case '0': case '1': case '2': case '3': case '4': case '5' + 0: case 54: case '7': return "octal";
            case COMMA: case ';': return "separator";
            case '\uffff': return "end";
            case 65: return "A";
            default: return c >= 'a' && c <= 'z' ? "consonant" : "?";
        }
    }

    static String bytes(byte b) {
        switch (b) {
            case -128: return "lowest";
            case 127: return "highest";
            case (byte) 0xFF: return "minus one";
            case 'A': return "letter";
        }
        return "" + b;
    }

    static String shorts(short s) {
        String r = "";
        for (int i = 0; i < 3; i++, s *= 10)
            switch (s) {
                case 3: r += "three "; continue;
                case -32768: return "lowest";
                case 300: r += "three hundred "; break;
                case 30: r += "thirty "; break;
                default: r += "?";
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

    /** break and continue inside switches inside loops, and the other way round. */
    static String nested(String s) {
        StringBuffer out = new StringBuffer();
        int depth = 0;
        scan:
        for (int i = 0; ; i++) {
            if (i >= s.length()) break;
            char c = s.charAt(i);
            switch (c) {
                case '(':
                    depth++;
                    continue;
                case ')':
                    if (--depth < 0) break scan;
                    continue scan;
                case '.':
                    break;
                case '*': {
                    int n = 0;
                    while (true) {
                        switch (n++) {
                            case 0: out.append('s'); continue;
                            case 1: out.append('t'); break;
                            default: out.append('r'); continue scan;
                        }
                        out.append('a');
                    }
                }
                default:
                    switch (depth) {
                        case 0: out.append(c); break;
                        case 1: out.append(Character.toUpperCase(c)); break;
                        case 2: switch (c) { case 'x': out.append("<x>"); break; default: break scan; }
                                out.append('2');
                                break;
                        default: out.append(depth);
                    }
            }
            out.append(depth == 0 ? '.' : ':');
        }
        return out.toString();
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

    static int assigned(int i) {
        int x;
        switch (i) {
            case 0: x = 10; break;
            case 1: x = 11;
            case 2: x = 12; break;
            case 3: throw new IllegalArgumentException("three");
            default: x = 13;
        }
        return x;
    }

    static int noReturnBehind(int i) {
        switch (i & 1) {
            case 0: return 0;
            default: return 1;
        }
    }

    static String big(int i) {
        switch (i) {
            case 10: return "a"; case 11: return "b"; case 12: return "c"; case 13: return "d"; case 15: return "e"; case 16: return "f";
            case 20: return "g"; case 21: return "h"; case 23: return "i"; case 24: return "j"; case 25: return "k"; case 26: return "l";
            case 30: return "m"; case 31: return "n"; case 33: return "o"; case 35: return "p"; case 37: return "q"; case 38: return "r";
            case 500: return "s"; case -500: return "t"; case 5000: return "u"; case -70000: return "v"; case 70000: return "w"; case 99999: return "x";
        }
        return "-";
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
        String letters = "ab \t7896,;A\uffff!";
        for (int i = 0; i < letters.length(); i++) System.out.print(chars(letters.charAt(i)) + " ");
        System.out.println();
        System.out.println(bytes((byte) 128) + ", " + bytes((byte) 127) + ", " + bytes((byte) -1) + ", " + bytes((byte) 65) + ", " + bytes((byte) 255) + ", " + bytes((byte) 3));
        System.out.println(shorts((short) 3) + "| " + shorts((short) 30) + "| " + shorts((short) -32768));
        strange();
        System.out.println(nested("ab(cd(xx)e).*z(((y)))") + " " + nested("a)b") + " " + nested("((xy") + " " + nested("x*"));
        for (int i = 0; i < 4; i++) System.out.print(scopes(i) + " ");
        try {
            for (int i = 5; i >= 0; i--) System.out.print(assigned(i) + " ");
        } catch (IllegalArgumentException e) {
            System.out.print(e.getMessage() + " ");
        }
        System.out.println(assigned(0) + " " + assigned(1) + " " + noReturnBehind(4) + noReturnBehind(5));
        StringBuffer found = new StringBuffer();
        for (int i = -70001; i < 100001; i++) {
            String s = big(i);
            if (s != "-") found.append(i).append(s);
        }
        System.out.println(found);
        System.out.println(inTry(0) + " " + inTry(1) + " " + inTry(2) + " " + inTry(3) + " " + inTry(9));
    }
}
