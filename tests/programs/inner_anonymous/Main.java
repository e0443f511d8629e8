import java.util.*;

/** Anonymous classes with constructor arguments of every kind, over interfaces and inner classes. */
public class Main {
    static StringBuffer log = new StringBuffer();
    static abstract class B {
        String t;
        B(Object o) { t = "obj" + o; }
        B(String s) { t = "str" + s; }
        B(int i, long l) { t = "il" + i + l; }
        B(char c, byte b) { t = "cb" + c + b; }
        protected B() { t = "none"; }
        public String toString() { return t + x(); }
        abstract String x();
    }
    static int cnt;
    static int n() { return ++cnt; }
    class In {
        class Deep {
            public String toString() { return "deep" + cnt + v; }
        }
    }
    int v = 4;
    public static void main(String[] a) {
        System.out.println(new B((Object) null) {
            String x() {
                return "1";
            }
        });
        System.out.println(new B(null) {
            String x() {
                return "2";
            }
        });
        System.out.println(new B(n(), n()) {
            String x() {
                return "3" + cnt;
            }
        });
        System.out.println(new B('c', (byte) n()) {
            String x() {
                return "4";
            }
        });
        System.out.println(new B() {
            String x() {
                return "5";
            }
        });
        System.out.println(new B(new int[n()]) {
            String x() {
                return t.startsWith("obj") + "";
            }
        }.t.length()
            > 3);
        final byte bb = 3;
        System.out.println(new B(bb, bb) {
            String x() {
                return "" + bb;
            }
        });
        Main m = new Main();
        In in = m.new In();
        System.out.println(in.new Deep() {
            public String toString() {
                return super.toString() + "anon";
            }
        });
        System.out.println(m.new In().new Deep() {
            { cnt += 10; }
        });
        Hashtable h = new Hashtable() {
            {
                put("a", "b");
                put("c", new Integer(cnt));
            }
        };
        System.out.println(h.get("a") + "" + h.get("c"));
        Comparable c = new Comparable() {
            public int compareTo(Object o) {
                return o.hashCode() == hashCode() ? 0 : 1;
            }
        };
        System.out.println(c.compareTo(c));
        System.out.println(new Object[] { new Object() { public String toString() { return "arr"; } } }[0]);
        m.ofInnerClasses();
    }

    class Risky {
        String t;
        Risky(String s) throws java.io.IOException {
            t = s + v;
            if (s == null) throw new java.io.IOException("risk" + v);
        }
    }
    void ofInnerClasses() {
        class Local extends Risky {
            Local(StringBuffer b, long l) throws java.io.IOException { super("" + b + l); }
        }
        try {
            System.out.println(new Local(null, 1) { int u = v; }.t);
            System.out.println(new Risky(null) { }.t);
        } catch (java.io.IOException e) {
            System.out.println(e.getMessage());
        }
    }
}
