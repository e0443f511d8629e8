/** Every kind of statement in an inner class, with the variables of the class around it. */
public class Main {
    private Object lock = new Object();
    private int state;
    private boolean flag;
    private String s;
    private Object o = "str";
    private static Main inst() { return new Main(); }
    class W extends Thread {
        private volatile int n;
        public void run() {
            synchronized (lock) {
                state++;
            }
            synchronized (Main.this) {
                state += n;
            }
            switch (state) {
                case 0:
                    flag = true;
                    break;
                case 1:
                    flag = !flag;
                default:
                    s = "d" + state;
            }
            if (flag && state > 0 || s == null) s += flag ? "T" : state == 3 ? "3" : "F";
            try {
                if (o instanceof String) throw(RuntimeException)((Object) new RuntimeException((String) o));
            } catch (RuntimeException e) {
                s += e.getMessage();
            } finally {
                state = -state;
                flag |= state < 0;
            }
            do {
                state++;
            } while (state < 0);
            for (state = 0, n = 5; state < 3; state++, n--) {
                if (state == 1) continue;
                s += state;
            }
            while (state-- > 0) s += state;
            int[] x = {state, state++, ++state};
            s += x[0] + x[1] + x[2];
            s = (s == null ? "null" : s) + (flag = false);
            o = (Object) (n > 0 ? s : null);
        }
    }
    public static void main(String[] a) throws Exception {
        Main m = inst();
        W w = m.new W();
        w.n = 3;
        w.start();
        w.join();
        System.out.println(m.s + " " + m.state + " " + m.flag + w.n + m.o);
    }
}
