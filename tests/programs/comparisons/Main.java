/** Relational and logical operators on every type, as conditions of each kind of jump and as values. */
public class Main {
    static StringBuffer out = new StringBuffer();

    static void put(boolean b) {
        out.append(b ? '1' : '0');
    }

    static void flush(String label) {
        System.out.println(label + out);
        out.setLength(0);
    }

    static void ints(int a, int b) {
        put(a < b); put(a <= b); put(a > b); put(a >= b); put(a == b); put(a != b);
        put(!(a < b)); put(!(a <= b)); put(!(a > b)); put(!(a >= b)); put(!(a == b)); put(!(a != b));
        if (a < b) out.append('<'); else out.append('.');
        if (!(a <= b)) out.append('>'); else out.append('.');
        while (a == b) { out.append('='); break; }
        for (; a != b; ) { out.append('#'); break; }
        put(a < b & a <= b | a > b ^ a >= b);
        put(a < b == a <= b); put(a < b != a > b);
        put(0 < a); put(a < 0); put(a == 0); put(0 != b); put(b >= 0); put(0 >= b); put(b > -1); put(1 <= a);
    }

    static void longs(long a, long b) {
        put(a < b); put(a <= b); put(a > b); put(a >= b); put(a == b); put(a != b);
        put(!(a < b)); put(!(a <= b)); put(!(a > b)); put(!(a >= b)); put(!(a == b)); put(!(a != b));
        if (a < b) out.append('<'); else out.append('.');
        if (!(a <= b)) out.append('>'); else out.append('.');
        while (a == b) { out.append('='); break; }
        for (; a != b; ) { out.append('#'); break; }
        put(a < b & a <= b | a > b ^ a >= b);
        put(a < b == a <= b); put(a < b != a > b);
        put(0 < a); put(a < 0L); put(a == 0); put(0 != b); put(b >= 0L); put(0 >= b); put(b > -1); put(1 <= a);
    }

    static void mixed() {
        byte b = -1;
        char c = '\uffff';
        short s = -1;
        int i = 65535;
        long l = -1;
        float f = -1;
        double d = 65535;
        put(b == c); put(b == s); put(c == i); put(s != i); put(b == l); put(l < c); put(f == b); put(d == c); put(d >= i);
        put(i <= f); put(s == f); put(c > b); put(c < 'a'); put('a' < 'b'); put(l == f); put((byte) c == b); put((char) b == c);
        put(16777217 == 16777216f); put((int) 16777216f == 16777217); put(9007199254740993L == 9007199254740992.0);
        i = 16777217;
        l = 9007199254740993L;
        put(i == 16777216f); put(i == 16777216.0); put(l == 9007199254740992.0); put(l == 9.007199254740992e15f);
        flush("mixed types: ");
    }

    static boolean t(String name) {
        out.append(name);
        return true;
    }

    static boolean f(String name) {
        out.append(name.toUpperCase());
        return false;
    }

    static void logic() {
        boolean yes = out.length() == 0, no = !yes;
        for (int k = 0; k < 8; k++) {
            boolean a = (k & 4) != 0, b = (k & 2) != 0, c = (k & 1) != 0;
            put(a && b || c); put(a || b && c); put((a || b) && c); put(!(a && b) || c); put(!(a || b && !c)); put(a ? b : c);
            put(a && (b || c) && !(a && b && c)); put(a == b == c); put(a != b != c); put(a ^ b ^ c); put(a & b | c); put(a | b & c);
            put(!a == b); put(!(a == b)); put(!!a); put(a && !b ? c : !c); put((a ? b : c) ? a : b || c); put(a & !b); put(!a | !b);
            if (a && b || c) out.append('p');
            if (!(a && b || c)) out.append('q');
            if ((a || b) && c) out.append('r'); else out.append('s');
            if (!((a || b) && (b || c))) out.append('t');
            if (a ? b : c) out.append('u');
            if (!(a ? b : !c)) out.append('v'); else if (a != c) out.append('w'); else out.append('x');
            if (a) if (b) out.append("y"); else out.append("z");
            flush((a ? "a" : "-") + (b ? "b" : "-") + (c ? "c" : "-") + ": ");
        }
        put(f("a") && t("b")); put(t("a") && f("b")); put(t("a") || t("b")); put(f("a") || t("b")); flush("short cut: ");
        put(f("a") & t("b")); put(t("a") | t("b")); put(t("a") ^ t("b")); put(f("a") == f("b")); put(t("a") != f("b")); flush("both sides: ");
        put(f("a") && t("b") || t("c") && !f("d")); put((t("a") || t("b")) && (f("c") || f("d"))); put(t("a") ? f("b") : t("c")); flush("nested: ");
        put(yes || 1 / out.length() == 0 || t("never")); put(no && t("never")); put(true || t("never")); put(false && t("never"));
        put(true && t("a")); put(false || t("b")); put(true & t("c")); put(false | f("d")); put(true | t("e")); put(false & t("f"));
        put(t("g") || true); put(f("h") && false); put(t("i") && true); put(f("j") || false); put(!(true && !t("k")));
        flush("with constants: ");
        boolean x, y;
        if (x = t("a")) out.append(x);
        if (!(y = f("b"))) out.append(y);
        while (x & (x = y)) out.append("never");
        put(x = y = t("c") && !x); put(x); put(y);
        flush("assigned: ");
        out.append(no).append(yes != no);
        if (true) out.append("then"); else out.append("else");
        if (false) out.append("then"); else out.append("else");
        if (yes == true) out.append("1");
        if (no == false) out.append("2");
        if (yes != true || no != false) out.append("3");
        flush("constants: ");
    }

    static void references() {
        Object o = new Object(), p = o, none = null;
        String s = "ab", half = "a", computed = half + "b";
        final String constant = "a" + 'b';
        int[] a = { 1 }, b = { 1 };
        put(o == p); put(o != p); put(o == none); put(o != null); put(null == none); put(null == null); put(none != null);
        put(s == "ab"); put(s == "a" + "b"); put(s == constant); put(s == computed); put(s == computed.intern()); put(s.equals(computed));
        put("ab" == constant); put(a == b); put(a == a); put((Object) a == (Object) b); put(a != null); put((Object) s == p);
        put(!(o == p)); put(!(none == null)); put(!(o != null));
        if (none == null) out.append('n');
        if (o != null) out.append('o');
        if (null != o && !(null == o)) out.append('p');
        if (a == null || a[0] == 1) out.append('q');
        while (none != null) out.append("never");
        do out.append('d'); while (none != null);
        flush("references: ");
    }

    public static void main(String[] args) {
        int[] is = { 0, 1, -1, Integer.MAX_VALUE, Integer.MIN_VALUE };
        long[] ls = { 0, 1, -1, Long.MAX_VALUE, Long.MIN_VALUE, 1L << 32 };
        for (int i = 0; i < is.length; i++) {
            for (int j = 0; j < is.length; j++) { ints(is[i], is[j]); out.append(' '); }
            flush(is[i] + ": ");
        }
        for (int i = 0; i < ls.length; i++) {
            for (int j = 0; j < ls.length; j++) { longs(ls[i], ls[j]); out.append(' '); }
            flush(ls[i] + "L: ");
        }
        mixed();
        logic();
        references();
    }
}
