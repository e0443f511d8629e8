import java.util.*;

/** Producers, consumers and memory as inner classes. */
public class Main {
    private final Vector q = new Vector();
    private int cap = 2, produced, consumed;
    private boolean done;
    private static final Object LOCK = new Object();
    class Producer implements Runnable {
        private final int n;
        Producer(int n) { this.n = n; }
        public void run() {
            for (int i = 0; i < n; i++) put(new Integer(i));
        }
        private void put(Object o) {
            synchronized (q) {
                while (q.size() >= cap) try {
                        q.wait();
                    } catch (InterruptedException e) {
                        return;
                    }
                q.addElement(o);
                produced++;
                q.notifyAll();
            }
        }
    }
    class Consumer extends Thread {
        int sum;
        public void run() {
            while (true) {
                Object o;
                synchronized (q) {
                    while (q.isEmpty() && !done) try {
                            q.wait();
                        } catch (InterruptedException e) {
                            return;
                        }
                    if (q.isEmpty()) return;
                    o = q.elementAt(0);
                    q.removeElementAt(0);
                    q.notifyAll();
                    consumed++;
                }
                sum += ((Integer) o).intValue();
            }
        }
    }
    int run() throws Exception {
        final Consumer[] cs = {new Consumer(), new Consumer()};
        Thread[] ps = new Thread[3];
        for (int i = 0; i < cs.length; i++) cs[i].start();
        for (int i = 0; i < ps.length; i++) (ps[i] = new Thread(new Producer(10 * (i + 1)))).start();
        for (int i = 0; i < ps.length; i++) ps[i].join();
        synchronized (q) {
            done = true;
            q.notifyAll();
        }
        int[] total = {0};
        for (int i = 0; i < cs.length; i++) {
            cs[i].join();
            total[0] += cs[i].sum;
        }
        return total[0];
    }
    static class Memo {
        private Hashtable t = new Hashtable();
        private int hits;
        abstract class Fn {
            abstract long calc(int n);
            long get(int n) {
                Long l = (Long) t.get(new Integer(n));
                if (l != null) {
                    hits++;
                    return l.longValue();
                }
                long r = calc(n);
                t.put(new Integer(n), new Long(r));
                return r;
            }
        }
        long fib(int n) {
            return new Fn() {
                long calc(int k) {
                    return k < 2 ? k : get(k - 1) + get(k - 2);
                }
            }.get(n);
        }
    }
    public static void main(String[] a) throws Exception {
        Main m = new Main();
        System.out.println(m.run() + " " + m.produced + " " + m.consumed);
        Memo memo = new Memo();
        System.out.println(memo.fib(60) + " " + memo.hits + " " + memo.t.size());
    }
}
