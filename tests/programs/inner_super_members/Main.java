/** Private members of a superclass in the nest, by way of super, of a cast and of the class's name. */
public class Main {
    interface K {
        int Z = 5;
        int[] ARR = {1, 2};
    }
    static class P {
        private int a = 1;
        protected int b = 2;
        int c = 3;
        private static int d = 4;
        private int m() { return 10; }
        private static int sm() { return 20; }
    }
    static class Q extends P implements K {
        int a = 100;
        int t() { return super.a + super.b + super.c + P.d + super.m() + P.sm() + ((P) this).a + this.a + Z + ARR[1]; }
        void w() {
            super.a += 5;
            super.a++;
            P.d = 40;
            ARR[0] = 9;
            super.b <<= 1;
        }
        class R {
            int t() { return a + b + c + Z + ARR[0] + Q.this.a + P.d + d2(); }
            int d2() { return ((P) Q.this).a + ((P) Q.this).m(); }
        }
    }
    public static void main(String[] x) {
        Q q = new Q();
        System.out.println(q.t());
        q.w();
        System.out.println(q.t() + " " + q.new R().t() + " " + ((P) q).a + P.sm() + q.a);
        P p = q;
        p.a -= 3;
        System.out.println(p.a + p.m());
    }
}
