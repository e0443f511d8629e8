import java.util.Vector;

/** A queue with room for a few items: who finds it full or empty waits. */
class Buffer {
    private final Object[] items;
    private int first, count;
    private boolean closed;
    int greatest;

    Buffer(int room) {
        items = new Object[room];
    }

    synchronized void put(Object item) throws InterruptedException {
        while (count == items.length) wait();
        items[(first + count++) % items.length] = item;
        if (count > greatest) greatest = count;
        notifyAll();
    }

    /** The oldest item, or null when the buffer was closed and is empty. */
    synchronized Object take() throws InterruptedException {
        for (;;) {
            if (count > 0) {
                Object item = items[first];
                items[first] = null;
                first = (first + 1) % items.length;
                count--;
                notifyAll();
                return item;
            }
            if (closed) return null;
            wait();
        }
    }

    synchronized void close() {
        closed = true;
        notifyAll();
    }
}

class Producer extends Thread {
    private final Buffer buffer;
    private final int from, to;

    Producer(Buffer buffer, int from, int to) {
        super("producer " + from);
        this.buffer = buffer;
        this.from = from;
        this.to = to;
    }

    public void run() {
        try {
            for (int i = from; i < to; i++) buffer.put(new Integer(i));
        } catch (InterruptedException e) {
            System.out.println(getName() + " was interrupted");
        }
    }
}

class Consumer implements Runnable {
    private final Buffer buffer;
    private final Vector taken;

    Consumer(Buffer buffer, Vector taken) {
        this.buffer = buffer;
        this.taken = taken;
    }

    public void run() {
        try {
            Object item;
            while ((item = buffer.take()) != null) taken.addElement(item);
        } catch (InterruptedException e) {
            throw new Error("not interrupted here");
        }
    }
}

/** Threads that take turns by name. */
class Turns implements Runnable {
    private static final String[] ORDER = { "ping", "pong", "pung" };
    static StringBuffer log = new StringBuffer();
    private static int turn;
    private static Object monitor = new Object();

    public void run() {
        String me = Thread.currentThread().getName();
        for (int round = 0; round < 3; round++) {
            synchronized (monitor) {
                while (!ORDER[turn % 3].equals(me)) {
                    try {
                        monitor.wait();
                    } catch (InterruptedException e) {
                        return;
                    }
                }
                log.append(me).append(' ').append(turn).append(' ');
                turn++;
                monitor.notifyAll();
            }
        }
    }
}

class Counter {
    static int shared;
    long own;
    private volatile boolean stopped;

    static synchronized void raise() {
        shared++;
    }

    static synchronized int raiseAndFail(boolean fail) {
        shared += 1000;
        if (fail) throw new IllegalStateException("with the lock");
        return shared;
    }

    synchronized void add(int n) {
        own += n;
    }

    void addBlock(int n) {
        synchronized (this) {
            own += n;
        }
    }

    synchronized void stop() {
        stopped = true;
    }
}

class Adder extends Thread {
    final Counter counter;

    Adder(Counter counter) {
        this.counter = counter;
    }

    public void run() {
        for (int i = 0; i < 1000; i++) {
            Counter.raise();
            counter.add(i);
            counter.addBlock(-1);
            synchronized (Counter.class.getName().length() == 7 ? (Object) counter : null) {
                counter.own++;
            }
        }
    }
}

/** Tries to enter a monitor and says so. */
class Probe extends Thread {
    final Object lock;
    boolean entered;

    Probe(Object lock) {
        this.lock = lock;
    }

    public void run() {
        synchronized (lock) {
            entered = true;
        }
    }

    /** True if the lock was free. */
    static boolean free(Object lock) throws InterruptedException {
        Probe p = new Probe(lock);
        p.start();
        p.join();
        return p.entered;
    }
}

public class Main {
    static Object lock = new Object();

    static void producers() throws InterruptedException {
        Buffer buffer = new Buffer(4);
        Vector first = new Vector(), second = new Vector();
        Producer[] producers = { new Producer(buffer, 0, 50), new Producer(buffer, 100, 150), new Producer(buffer, 200, 250) };
        Thread[] consumers = { new Thread(new Consumer(buffer, first)), new Thread(new Consumer(buffer, second)) };
        for (int i = 0; i < consumers.length; i++) consumers[i].start();
        for (int i = 0; i < producers.length; i++) producers[i].start();
        for (int i = 0; i < producers.length; i++) producers[i].join();
        buffer.close();
        for (int i = 0; i < consumers.length; i++) consumers[i].join();
        boolean[] seen = new boolean[250];
        int sum = 0;
        for (int i = 0; i < first.size() + second.size(); i++) {
            Object item = i < first.size() ? first.elementAt(i) : second.elementAt(i - first.size());
            int n = ((Integer) item).intValue();
            if (seen[n]) System.out.println(n + " came twice");
            seen[n] = true;
            sum += n;
        }
        System.out.println("items " + (first.size() + second.size()) + ", sum " + sum + ", never over the room: " + (buffer.greatest <= 4));
    }

    static int leave(int how) {
        for (int i = 0; i < 2; i++) {
            synchronized (lock) {
                switch (how) {
                    case 0: return 0;
                    case 1: break;
                    case 2: continue;
                    case 3: throw new RuntimeException("three");
                    case 4: synchronized (lock) { synchronized (Main.class) { return 4; } }
                    case 5: try { throw new RuntimeException("five"); } finally { synchronized (lock) { if (i == 0) continue; } }
                    case 6: try { return i; } finally { how = 1; }
                    default: try { synchronized (new Object()) { return how / (i - i); } } catch (ArithmeticException e) { return -7; }
                }
            }
        }
        return 9;
    }

    static void locks() throws InterruptedException {
        for (int how = 0; how < 8; how++) {
            String result;
            try {
                result = "" + leave(how);
            } catch (RuntimeException e) {
                result = e.getMessage();
            }
            System.out.print(result + (Probe.free(lock) ? " " : " LOCKED "));
        }
        System.out.println();
        try {
            synchronized (lock) {
                lock.wait(1);
                lock.notify();
            }
            lock.notify();
        } catch (IllegalMonitorStateException e) {
            System.out.println("notify needs the lock");
        }
        Object none = null;
        try {
            synchronized (none) {
                System.out.println("never");
            }
        } catch (NullPointerException e) {
            System.out.println("no lock");
        }
        synchronized (lock) { lockStatement(); }
    }

    static void lockStatement() {
        System.out.println("locked");
    }

    public static void main(String[] args) throws InterruptedException {
        producers();
        Thread[] threads = { new Thread(new Turns(), "pung"), new Thread(new Turns(), "ping"), new Thread(new Turns(), "pong") };
        for (int i = 0; i < 3; i++) threads[i].start();
        for (int i = 0; i < 3; i++) threads[i].join();
        System.out.println(Turns.log);
        Counter counter = new Counter();
        Adder[] adders = new Adder[4];
        for (int i = 0; i < adders.length; i++) (adders[i] = new Adder(counter)).start();
        for (int i = 0; i < adders.length; i++) adders[i].join();
        System.out.println("counted " + Counter.shared + " " + counter.own);
        try {
            Counter.raiseAndFail(true);
        } catch (IllegalStateException e) {
            System.out.println("failed " + e.getMessage() + ", free: " + Probe.free(Counter.class) + " " + Counter.raiseAndFail(false));
        }
        locks();
    }
}
