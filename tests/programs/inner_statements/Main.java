import java.io.IOException;

public class Main {
    static void io(String s) throws IOException { if (s == null) throw new IOException("null"); }
    interface Maker { Object make() throws Exception; }

    // labels reused inside a local class's method
    static int labels() {
        int n = 0;
        outer:
        for (int i = 0; i < 3; i++) {
            class Local {
                int g() {
                    int k = 0;
                    outer:
                    while (true) { if (++k > 3) break outer; else continue outer; }
                    return k;
                }
            }
            n += new Local().g();
            if (i == 1) continue outer;
            n += 100;
        }
        return n;
    }

    // anonymous class whose initializers throw what is handled around
    static String anonymous() {
        try {
            Object o = new Object() {
                String s = check();
                { io(null); }
                String check() throws IOException { io("x"); return "checked"; }
            };
            return "made " + o;
        } catch (IOException e) {
            return "caught " + e.getMessage();
        }
    }

    static class Base {
        final Runnable r;
        Base(Runnable r) { this.r = r; }
        Base(Object[] a, int[] b) { this.r = null; System.out.println(a.length + b.length); }
    }
    static class Derived extends Base {
        int own = 7;
        Derived(final int x) {
            super(new Runnable() {
                int field = x + 1;
                public void run() { System.out.println("run " + field + helper()); }
                int helper() { return field * 2; }
            });
        }
    }

    class AllDeclare {
        int f;
        { io("y"); f = 3; }
        int g = init();
        int init() throws IOException { return f + 1; }
        AllDeclare() throws IOException { }
        AllDeclare(int i) throws Exception { f = i; }
    }

    static int switches(int x) {
        int r = 0;
        switch (x) {
        case 1: int y = 5; r = y; break;
        case 2: y = 6; r = y;
        default: { int z = 9; r += z; }
        }
        int y = 100;
        switch (x) { case 3: int q = 1; r += q; }
        { int q = 50; r += q; }
        return r + y;
    }

    static String tries() {
        StringBuffer b = new StringBuffer();
        for (int i = 0; i < 4; i++) {
            try {
                try {
                    if (i == 0) continue;
                    if (i == 1) throw new IllegalStateException("a");
                    if (i == 2) io(null);
                    if (i == 3) break;
                } catch (IllegalStateException e) {
                    b.append("ise,");
                } finally {
                    b.append("fin").append(i).append(',');
                    class InFinally { public String toString() { return "L"; } }
                    b.append(new InFinally());
                }
            } catch (IOException e) {
                b.append("io,");
            }
        }
        return b.toString();
    }

    final int blank;
    { class Loc { int v = 4; } blank = new Loc().v; }
    static final Object O = "constant object";
    static final String S = "const" + 1;
    static final byte B = 10;
    static final char C = 'a' + 1;
    final int again = new Object() { int f() { return again2(); } int again2() { return 11; } }.f();

    void innerThrow() throws Exception {
        AllDeclare a = new AllDeclare();
        System.out.println(a.f + " " + a.g);
        a = this.new AllDeclare(9);
        System.out.println(a.f + " " + a.g);
    }

    static int doWhile() {
        int i = 0;
        do { if (i == 3) break; i++; } while (i < 10);
        for (int j = 0, k = 10; j < k; j++, k--) i += k - j;
        return i;
    }

    static Object sync(Object lock, int v) {
        synchronized (lock) {
            if (v > 0) return "sync" + v;
        }
        return null;
    }

    public static void main(String[] args) throws Exception {
        System.out.println(labels());
        System.out.println(anonymous());
        new Derived(4).r.run();
        new Base(new Object[2], new int[3]) { { System.out.println("anonymous base"); } };
        System.out.println(switches(1) + " " + switches(2) + " " + switches(3));
        System.out.println(tries());
        System.out.println(new Main().blank + " " + O + S + B + C + new Main().again);
        new Main().innerThrow();
        System.out.println(doWhile());
        System.out.println(sync(args, 3) + "" + sync(args, -1));
        Maker m = new Maker() { public Object make() throws IOException { io("z"); return "made"; } };
        System.out.println(m.make());
    }
}
