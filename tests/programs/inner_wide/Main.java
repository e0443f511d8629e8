/** Hidden parameters beside longs and doubles. */
public class Main {
    interface F {
        double f(long a, double b);
    }
    private long big = 1L << 33;
    private double dd = 0.25;
    private static long sbig;
    F make(final long l, final double d, final int i, final float f, final byte b) {
        return new F() {
            private final double own = l * d;
            {
                big += l;
                dd *= d;
                sbig -= i;
            }
            public double f(long a, double bb) {
                big++;
                ++dd;
                sbig--;
                return a + bb + l + d + i + f + b + own + big + dd + sbig + (big = 5) + (dd = 6.5) + big-- + dd++;
            }
        };
    }
    class C {
        long x;
        C(long p, double q, int r) { x = p + (long) q + r + big; }
        C(double q) { this(3L, q, 4); }
    }
    static class D extends C {
        D(Main m, long z) { m.super(z, 1.0, 2); }
    }
    public static void main(String[] a) {
        Main m = new Main();
        System.out.println(m.make(7, 2.5, 3, 1.5f, (byte) 9).f(100, 0.125));
        System.out.println(m.big + " " + m.dd + " " + sbig);
        System.out.println(m.new C(9.9).x + new D(m, 10).x);
    }
}
