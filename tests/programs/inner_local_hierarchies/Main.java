/** Members of local classes, inherited by other local classes. */
public class Main {
    int f = 1;
    Object go(final int p) {
        final int q = p * 2;
        class A {
            int a = p;
            class M {
                int m = a + q;
                class N {
                    int n() { return m + a + p + f; }
                }
            }
            M mk() { return new M(); }
        }
        class B extends A {
            class M2 extends A.M {
                int both() { return m + a + q; }
            }
            class N2 extends M.N {
                N2(M m) { m.super(); }
                int n() { return super.n() * 10; }
            }
            int t() { return new M2().both() + new N2(new M()).n(); }
        }
        class C extends B {
            C() {
                a = 100;
                f++;
            }
            B.M2 x() { return this.new M2(); }
            A.M y(final int z) {
                return new B() {
                    M over() {
                        return new M() {
                            { m = z + a; }
                        };
                    }
                }.over();
            }
        }
        C c = new C();
        return new int[] {c.t(), c.x().both(), c.y(5).m, c.mk().new N().n(), new A(){int k(){return a + p;
    }
}
.k()
}
;
}
class I1 {
    int v = 5;
    class I2 {
        int w = v + f;
    }
}
class J1 extends I1 {
    class J2 extends I2 {
        int s() { return w + v + f; }
    }
    Object loc(final int k) {
        class L extends J2 {
            int s() { return super.s() + k; }
        }
        class L2 extends L {
            L2() {}
        }
        return new int[] {new L().s(), new L2().s()};
    }
}
static String str(Object o) {
    int[] x = (int[]) o;
    String s = "";
    for (int i = 0; i < x.length; i++) s += x[i] + " ";
    return s;
}
public static void main(String[] a) {
    Main m = new Main();
    System.out.println(str(m.go(3)));
    System.out.println(str(m.new J1().loc(7)));
}
}
