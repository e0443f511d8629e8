/** Access methods of every parameter and result type. */
public class Main {
    private void v(StringBuffer b) { b.append("v"); }
    private boolean z(boolean x) { return !x; }
    private byte b(byte x) { return (byte) -x; }
    private char c(char x) { return ++x; }
    private short s(short x) { return --x; }
    private long l(long x) { return x * 2; }
    private float f(float x) { return x / 2; }
    private double d(double x) { return x - 1; }
    private int[] ia(int[] x) {
        x[0]++;
        return x;
    }
    private Object o(Object x) { return x; }
    private String[][] ss() { return new String[][] {{"q"}}; }
    private static native int nat();
    private synchronized int sy(int q) { return q; }
    private final int fi() { return 3; }
    private static synchronized void sv() { cnt++; }
    private static int cnt;
    private transient int tr = 1;
    private volatile long vo = 2;
    class I {
        String all() {
            StringBuffer sb = new StringBuffer();
            v(sb);
            sb.append(z(true))
                .append(b((byte) 3))
                .append(c('a'))
                .append(s((short) 5))
                .append(l(6))
                .append(f(7))
                .append(d(8))
                .append(ia(new int[] {1})[0])
                .append(o("o"))
                .append(ss()[0][0])
                .append(sy(4))
                .append(fi());
            sv();
            Main.sv();
            sb.append(cnt).append(tr++).append(vo *= 3);
            v(sb.append(cnt++));
            return sb.toString();
        }
    }
    public static void main(String[] a) { System.out.println(new Main().new I().all()); }
}
