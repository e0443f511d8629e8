package p;
public class A {
    protected int x = 1;
    protected static int sx = 2;
    protected class In {
        protected int y = x + 1;
        protected In(int k) { y += k; }
        protected int m() { return y; }
        public class Deep {
            public int z = y;
        }
    }
    protected static class St {
        protected St() {}
        public int g() { return sx; }
    }
    public interface Cb {
        int call();
    }
    protected interface PCb {
        int pc();
    }
    public static class Pub {
        public static class Inner {
            public static int c = 9;
            public int i = 8;
            public Inner() {}
        }
    }
    protected int hook() { return 10; }
}
