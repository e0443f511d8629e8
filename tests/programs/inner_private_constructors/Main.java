/** Private constructors of a top-level class, overloaded so that hidden parameters could be mistaken. */
public class Main {
    private String s;
    private Main() { s = "()"; }
    private Main(Main m) { s = "(M" + (m == null) + ")"; }
    private Main(Main m, Main n) { s = "(MM)"; }
    Main(int i, Main m) { s = "(iM)"; }
    private Main(int i) { s = "(i)"; }
    static class N {
        String go() {
            return new Main().s + new Main(null).s + new Main(null, null).s + new Main(1, null).s + new Main(2).s
                + new Main(new Main()).s;
        }
    }
    static class Sub extends Main {
        Sub() { super(3); }
        Sub(Main m) { super(m); }
        Sub(String x) {}
    }
    static class Sub2 extends Sub {
        private Sub2() { super(new Main()); }
        private Sub2(int i) { this(); }
        static Sub2 mk() { return new Sub2(4); }
    }
    public static void main(String[] a) {
        System.out.println(new N().go() + ((Main) new Sub()).s + ((Main) new Sub("")).s
            + ((Main) new Sub((Main) null)).s + ((Main) Sub2.mk()).s + new Main(5) {
                  String g() {
                      return ((Main) this).s;
                  }
              }.g() + ((Main) new Sub2(1) {}).s);
    }
}
