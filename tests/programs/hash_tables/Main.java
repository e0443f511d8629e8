import java.util.Enumeration;
import java.util.NoSuchElementException;
import java.util.StringTokenizer;

interface Hasher {
    int hash(Object key);

    boolean same(Object a, Object b);
}

class Plain implements Hasher {
    public int hash(Object key) {
        return key.hashCode();
    }

    public boolean same(Object a, Object b) {
        return a.equals(b);
    }
}

/** Upper and lower case are the same. */
class IgnoreCase extends Plain {
    public int hash(Object key) {
        return super.hash(((String) key).toLowerCase());
    }

    public boolean same(Object a, Object b) {
        return ((String) a).equalsIgnoreCase((String) b);
    }
}

/** Everything in one chain: still right, only slow. */
class Worst extends Plain {
    public int hash(Object key) {
        return -1;
    }
}

class Entry {
    final Object key;
    final int hash;
    Object value;
    Entry next;

    Entry(Object key, int hash, Object value, Entry next) {
        this.key = key;
        this.hash = hash;
        this.value = value;
        this.next = next;
    }
}

/** Chains, newest first. */
class Table {
    private Entry[] slots = new Entry[3];
    private int count;
    private final Hasher hasher;
    int growths, changes;

    Table(Hasher hasher) {
        this.hasher = hasher;
    }

    Table() {
        this(new Plain());
    }

    private int slot(int hash) {
        return (hash & 0x7FFFFFFF) % slots.length;
    }

    private Entry find(Object key, int hash) {
        for (Entry e = slots[slot(hash)]; e != null; e = e.next) if (e.hash == hash && hasher.same(key, e.key)) return e;
        return null;
    }

    Object get(Object key) {
        Entry e = find(key, hasher.hash(key));
        return e == null ? null : e.value;
    }

    Object put(Object key, Object value) {
        if (value == null) throw new NullPointerException();
        int hash = hasher.hash(key);
        Entry e = find(key, hash);
        if (e != null) {
            Object old = e.value;
            e.value = value;
            return old;
        }
        if (++count * 4 > slots.length * 3) grow();
        int i = slot(hash);
        slots[i] = new Entry(key, hash, value, slots[i]);
        changes++;
        return null;
    }

    private void grow() {
        Entry[] old = slots;
        slots = new Entry[2 * old.length + 1];
        for (int i = old.length; i-- > 0; )
            for (Entry e = old[i], next; e != null; e = next) {
                next = e.next;
                int s = slot(e.hash);
                e.next = slots[s];
                slots[s] = e;
            }
        growths++;
    }

    Object remove(Object key) {
        int hash = hasher.hash(key);
        for (Entry e = slots[slot(hash)], last = null; e != null; last = e, e = e.next) {
            if (e.hash != hash || !hasher.same(key, e.key)) continue;
            if (last == null) slots[slot(hash)] = e.next;
            else last.next = e.next;
            count--;
            changes++;
            return e.value;
        }
        return null;
    }

    int size() {
        return count;
    }

    Enumeration keys() {
        return new Walk(this, slots, true);
    }

    Enumeration values() {
        return new Walk(this, slots, false);
    }
}

class Walk implements Enumeration {
    private final Table table;
    private final Entry[] slots;
    private final boolean keys;
    private final int changes;
    private int slot;
    private Entry next;

    Walk(Table table, Entry[] slots, boolean keys) {
        this.table = table;
        this.slots = slots;
        this.keys = keys;
        changes = table.changes;
        slot = slots.length;
        advance();
    }

    private void advance() {
        if (next != null) next = next.next;
        while (next == null && slot > 0) next = slots[--slot];
    }

    public boolean hasMoreElements() {
        return next != null;
    }

    public Object nextElement() {
        if (changes != table.changes) throw new IllegalStateException("the table changed");
        if (next == null) throw new NoSuchElementException();
        Entry e = next;
        advance();
        return keys ? e.key : e.value;
    }
}

/** A name may have several numbers. */
class Counts extends Table {
    Counts(Hasher h) {
        super(h);
    }

    int add(Object key, int n) {
        int[] cell = (int[]) get(key);
        if (cell == null) put(key, cell = new int[1]);
        return cell[0] += n;
    }

    int of(Object key) {
        Object o = get(key);
        return o instanceof int[] ? ((int[]) o)[0] : 0;
    }
}

public class Main {
    static String[] sorted(Enumeration e, int n) {
        String[] a = new String[n];
        for (int i = 0; i < n; i++) {
            String s = (String) e.nextElement();
            int k = i;
            for (; k > 0 && a[k - 1].compareTo(s) > 0; k--) a[k] = a[k - 1];
            a[k] = s;
        }
        return a;
    }

    static void words(Hasher h, String text) {
        Counts counts = new Counts(h);
        for (StringTokenizer st = new StringTokenizer(text, " ,."); st.hasMoreTokens(); ) counts.add(st.nextToken(), 1);
        String[] all = sorted(counts.keys(), counts.size());
        for (int i = 0; i < all.length; i++) System.out.print(all[i] + " " + counts.of(all[i]) + ", ");
        System.out.println(counts.size() + " words, grown " + counts.growths + " times, missing " + counts.of("nowhere"));
    }

    static void numbers(Hasher h, int n) {
        Table t = new Table(h);
        for (int i = 0; i < n; i++) t.put(new Integer(i * 7 - 50), "v" + i);
        int found = 0, gone = 0;
        for (int i = -50; i < 7 * n; i++) if (t.get(new Integer(i)) != null) found++;
        for (int i = 0; i < n; i += 2) if (("v" + i).equals(t.remove(new Integer(i * 7 - 50)))) gone++;
        long sum = 0;
        for (Enumeration e = t.keys(); e.hasMoreElements(); sum += ((Integer) e.nextElement()).intValue()) ;
        System.out.println("found " + found + ", removed " + gone + ", left " + t.size() + ", sum " + sum + ", replaced " + t.put(new Integer(-43), "new") + " by " + t.get(new Integer(-43))
            + ", " + t.remove("none"));
    }

    public static void main(String[] args) {
        String text = "The fat cat sat on the mat. The mat, a fat mat, was flat.";
        words(new Plain(), text);
        words(new IgnoreCase(), text);
        words(new Worst(), text);
        numbers(new Plain(), 200);
        numbers(new Worst(), 60);
        Table t = new Table();
        t.put("a", "1");
        t.put("b", "2");
        Enumeration e = t.values();
        t.put("c", "3");
        try {
            e.nextElement();
        } catch (IllegalStateException x) {
            System.out.println(x.getMessage());
        }
        try {
            t.put("d", null);
        } catch (NullPointerException x) {
            System.out.println("no null values");
        }
        try {
            for (e = t.keys(); ; ) e.nextElement();
        } catch (NoSuchElementException x) {
            System.out.println("end after " + t.size());
        }
    }
}
