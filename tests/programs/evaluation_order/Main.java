/** Operands run from left to right, each exactly once, and what fails in between leaves the rest undone. */
public class Main {
    static StringBuffer log = new StringBuffer();

    static void flush(String label, Object result) {
        System.out.println(label + ": " + log + "= " + result);
        log = new StringBuffer();
    }

    static int n(int i) {
        log.append(i).append(' ');
        return i;
    }

    static long n(long l) {
        log.append(l).append("L ");
        return l;
    }

    static boolean n(boolean b) {
        log.append(b).append(' ');
        return b;
    }

    static int[] array(int[] a) {
        log.append("array ");
        return a;
    }

    static int boom(String s) {
        log.append(s).append("! ");
        throw new RuntimeException(s);
    }

    int field;
    static final int FIXED = 77;
    static int shared = 5;
    final int own = 12;
    Main next;
    int[] cells = { 1, 2, 3 };

    Main self() {
        log.append("self ");
        return this;
    }

    static Main none() {
        log.append("none ");
        return null;
    }

    Main with(int a, int b) {
        log.append("with(" + a + "," + b + ") ");
        return this;
    }

    static String three(int a, long b, String c) {
        return a + "," + b + "," + c;
    }

    static void operands() {
        flush("sum", "" + (n(1) + n(2) * n(3) - (n(4) - n(5))));
        flush("nested", "" + (n(10) / (n(2) + n(3)) % n(4)));
        flush("shift", "" + (n(1L) << n(2) >> n(1)));
        flush("compare", "" + (n(1) < n(2) == n(3) > n(4)));
        flush("and", "" + (n(true) && n(false) && n(true)));
        flush("or", "" + (n(false) || n(true) || n(false)));
        flush("both", "" + (n(false) & n(true) | n(false) ^ n(true)));
        flush("conditional", "" + (n(true) ? n(1) : n(2)) + (n(false) ? n(3) : n(4)));
        flush("arguments", three(n(1), n(2) + n(3L), n(4) + "" + n(5)));
        flush("text", n(1) + "a" + n(2) + (n(3) + n(4)) + n(true));
        flush("receiver", "" + new Main().self().with(n(1), n(2)).self().with(n(3), n(4)).field);
        flush("array literal", "" + new int[] { n(1), n(2), n(3) }[n(0) + n(1)]);
        flush("dimensions", "" + new int[n(2)][n(3)][n(1)][].length);
        flush("new", new StringBuffer(n(10)).append(n(1)).append(n(2)));
    }

    static void assignments() {
        Main m = new Main();
        int[] a = { 0, 0, 0, 0 };
        array(a)[n(0)] = n(5);
        array(a)[n(1)] += n(6) + a[0];
        array(a)[n(2)]++;
        array(a)[n(3)] = array(a)[n(2)] = n(9);
        flush("elements", a[0] + " " + a[1] + " " + a[2] + " " + a[3]);
        m.self().field = n(3);
        m.self().field += n(4);
        m.self().field *= m.self().field++;
        ++m.self().self().field;
        flush("fields", "" + m.field);
        int i = 0;
        a[i] = i = 2;
        a[i] = a[i = 1] + i;
        i = a[i] + (i = 3) + i;
        flush("locals", a[0] + " " + a[1] + " " + a[2] + " " + i);
        int[][] g = { { 1, 2 }, { 3, 4 } };
        int k = 0;
        g[k++][k--] = k++ + (g[k][k] = ++k);
        flush("grid", g[0][0] + " " + g[0][1] + " " + g[1][0] + " " + g[1][1] + " k " + k);
        int[] b = { 1, 2 }, c = b;
        b[0] = (b = new int[] { 7, 8 })[1];
        flush("array replaced", c[0] + " " + b[0]);
        String s = "a";
        s += (s = "b") + s;
        flush("text", s);
        long l = 1;
        l += l++ * (l += 5) - --l;
        flush("long", "" + l);
        boolean t = true;
        t ^= (t = false) | !t;
        flush("boolean", "" + t);
    }

    /** A static member through an expression: the expression runs, but may well be null. */
    static void statics() {
        Main m = new Main();
        flush("static field", "" + m.self().shared);
        flush("through null", "" + none().shared);
        flush("static method", "" + none().three(n(1), n(2), "x"));
        none().shared = n(6);
        none().shared += n(7);
        none().shared++;
        flush("assigned", "" + Main.shared);
        flush("constant", "" + m.self().FIXED + none().FIXED);
        flush("own constant", "" + m.self().own);
        try {
            flush("no object", "" + none().own);
        } catch (NullPointerException e) {
            flush("no object", "null pointer");
        }
        flush("length", "" + array(new int[4]).length);
    }

    static void failures() {
        int[] a = { 1 };
        int[] no = null;
        Main m = null;
        int x = 1;
        try { x = n(1) + boom("two") + n(3); } catch (RuntimeException e) { flush("operand", x + e.getMessage()); }
        try { array(a)[n(5)] = n(6); } catch (ArrayIndexOutOfBoundsException e) { flush("bounds last", "" + a[0]); }
        try { array(a)[n(5)] += n(6); } catch (ArrayIndexOutOfBoundsException e) { flush("bounds first", "" + a[0]); }
        try { array(no)[n(5)] = n(6); } catch (NullPointerException e) { flush("null last", "x"); }
        try { array(no)[n(5)] += n(6); } catch (NullPointerException e) { flush("null first", "x"); }
        try { array(no)[boom("index")] = n(6); } catch (RuntimeException e) { flush("index before null", e.getMessage()); }
        try { array(a)[n(0)] = boom("value"); } catch (RuntimeException e) { flush("kept", "" + a[0]); }
        try { none().field = n(1); } catch (NullPointerException e) { flush("field null last", "x"); }
        try { none().field += n(1); } catch (NullPointerException e) { flush("field null first", "x"); }
        try { none().with(n(1), n(2)); } catch (NullPointerException e) { flush("arguments before null", "x"); }
        try { n(6 / n(0) * n(2)); } catch (ArithmeticException e) { flush("division", "x"); }
        try { x = n(x = 9) / (x - x); } catch (ArithmeticException e) { flush("division keeps", "" + x); }
        try { x += boom("sum"); } catch (RuntimeException e) { flush("compound keeps", "" + x); }
        try { x = new int[n(1)][n(-1)][n(2)].length; } catch (NegativeArraySizeException e) { flush("all sizes first", "" + x); }
        try { new Main().next.next.field = boom("never"); } catch (NullPointerException e) { flush("null within", "x"); }
        try { three(n(1), n(2), ((Object) m).toString() + n(3)); } catch (NullPointerException e) { flush("argument", "x"); }
        try { Object o = (String) (Object) new Integer(n(1)); n(2); } catch (ClassCastException e) { flush("cast", "x"); }
        try { if (n(1) > 0 && boom("condition") > 0) n(2); } catch (RuntimeException e) { flush("condition", "x"); }
        try { switch (boom("selector")) { case 0: n(0); default: n(1); } } catch (RuntimeException e) { flush("selector", "x"); }
        try { throw n(1) > 0 ? new RuntimeException("" + n(2)) : null; } catch (RuntimeException e) { flush("throw", e.getMessage()); }
        try { synchronized (n(1) > 0 ? null : log) { n(2); } } catch (NullPointerException e) { flush("lock", "x"); }
    }

    public static void main(String[] args) {
        operands();
        assignments();
        statics();
        failures();
    }
}
