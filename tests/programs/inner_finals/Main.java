/** Blank finals of fields and locals in inner classes. */
public class Main {
    final int f;
    final String g;
    final Runnable r;
    Main(final boolean b) {
        if (b)
            f = 1;
        else
            f = 2;
        g = "g" + f;
        r = new Runnable() {
            public void run() {
                System.out.println(f + g + b);
            }
        };
    }
    class In {
        final int x;
        final Main m;
        { x = f * 10; }
        In() { m = Main.this; }
        In(Main o) { m = o; }
        int s() { return x + m.f; }
    }
    static int use(final int p) {
        final int q;
        final int[] z;
        if (p > 0) {
            q = p;
            z = new int[] {q};
        } else {
            q = -p;
            z = null;
        }
        return new Object() {
            final int w;
            { w = q * 2; }
            int k() {
                return w + (z == null ? 0 : z[0]) + p;
            }
        }.k();
    }
    public static void main(String[] a) {
        Main m = new Main(true);
        m.r.run();
        new Main(false).r.run();
        System.out.println(m.new In().s() + m.new In(new Main(false)).s());
        System.out.println(use(4) + " " + use(-4));
    }
}
