/** String concatenation: every operand type, null, evaluation order, folding; and the classic work with strings. */
public class Main {
    static final String CONSTANT = "c" + 1 + 2L + 3.5f + 4.25 + 'x' + true + (byte) 5 + (short) -6 + (char) 65 + null;
    static final String ALL = "" + 1 + 2, SUM = 1 + 2 + "", SPLIT = "a"
        + "b"
        + "c";
    static final char DASH = '-';
    static final String LINE = "" + DASH + DASH + (char) (DASH + 1) + (DASH + 1);

    /** Its text may be null: the concatenation then shows the word. */
    private String text;

    Main(String text) {
        this.text = text;
    }

    public String toString() {
        return text;
    }

    static void types() {
        byte b = -1;
        short s = 300;
        char c = 'c';
        int i = Integer.MIN_VALUE;
        long l = Long.MIN_VALUE;
        float f = 0.25f;
        double d = 1e20;
        boolean t = true;
        String none = null;
        Object nothing = null;
        System.out.println("" + b + ',' + s + ',' + c + ',' + i + ',' + l + ',' + f + ',' + d + ',' + t + ',' + none + ',' + nothing + ',' + null);
        System.out.println(b + "" + s + "" + c + "" + i + "" + l + "" + f + "" + d + "" + t + "" + none + "" + nothing);
        System.out.println(b + s + c + "<" + b + s + c + ">" + (b + s + c));
        System.out.println(c + 1 + "|" + c + 1 + "|" + (char) (c + 1) + "|" + c + c + "|" + (c + c));
        System.out.println(none + none + " " + (none + null) + " " + (null + none).length());
        System.out.println(new StringBuffer("buffer") + "!" + new Integer(7) + new Main("object") + new Thread[0].length);
        System.out.println("" + new Main(null) + "|" + (new Main(null) + "") + "|" + new Main(null) + new Main("") + "|");
        String fromNull = "x";
        fromNull += new Main(null);
        fromNull += (Object) null;
        System.out.println(fromNull);
        System.out.println("" + -1 + - -1 + ~0 + !t + +2 + (1 > 0) + (i == 0 ? "zero" : 1 + "one"));
    }

    /** A char array is an object like any other here: its name shows and not its letters. */
    static void charArrays() {
        char[] letters = { 'a', 'b' };
        char[] none = null;
        String shown = "" + letters, before = letters + "";
        String appended = "x";
        appended += letters;
        System.out.println(shown.startsWith("[C@") + " " + before.startsWith("[C@") + " " + appended.startsWith("x[C@") + " " + ("" + none)
            + " " + ("" + (Object) letters).equals(shown) + " " + String.valueOf(letters) + " " + new String(letters) + letters.length);
        System.out.println(letters);
    }

    static String trace = "";

    static String part(String s) {
        trace += s;
        return s;
    }

    static int number(int i) {
        trace += i;
        return i;
    }

    static void order() {
        String s = part("a") + number(1) + (part("b") + number(2)) + number(3) * number(4) + part("c");
        System.out.println(s + " in the order " + trace);
        int i = 1;
        System.out.println(i++ + "" + i++ + i + (i = 7) + i-- + --i);
        String t = "t";
        System.out.println(t + (t = "u") + t + (t += t) + t);
        StringBuffer buffer = new StringBuffer("1");
        System.out.println(buffer + ":" + buffer.append('2') + ":" + buffer.append(3));
    }

    static void folding() {
        System.out.println(CONSTANT + " " + ALL + " " + SUM + " " + SPLIT + " " + LINE);
        System.out.println((SPLIT == "abc") + " " + (ALL == "12") + " " + (SUM == "3") + " " + ("ab" + 'c' == SPLIT) + " " + (LINE == "--.46"));
        final String local = "lo" + "cal";
        final int n = 3;
        System.out.println((local + n == "local3") + " " + ("true1.0" == true + "" + 1.0) + " " + ("" + (char) 97 == "a") + " " + ("null" == "" + (String) "null"));
        switch ((local + n).length()) {
            case "local" == "lo" + "cal" ? 6 : 1:
                System.out.println("six, by a folded comparison");
                break;
            default:
                System.out.println("other");
        }
    }

    static String reverse(String s) {
        String r = "";
        for (int i = 0; i < s.length(); i++) r = s.charAt(i) + r;
        return r;
    }

    static String roman(int n) {
        int[] values = { 1000, 900, 500, 400, 100, 90, 50, 40, 10, 9, 5, 4, 1 };
        String[] digits = { "M", "CM", "D", "CD", "C", "XC", "L", "XL", "X", "IX", "V", "IV", "I" };
        String r = "";
        for (int i = 0; i < values.length; i++)
            for (; n >= values[i]; n -= values[i]) r += digits[i];
        return r;
    }

    static String replace(String s, String from, String to) {
        StringBuffer r = new StringBuffer();
        int at = 0, hit;
        while ((hit = s.indexOf(from, at)) >= 0) {
            r.append(s.substring(at, hit)).append(to);
            at = hit + from.length();
        }
        return r.append(s.substring(at)).toString();
    }

    static String caesar(String s, int k) {
        char[] cs = s.toCharArray();
        for (int i = 0; i < cs.length; i++) {
            if ('a' <= cs[i] && cs[i] <= 'z') cs[i] = (char) ('a' + (cs[i] - 'a' + k + 26) % 26);
            else if (cs[i] >= 'A' && cs[i] <= 'Z') cs[i] = (char) ((cs[i] - 'A' + k + 26) % 26 + 'A');
        }
        return new String(cs);
    }

    static void work() {
        System.out.println(reverse("stressed") + " " + roman(1998) + " " + roman(444) + " " + replace("a-b--c", "-", "+-") + " " + caesar(caesar("Hello, World", 3), -3) + " " + caesar("xyz", 3));
        System.out.println("  trim ".trim() + "|" + "Upper".toUpperCase() + "|" + "a,b".indexOf(',') + "|" + "banana".lastIndexOf("an") + "|" + "abc".compareTo("abd")
            + "|" + "x".equals(null) + "|" + "A".equalsIgnoreCase("a") + "|" + "hello".substring(1, 3) + "|" + "q".concat("r") + "|" + "ab".hashCode());
    }

    public static void main(String[] args) {
        types();
        charArrays();
        order();
        folding();
        work();
    }
}
