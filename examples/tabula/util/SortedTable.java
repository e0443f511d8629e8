package tabula.util;

import java.util.Enumeration;
import java.util.NoSuchElementException;

/** Values by keys, kept in the order of the keys: a binary tree without rotations. */
public class SortedTable {
    /** A key with its value. */
    public interface Entry {
        Object key();

        Object value();
    }

    private class Node implements Entry {
        private final Object key;
        private Object value;
        private Node left, right;
        private final Node parent;

        Node(Object key, Object value, Node parent) {
            this.key = key;
            this.value = value;
            this.parent = parent;
            size++;
        }

        public Object key() {
            return key;
        }

        public Object value() {
            return value;
        }

        private Node leftmost() {
            return left == null ? this : left.leftmost();
        }

        /** The node with the next key, or null. */
        private Node next() {
            if (right != null) return right.leftmost();
            Node node = this;
            while (node.parent != null && node.parent.right == node) node = node.parent;
            return node.parent;
        }

        private Node child(Object wanted) {
            return order.compare(wanted, key) < 0 ? left : right;
        }

        public String toString() {
            return key + "=" + value;
        }
    }

    private final Sequence.Order order;
    private Node root;
    private int size;

    public SortedTable(Sequence.Order order) {
        this.order = order;
    }

    public SortedTable() {
        this(Sequence.BY_TEXT);
    }

    public int size() {
        return size;
    }

    private Node find(Object key) {
        Node node = root;
        while (node != null && order.compare(key, node.key) != 0) node = node.child(key);
        return node;
    }

    /** The value, or null if there is none. */
    public Object get(Object key) {
        Node node = find(key);
        return node == null ? null : node.value;
    }

    /** Returns the value that was there before, or null. */
    public Object put(Object key, Object value) {
        if (root == null) {
            root = new Node(key, value, null);
            return null;
        }
        Node node = root;
        for (;;) {
            int side = order.compare(key, node.key);
            if (side == 0) {
                Object before = node.value;
                node.value = value;
                return before;
            }
            Node child = side < 0 ? node.left : node.right;
            if (child == null) break;
            node = child;
        }
        Node leaf = new Node(key, value, node);
        if (order.compare(key, node.key) < 0)
            node.left = leaf;
        else
            node.right = leaf;
        return null;
    }

    /** Takes the key out; the tree is built again, which is seldom wanted. */
    public Object remove(final Object key) {
        Node gone = find(key);
        if (gone == null) return null;
        Enumeration entries = entries();
        Sequence kept = new Sequence();
        while (entries.hasMoreElements()) {
            Entry entry = (Entry) entries.nextElement();
            if (entry != gone) kept.add(entry);
        }
        root = null;
        size = 0;
        rebuild(kept, 0, kept.size());
        return gone.value;
    }

    private void rebuild(Sequence entries, int from, int to) {
        if (from >= to) return;
        int middle = (from + to) / 2;
        Entry entry = (Entry) entries.at(middle);
        put(entry.key(), entry.value());
        rebuild(entries, from, middle);
        rebuild(entries, middle + 1, to);
    }

    // ---- walking

    public Enumeration entries() {
        return new Enumeration() {
            private Node next = root == null ? null : root.leftmost();

            public boolean hasMoreElements() {
                return next != null;
            }

            public Object nextElement() {
                if (next == null) throw new NoSuchElementException();
                Node current = next;
                next = current.next();
                return current;
            }
        };
    }

    /** What `part` makes of each entry. */
    private Enumeration parts(final Sequence.Change part) {
        final Enumeration entries = entries();
        return new Enumeration() {
            public boolean hasMoreElements() {
                return entries.hasMoreElements();
            }

            public Object nextElement() {
                return part.of(entries.nextElement());
            }
        };
    }

    public Enumeration keys() {
        return parts(new Sequence.Change() {
            public Object of(Object entry) {
                return ((Entry) entry).key();
            }
        });
    }

    public Enumeration values() {
        return parts(new Sequence.Change() {
            public Object of(Object entry) {
                return ((Entry) entry).value();
            }
        });
    }

    public String toString() {
        return new Sequence().addAll(entries()).toString();
    }
}
