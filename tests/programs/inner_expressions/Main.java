/** Private members through qualifiers, arrays and calls; classes in anonymous classes; class literals. */
public class Main {
    private int v = 1;
    static class N {
        private Main m;
        N(Main m) { this.m = m; }
        int get() {
            m.v++;
            m.v += 2;
            return m.v-- + --m.v;
        }
        void arr() {
            ms[0].v = 7;
            ms[0].v *= 2;
            Main[] l = ms;
            l[0].v++;
            System.out.println(l[0].v);
            get2().v = 3;
            System.out.println(get2().v);
        }
        Main[] ms = {new Main()};
        Main get2() {
            cnt++;
            return ms[0];
        }
        int cnt;
    }
    private static Main st;
    private static int[] ia = {1, 2, 3};
    private int[][] ib = {{4}, {5, 6}};
    class I {
        int q() {
            ia[1] += 5;
            ia[ia[0]]++;
            ib[1][1] <<= 2;
            return ia[1] + ib[1][1] + ib.length;
        }
        Object o() {
            return new Object() {
                class M {
                    int z = 5;
                    int h() { return z + v; }
                }
                M m = new M();
                public String toString() { return "" + m.h() + new M().z; }
            };
        }
    }
    public static void main(String[] a) {
        Main m = new Main();
        N n = new N(m);
        System.out.println(n.get() + " " + m.v);
        n.arr();
        System.out.println(n.cnt);
        I i = m.new I();
        System.out.println(i.q());
        System.out.println(i.o());
        st = m;
        System.out.println(new Object() {
            int g() {
                return st.v + st.ib[0][0];
            }
        }.g());
        System.out.println(
            ((Object) new Main[0].getClass()).equals(Main[].class) + " " + I.class.getName() + " " + int.class);
    }
}
