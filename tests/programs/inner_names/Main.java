/** Inner classes whose names are also those of variables, methods, packages and well-known classes. */
public class Main {
    static class String2 {
        static int String = 5;
        int Main = 6;
    }
    static class java2 { int lang = 3; }
    int Main = 7;
    class T {
        int T = 1;
        int T() { return T + Main; }
        class U {
            int T() { return T.this.T() + T; }
        }
    }
    static class Node {
        Node next;
        int val;
        Node(int v, Node n) {
            val = v;
            next = n;
        }
        static Node of(int v) { return new Node(v, null); }
        class Node2 extends Node {
            Node2() { super(Node.this.val + 1, Node.this); }
        }
    }
    interface Vis {
        Object visit(Vis v);
    }
    static final Vis ID = new Vis() {
        public Object visit(Vis v) {
            return v == this ? (Object) "self" : v.visit(this);
        }
    };
    int x = 1;
    void x() { x++; }
    int getX() {
        class x {
            int x = Main.this.x + 10;
            int get() {
                x();
                return x + Main.this.x;
            }
            void x() {
                Main.this.x();
                x += 100;
            }
        }
        return new x().get();
    }
    // What a class extends is not one of its own members, whatever they are called.
    static class Base {
        public String toString() { return "base"; }
    }
    static class Derived extends Base {
        class Base {
            public String toString() { return "member"; }
        }
        String both() { return this + " " + new Base(); }
    }
    static Object anonymous() {
        return new Base() {
            class Base {
                public String toString() { return "inner"; }
            }
            Base own = new Base();
            public String toString() { return super.toString() + " " + own; }
        };
    }
    public static void main(java.lang.String[] args) {
        final String s = "s";
        class String {
            int v = s.length();
            public java.lang.String toString() { return "local" + v; }
        }
        System.out.println(new String() + " " + String2.String + new String2().Main + new java2().lang);
        Main m = new Main();
        System.out.println(m.new T().T() + " " + m.new T().new U().T());
        Node n = new Node(1, null);
        Node.Node2 n2 = n.new Node2();
        System.out.println(n2.val + n2.next.val + Node.of(3).val + " " + (n2.next == n));
        System.out.println(ID.visit(ID) + " " + new Vis() {
            public Object visit(Vis v) {
                return v == this ? "me" : ID.visit(ID);
            }
        }.visit(null) + " " + ID.visit(new Vis() {
            public Object visit(Vis v) {
                return "other" + (v == ID);
            }
        }));
        System.out.println(m.getX());
        System.out.println(new Derived().both() + ", " + anonymous());
        System.out.println(Steps.local() + " " + Steps.anonymous);
    }
}
