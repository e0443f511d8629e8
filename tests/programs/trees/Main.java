import java.util.Enumeration;
import java.util.NoSuchElementException;

interface Ordered {
    boolean before(Object o);
}

class Key implements Ordered {
    final int i;

    Key(int i) {
        this.i = i;
    }

    public boolean before(Object o) {
        return i < ((Key) o).i;
    }

    public String toString() {
        return Integer.toString(i);
    }
}

/** A search tree that keeps itself balanced by colours; null is black. */
class RedBlack {
    private Node root;
    int size, rotations;

    private static boolean red(Node n) {
        return n != null && n.red;
    }

    private Node rotate(Node n, int side) {
        Node up = n.child[1 - side];
        n.child[1 - side] = up.child[side];
        up.child[side] = n;
        up.red = n.red;
        n.red = true;
        rotations++;
        return up;
    }

    boolean insert(Ordered key) {
        int old = size;
        (root = insert(root, key)).red = false;
        return size > old;
    }

    private Node insert(Node n, Ordered key) {
        if (n == null) {
            size++;
            return new Node(key);
        }
        int side;
        if (key.before(n.key)) side = 0;
        else if (n.key.before(key)) side = 1;
        else return n;
        n.child[side] = insert(n.child[side], key);
        if (red(n.child[side])) {
            if (red(n.child[1 - side])) {
                n.red = true;
                n.child[0].red = n.child[1].red = false;
            } else if (red(n.child[side].child[side])) n = rotate(n, 1 - side);
            else if (red(n.child[side].child[1 - side])) {
                n.child[side] = rotate(n.child[side], side);
                n = rotate(n, 1 - side);
            }
        }
        return n;
    }

    boolean contains(Ordered key) {
        Node n = root;
        while (n != null)
            if (key.before(n.key)) n = n.child[0];
            else if (n.key.before(key)) n = n.child[1];
            else return true;
        return false;
    }

    /** The number of black nodes on each way down; throws an error if the rules are broken. */
    int check() {
        return check(root, null, null);
    }

    private static int check(Node n, Ordered low, Ordered high) {
        if (n == null) return 1;
        if (low != null && !low.before(n.key) || high != null && !n.key.before(high)) throw new Error("order");
        if (n.red && (red(n.child[0]) || red(n.child[1]))) throw new Error("red below red");
        int l = check(n.child[0], low, n.key), r = check(n.child[1], n.key, high);
        if (l != r) throw new Error("black heights");
        return n.red ? l : l + 1;
    }

    int depth() {
        return depth(root);
    }

    private int depth(Node n) {
        return n == null ? 0 : 1 + Math.max(depth(n.child[0]), depth(n.child[1]));
    }

    Enumeration elements() {
        return new InOrder(root);
    }
}

final class Node {
    final Ordered key;
    final Node[] child = new Node[2];
    boolean red = true;

    Node(Ordered key) {
        this.key = key;
    }
}

class InOrder implements Enumeration {
    private final Node[] path = new Node[64];
    private int depth;

    InOrder(Node root) {
        down(root);
    }

    private void down(Node n) {
        for (; n != null; n = n.child[0]) path[depth++] = n;
    }

    public boolean hasMoreElements() {
        return depth > 0;
    }

    public Object nextElement() {
        if (depth == 0) throw new NoSuchElementException("in order");
        Node n = path[--depth];
        down(n.child[1]);
        return n.key;
    }
}

/** Words by their letters. */
class Trie {
    private final Trie[] next = new Trie[26];
    private short count;

    void add(String word) {
        Trie t = this;
        for (int i = 0; i < word.length(); i++) {
            int c = word.charAt(i) - 'a';
            if (t.next[c] == null) t.next[c] = new Trie();
            t = t.next[c];
        }
        t.count++;
    }

    void collect(String prefix, StringBuffer out) {
        if (count > 0) out.append(prefix).append(count > 1 ? "*" + count : "").append(' ');
        for (char c = 'a'; c <= 'z'; c++) if (next[c - 'a'] != null) next[c - 'a'].collect(prefix + c, out);
    }

    int nodes() {
        int n = 1;
        for (int i = next.length - 1; i >= 0; --i) n += next[i] == null ? 0 : next[i].nodes();
        return n;
    }
}

/** Sums over ranges that change. */
class Fenwick {
    private final long[] sums;

    Fenwick(int n) {
        sums = new long[n + 1];
    }

    void add(int i, long d) {
        for (i++; i < sums.length; i += i & -i) sums[i] += d;
    }

    long sum(int to) {
        long s = 0L;
        for (; to > 0; to &= to - 1) s += sums[to];
        return s;
    }
}

/** Which elements belong together. */
class Union {
    private final int[] up;
    int sets;

    Union(int n) {
        up = new int[sets = n];
        while (--n >= 0) up[n] = -1;
    }

    int find(int x) {
        return up[x] < 0 ? x : (up[x] = find(up[x]));
    }

    boolean join(int a, int b) {
        if ((a = find(a)) == (b = find(b))) return false;
        if (up[a] > up[b]) { a ^= b; b ^= a; a ^= b; }
        up[a] += up[b];
        up[b] = a;
        sets--;
        return true;
    }
}

/** Bits in words, up to what was asked for. */
class BitVector implements Cloneable {
    private long words[] = {};

    void set(int i) {
        if (i >> 6 >= words.length) {
            long[] more = new long[(i >> 6) + 1];
            System.arraycopy(words, 0, more, 0, words.length);
            words = more;
        }
        words[i >> 6] |= 1L << i;
    }

    boolean get(int i) {
        return i >> 6 < words.length && (words[i >> 6] & 1L << (i & 63)) != 0;
    }

    void clear(int i) {
        if (i >> 6 < words.length) words[i >> 6] &= ~(1L << i);
    }

    int count() {
        int n = 0;
        for (int i = 0; i < words.length; i++) {
            long w = words[i];
            w -= w >>> 1 & 0x5555555555555555L;
            w = (w & 0x3333333333333333L) + (w >>> 2 & 0x3333333333333333L);
            n += (int) ((w + (w >>> 4) & 0x0F0F0F0F0F0F0F0FL) * 0x0101010101010101L >>> 56);
        }
        return n;
    }

    protected Object clone() throws CloneNotSupportedException {
        BitVector b = (BitVector) super.clone();
        b.words = (long[]) words.clone();
        return b;
    }
}

public class Main {
    public static void main(String[] args) throws CloneNotSupportedException {
        RedBlack up = new RedBlack(), down = new RedBlack(), mixed = new RedBlack();
        int refused = 0;
        for (int i = 0; i < 1000; i++) {
            up.insert(new Key(i));
            down.insert(new Key(-i));
            if (!mixed.insert(new Key(i * i % 1009))) refused++;
        }
        System.out.println("up " + up.size + " deep " + up.depth() + " black " + up.check() + " rotations " + up.rotations);
        System.out.println("down " + down.size + " deep " + down.depth() + " black " + down.check() + " rotations " + down.rotations);
        System.out.println("mixed " + mixed.size + " refused " + refused + " black " + mixed.check() + " " + mixed.contains(new Key(4)) + mixed.contains(new Key(11)));
        StringBuffer first = new StringBuffer();
        int n = 0, last = -1;
        for (Enumeration e = mixed.elements(); e.hasMoreElements(); n++) {
            Key k = (Key) e.nextElement();
            if (k.i <= last) throw new Error("not in order");
            last = k.i;
            if (n < 12) first.append(k).append(' ');
        }
        System.out.println(first + "... " + last + ", " + n + " in all");
        try {
            new InOrder(null).nextElement();
        } catch (NoSuchElementException e) {
            System.out.println(e.getMessage());
        }
        Trie t = new Trie();
        String[] words = { "tree", "trie", "try", "tree", "a", "an", "ant", "z", "trees" };
        for (int i = 0; i < words.length; i++) t.add(words[i]);
        StringBuffer all = new StringBuffer();
        t.collect("", all);
        System.out.println(all + "" + t.nodes());
        Fenwick f = new Fenwick(100);
        for (int i = 0; i < 100; i++) f.add(i, i * i);
        f.add(10, -100L);
        System.out.println(f.sum(10) + " " + f.sum(11) + " " + f.sum(100) + " " + (f.sum(60) - f.sum(50)));
        Union u = new Union(30);
        for (int i = 0; i < 30; i++) for (int k = i + 1; k < 30; k++) if ((i + k) % 7 == 0 && i % 3 == 0) u.join(i, k);
        System.out.println(u.sets + " sets, " + (u.find(3) == u.find(25)) + (u.find(1) == u.find(2)) + u.join(1, 1));
        BitVector b = new BitVector();
        for (int i = 0; i < 200; i += 3) b.set(i);
        BitVector c = (BitVector) b.clone();
        b.clear(63);
        b.clear(1000);
        c.set(1000);
        System.out.println(b.count() + " " + c.count() + " " + b.get(63) + c.get(63) + b.get(64) + b.get(66) + c.get(1000) + b.get(5000));
    }
}
