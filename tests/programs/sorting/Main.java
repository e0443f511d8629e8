interface Comparer {
    int compare(Object a, Object b);
}

class ByText implements Comparer {
    public int compare(Object a, Object b) {
        return ((String) a).compareTo((String) b);
    }
}

class Reverse implements Comparer {
    private final Comparer c;

    Reverse(Comparer c) {
        this.c = c;
    }

    public int compare(Object a, Object b) {
        return c.compare(b, a);
    }
}

class Counting implements Comparer {
    long count;
    final Comparer c;

    Counting(Comparer c) {
        this.c = c;
    }

    public int compare(Object a, Object b) {
        count++;
        return c.compare(a, b);
    }
}

class ByNumber implements Comparer {
    public int compare(Object a, Object b) {
        int x = ((Item) a).key, y = ((Item) b).key;
        return x < y ? -1 : x == y ? 0 : 1;
    }
}

final class Item {
    final int key, order;

    Item(int key, int order) {
        this.key = key;
        this.order = order;
    }
}

abstract class Sort {
    protected Comparer comparer;
    protected Object[] a;

    final void sort(Object[] a, Comparer c) {
        this.a = a;
        comparer = c;
        sort();
        this.a = null;
    }

    protected abstract void sort();

    boolean stable() {
        return false;
    }

    protected final boolean less(Object x, Object y) {
        return comparer.compare(x, y) < 0;
    }

    protected void swap(int i, int j) {
        Object t = a[i];
        a[i] = a[j];
        a[j] = t;
    }

    public String toString() {
        return getClass().getName();
    }
}

class Bubble extends Sort {
    protected void sort() {
        boolean swapped;
        int end = a.length;
        do {
            swapped = false;
            for (int i = 1; i < end; i++) if (less(a[i], a[i - 1])) { swap(i, i - 1); swapped = true; }
            end--;
        } while (swapped);
    }

    boolean stable() { return true; }
}

class Insertion extends Sort {
    protected void sort() {
        for (int i = 1; i < a.length; i++) {
            Object x = a[i];
            int k;
            for (k = i; k > 0 && less(x, a[k - 1]); a[k] = a[--k]) ;
            a[k] = x;
        }
    }

    boolean stable() { return true; }
}

class Selection extends Sort {
    protected void sort() {
        for (int i = 0, best; i < a.length; swap(i++, best)) {
            best = i;
            for (int k = i; ++k < a.length; ) if (less(a[k], a[best])) best = k;
        }
    }
}

class Shell extends Sort {
    protected void sort() {
        int gap = 1;
        while (gap < a.length / 3) gap = gap * 3 + 1;
        for (; gap > 0; gap /= 3)
            for (int i = gap; i < a.length; i++)
                for (int k = i; k >= gap && less(a[k], a[k - gap]); k -= gap) swap(k, k - gap);
    }
}

class Heap extends Sort {
    protected void sort() {
        for (int i = a.length / 2; --i >= 0; ) sink(i, a.length);
        for (int n = a.length; n-- > 1; sink(0, n)) swap(0, n);
    }

    private void sink(int i, int n) {
        for (int child; (child = 2 * i + 1) < n; i = child) {
            if (child + 1 < n && less(a[child], a[child + 1])) child++;
            if (!less(a[i], a[child])) return;
            swap(i, child);
        }
    }
}

class Merge extends Sort {
    private Object[] spare;

    protected void sort() {
        spare = new Object[a.length];
        sort(0, a.length);
        spare = null;
    }

    private void sort(int from, int to) {
        if (to - from < 2) return;
        int middle = from + to >>> 1;
        sort(from, middle);
        sort(middle, to);
        System.arraycopy(a, from, spare, from, to - from);
        for (int i = from, l = from, r = middle; i < to; ) a[i++] = r == to || l < middle && !less(spare[r], spare[l]) ? spare[l++] : spare[r++];
    }

    boolean stable() { return true; }
}

class Quick extends Sort {
    protected void sort() {
        sort(0, a.length - 1);
    }

    private void sort(int l, int r) {
        while (l < r) {
            Object pivot = a[(l + r) / 2];
            int i = l, j = r;
            while (i <= j) {
                while (less(a[i], pivot)) i++;
                while (less(pivot, a[j])) --j;
                if (i <= j) swap(i++, j--);
            }
            if (j - l < r - i) {
                sort(l, j);
                l = i;
            } else {
                sort(i, r);
                r = j;
            }
        }
    }
}

class Comb extends Sort {
    protected void sort() {
        int gap = a.length;
        boolean done = false;
        while (!done | gap > 1) {
            gap = gap > 1 ? gap * 10 / 13 : 1;
            if (gap == 0) gap = 1;
            done = true;
            for (int i = 0; i + gap < a.length; i++) if (less(a[i + gap], a[i])) { swap(i, i + gap); done = false; }
        }
    }
}

public class Main {
    static int seed = 42;

    static int random(int n) {
        seed = seed * 69069 + 1;
        return (seed >>> 8) % n;
    }

    static Object[] make(int n, int kind) {
        Object[] a = new Object[n];
        for (int i = 0; i < n; i++) {
            int key;
            switch (kind) {
                case 0: key = random(n); break;
                case 1: key = i; break;
                case 2: key = -i; break;
                case 3: key = random(4); break;
                default: key = 7;
            }
            a[i] = new Item(key, i);
        }
        return a;
    }

    static String verdict(Object[] a, boolean wantStable) {
        boolean sorted = true, stable = true;
        long sum = 0;
        for (int i = 0; i < a.length; i++) {
            sum += ((Item) a[i]).order;
            if (i == 0) continue;
            Item x = (Item) a[i - 1], y = (Item) a[i];
            sorted &= x.key <= y.key;
            if (x.key == y.key && x.order > y.order) stable = false;
        }
        return !sorted ? "NOT SORTED" : sum != (long) a.length * (a.length - 1) / 2 ? "LOST" : wantStable && !stable ? "NOT STABLE" : "ok";
    }

    static int find(Object[] a, Object x, Comparer c) {
        int low = 0, high = a.length - 1;
        while (low <= high) {
            int middle = (low + high) >> 1, d = c.compare(a[middle], x);
            if (d < 0) low = middle + 1;
            else if (d > 0) high = middle - 1;
            else return middle;
        }
        return ~low;
    }

    static void radix(int[] a) {
        int[] b = new int[a.length];
        for (int shift = 0; shift < 32; shift += 8) {
            int[] starts = new int[257];
            for (int i = 0; i < a.length; i++) starts[((a[i] ^ 1 << 31) >>> shift & 0xff) + 1]++;
            for (int i = 0; i < 256; i++) starts[i + 1] += starts[i];
            for (int i = 0; i < a.length; i++) b[starts[(a[i] ^ Integer.MIN_VALUE) >>> shift & 0xFF]++] = a[i];
            int[] t = a;
            System.arraycopy(b, 0, t, 0, t.length);
        }
    }

    static int select(int[] a, int k) {
        for (int l = 0, r = a.length - 1; ; ) {
            if (l >= r) return a[k];
            int pivot = a[k], i = l, j = r;
            do {
                for (; a[i] < pivot; i++) ;
                for (; a[j] > pivot; j--) ;
                if (i <= j) { int t = a[i]; a[i++] = a[j]; a[j--] = t; }
            } while (i <= j);
            if (j < k) l = i;
            if (k < i) r = j;
        }
    }

    public static void main(String[] args) {
        Sort[] sorts = { new Bubble(), new Insertion(), new Selection(), new Shell(), new Heap(), new Merge(), new Quick(), new Comb() };
        for (int s = 0; s < sorts.length; s++) {
            seed = 42;
            System.out.print(sorts[s] + (sorts[s].stable() ? " (stable):" : ":"));
            for (int kind = 0; kind < 5; kind++) {
                Object[] a = make(150, kind);
                Counting c = new Counting(new ByNumber());
                sorts[s].sort(a, c);
                System.out.print(" " + verdict(a, sorts[s].stable()) + " " + c.count);
            }
            sorts[s].sort(new Object[0], null);
            sorts[s].sort(new Object[] { "one" }, null);
            System.out.println();
        }
        String[] words = { "pear", "apple", "fig", "Quince", "banana", "apple", "date" };
        Comparer up = new ByText(), down = new Reverse(up);
        new Quick().sort(words, down);
        for (int i = 0; i < words.length; i++) System.out.print(words[i] + " ");
        new Merge().sort(words, new Reverse(down));
        System.out.println(words[0] + " " + find(words, "fig", up) + " " + find(words, "cherry", up) + " " + find(words, "zebra", up) + " " + find(words, "A", up));
        int[] numbers = { 5, -3, 70000, 0, Integer.MIN_VALUE, Integer.MAX_VALUE, -3, 255, 256, -70000 };
        int median = select((int[]) numbers.clone(), 5);
        radix(numbers);
        for (int i = 0; i < numbers.length; i++) System.out.print(numbers[i] + (i == 5 ? (numbers[i] == median ? " (found) " : " (NOT FOUND) ") : " "));
        System.out.println();
        try {
            new Heap().sort(new Object[] { "a", "b", new Integer(3) }, up);
        } catch (ClassCastException e) {
            System.out.println("mixed");
        }
    }
}
