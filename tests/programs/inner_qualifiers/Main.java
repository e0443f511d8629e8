/** Qualifiers with side effects, which happen once; protected members of Object. */
public class Main {
    private static int secret = 3;
    private int inst = 4;
    interface K {
        Object O = new Object() {
            int n = secret++;
            public String toString() {
                return "K" + n + secret;
            }
        };
        int[] A = {secret, new Object(){int q(){return secret * 2;
    }
}
.q()
}
;
}
static class D implements Cloneable {
    private int v = 1;
    class In {
        Object cp() throws CloneNotSupportedException {
            v++;
            D d = (D) D.this.clone();
            d.v += 10;
            return d;
        }
        int fin() throws Throwable {
            D.this.finalize();
            return v;
        }
    }
}
D mk(int n) {
    inst += n;
    return ds[n];
}
D[] ds = {new D(), new D()};
static class User {
    String go(Main m) {
        int i = 0;
        m.mk(0).v++;
        m.mk(1).v += m.mk(0).v = 7;
        m.ds[i++].v *= i + 1;
        (i > 0 ? m.ds[0] : m.ds[1]).v -= 2;
        m.ds[i].v <<= m.ds[0].v;
        return m.ds[0].v + " " + m.ds[1].v + " " + m.inst + i;
    }
    String npe(Main m) {
        D[] x = new D[1];
        try {
            x[0].v = side();
            return "no";
        } catch (NullPointerException e) {
            return "npe" + cnt;
        }
    }
    int cnt;
    int side() { return ++cnt; }
}
public static void main(String[] a) throws Throwable {
    System.out.println(K.O + " " + K.A[0] + K.A[1] + secret);
    D d = new D();
    System.out.println(((D) d.new In().cp()).v + " " + d.v + d.new In().fin());
    System.out.println(new User().go(new Main()) + new User().npe(null));
}
}
