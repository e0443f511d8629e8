import java.util.Vector;

/** Something that happens at a time. */
abstract class Event {
    final double time;
    private static int made;
    final int number = ++made;

    Event(double time) {
        this.time = time;
    }

    abstract void happen(Simulation s);

    boolean before(Event e) {
        return time < e.time || time == e.time && number < e.number;
    }
}

/** A binary heap in an array that grows. */
class EventQueue {
    private Event[] heap = new Event[2];
    private int n;

    void add(Event e) {
        if (n == heap.length) {
            Event[] old = heap;
            System.arraycopy(old, 0, heap = new Event[n << 1], 0, n);
        }
        int i = n++;
        for (int up; i > 0 && e.before(heap[up = i - 1 >> 1]); i = up) heap[i] = heap[up];
        heap[i] = e;
    }

    Event next() {
        if (n == 0) return null;
        Event first = heap[0], last = heap[--n];
        heap[n] = null;
        int i = 0;
        while (true) {
            int child = 2 * i + 1;
            if (child >= n) break;
            if (child + 1 < n && heap[child + 1].before(heap[child])) child++;
            if (!heap[child].before(last)) break;
            heap[i] = heap[child];
            i = child;
        }
        if (n > 0) heap[i] = last;
        return first;
    }

    int size() {
        return n;
    }
}

/** Numbers by the minimal standard generator, with the product computed without overflow. */
class Random {
    private static final int A = 16807, M = Integer.MAX_VALUE, Q = M / A, R = M % A;
    private int seed;

    Random(int seed) {
        this.seed = seed;
    }

    int next() {
        int high = seed / Q, low = seed % Q, test = A * low - R * high;
        return seed = test > 0 ? test : test + M;
    }

    int next(int n) {
        return next() % n;
    }
}

class Simulation {
    final EventQueue queue = new EventQueue();
    final Random random = new Random(1);
    double now;
    int served, longest, arrivals, lost;
    double waited;
    private final Vector line = new Vector();
    private final boolean[] busy;
    private final StringBuffer log = new StringBuffer();

    Simulation(int servers) {
        busy = new boolean[servers];
    }

    void log(String s) {
        if (log.length() < 300) log.append((long) now).append(' ').append(s).append("; ");
    }

    void arrive(Customer c) {
        arrivals++;
        if (line.size() >= 8) {
            lost++;
            log(c.name + " leaves");
            return;
        }
        line.addElement(c);
        if (line.size() > longest) longest = line.size();
        serve();
    }

    void serve() {
        for (int i = 0; i < busy.length && !line.isEmpty(); i++) {
            if (busy[i]) continue;
            Customer c = (Customer) line.firstElement();
            line.removeElementAt(0);
            waited += now - c.arrived;
            busy[i] = true;
            log(c.name + " at desk " + i);
            queue.add(new Departure(now + 3 + random.next(5), c, i));
        }
    }

    void free(int desk) {
        busy[desk] = false;
        served++;
        serve();
    }

    String run(double until) {
        queue.add(new Arrival(0));
        Event e;
        while ((e = queue.next()) != null) {
            if (e.time < now) throw new Error("time runs backwards");
            now = e.time;
            if (now <= until || !(e instanceof Arrival)) e.happen(this);
        }
        return log + "\n" + arrivals + " came, " + served + " served, " + lost + " left, longest line " + longest + ", waited " + (int) (waited * 100 / served) + "/100, until " + now;
    }
}

class Customer {
    final String name;
    final double arrived;

    Customer(String name, double arrived) {
        this.name = name;
        this.arrived = arrived;
    }
}

class Arrival extends Event {
    private static char letter = 'a' - 1;

    Arrival(double time) {
        super(time);
        if (++letter > 'z') letter = 'a';
    }

    void happen(Simulation s) {
        s.arrive(new Customer("" + letter, s.now));
        s.queue.add(new Arrival(time + 1 + s.random.next(3)));
    }
}

class Departure extends Event {
    final Customer customer;
    final int desk;

    Departure(double time, Customer customer, int desk) {
        super(time);
        this.customer = customer;
        this.desk = desk;
    }

    void happen(Simulation s) {
        s.log(customer.name + " done");
        s.free(desk);
    }
}

class Tick extends Event {
    Tick(double t) {
        super(t);
    }

    void happen(Simulation s) {
        throw new UnsupportedOperation("tick");
    }
}

class UnsupportedOperation extends RuntimeException {
    UnsupportedOperation(String s) {
        super(s);
    }
}

/** Shortest ways through a network, by the same heap. */
class Network {
    private final String[] names;
    private final int[][] cost;

    Network(String[] names, String roads) {
        this.names = names;
        cost = new int[names.length][names.length];
        for (int i = 0; i < roads.length(); i += 4) {
            int a = index(roads.charAt(i)), b = index(roads.charAt(i + 1));
            cost[a][b] = cost[b][a] = Integer.parseInt(roads.substring(i + 2, i + 4).trim());
        }
    }

    private int index(char c) {
        for (int i = 0; i < names.length; i++) if (names[i].charAt(0) == c) return i;
        throw new IllegalArgumentException("no place " + c);
    }

    String route(String from, String to) {
        int start = index(from.charAt(0)), end = index(to.charAt(0));
        int[] best = new int[names.length], via = new int[names.length];
        for (int i = 0; i < best.length; i++) best[i] = via[i] = -1;
        EventQueue queue = new EventQueue();
        queue.add(new Reach(0, start, start));
        for (Event e; (e = queue.next()) != null; ) {
            Reach r = (Reach) e;
            if (best[r.place] >= 0) continue;
            best[r.place] = (int) r.time;
            via[r.place] = r.via;
            if (r.place == end) break;
            for (int next = 0; next < names.length; next++) if (cost[r.place][next] > 0 && best[next] < 0) queue.add(new Reach(r.time + cost[r.place][next], next, r.place));
        }
        if (best[end] < 0) return "no way from " + from + " to " + to;
        String s = names[end];
        for (int at = end; at != start; ) s = names[at = via[at]] + "-" + s;
        return s + " " + best[end];
    }
}

class Reach extends Event {
    final int place, via;

    Reach(double time, int place, int via) {
        super(time);
        this.place = place;
        this.via = via;
    }

    void happen(Simulation s) {
    }
}

public class Main {
    public static void main(String[] args) {
        Random r = new Random(1);
        int last = 0;
        for (int i = 0; i < 10000; i++) last = r.next();
        System.out.println("the 10000th number is " + last);
        System.out.println(new Simulation(2).run(100));
        System.out.println(new Simulation(1).run(200));
        System.out.println(new Simulation(3).run(1000));
        EventQueue q = new EventQueue();
        for (int i = 0; i < 50; i++) q.add(new Tick(r.next(20)));
        StringBuffer times = new StringBuffer();
        for (Event e = q.next(); e != null; e = q.next()) times.append((int) e.time).append(q.size() > 0 ? "," : "\n");
        System.out.print(times);
        try {
            new Tick(1).happen(null);
        } catch (UnsupportedOperation e) {
            System.out.println(e);
        }
        Network n = new Network(new String[] { "Aton", "Bury", "Cove", "Dale", "Elms", "Ford", "Gap" }, "AB 7AC 9AF14BC10BD15CD11CF 2DE 6EF 9");
        System.out.println(n.route("A", "E") + ", " + n.route("B", "F") + ", " + n.route("D", "D") + ", " + n.route("A", "G"));
    }
}
