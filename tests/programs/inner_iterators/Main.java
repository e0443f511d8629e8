import java.util.Enumeration;
import java.util.NoSuchElementException;

/** Collections whose iterators work on the private state of the collection. */
public class Main {
    static class Ring {
        private Object[] slots = new Object[2];
        private int head, size;
        private long changes;

        void add(Object o) {
            if (size == slots.length) grow();
            slots[index(size++)] = o;
            changes++;
        }

        private int index(int n) { return (head + n) % slots.length; }

        private void grow() {
            Object[] bigger = new Object[slots.length * 2];
            for (int i = 0; i < size; i++) bigger[i] = slots[index(i)];
            slots = bigger;
            head = 0;
        }

        private Object remove(int n) {
            Object removed = slots[index(n)];
            for (int i = n; i < size - 1; i++) slots[index(i)] = slots[index(i + 1)];
            slots[index(--size)] = null;
            changes++;
            return removed;
        }

        class Cursor implements Enumeration {
            private int at;
            private long expected = changes;

            public boolean hasMoreElements() { return at < size; }

            public Object nextElement() {
                if (expected != changes) throw new IllegalStateException("changed " + (changes - expected));
                if (at >= size) throw new NoSuchElementException("at " + at);
                return slots[index(at++)];
            }

            Object cut() {
                Object removed = remove(--at);
                expected = changes;
                return removed;
            }

            void rotate() {
                head++;
                head %= slots.length;
                size -= 1;
                expected = ++changes;
            }
        }

        Enumeration elements() { return new Cursor(); }

        Enumeration backwards() {
            return new Enumeration() {
                int left = size;

                public boolean hasMoreElements() { return left > 0; }

                public Object nextElement() { return slots[index(--left)]; }
            };
        }
    }

    static class Tree {
        private Node root;
        private int count;

        private class Node {
            private Comparable key;
            private Node left, right;

            Node(Comparable key) {
                this.key = key;
                count++;
            }

            private void add(Comparable other) {
                int order = other.compareTo(key);
                if (order < 0) {
                    if (left == null) left = new Node(other);
                    else left.add(other);
                } else if (order > 0) {
                    if (right == null) right = new Node(other);
                    else right.add(other);
                }
            }
        }

        void add(Comparable key) {
            if (root == null) root = new Node(key);
            else root.add(key);
        }

        Enumeration inOrder() {
            class Walk implements Enumeration {
                private class Step {
                    final Node node;
                    final Step below;

                    Step(Node node, Step below) {
                        this.node = node;
                        this.below = below;
                    }
                }

                private Step top;

                Walk() { down(root); }

                private void down(Node node) {
                    for (; node != null; node = node.left) top = new Step(node, top);
                }

                public boolean hasMoreElements() { return top != null; }

                public Object nextElement() {
                    Node node = top.node;
                    top = top.below;
                    down(node.right);
                    return node.key;
                }
            }
            return new Walk();
        }
    }

    static String join(Enumeration e) {
        StringBuffer out = new StringBuffer();
        while (e.hasMoreElements()) out.append(e.nextElement()).append(' ');
        return out.toString();
    }

    public static void main(String[] args) {
        Ring ring = new Ring();
        for (int i = 0; i < 5; i++) ring.add("e" + i);
        System.out.println(join(ring.elements()) + "| " + join(ring.backwards()));
        Ring.Cursor cursor = ring.new Cursor();
        cursor.nextElement();
        cursor.nextElement();
        System.out.println(cursor.cut() + " " + join(cursor));
        cursor.rotate();
        System.out.println(join(ring.elements()) + ring.size + " " + cursor.at);
        try {
            Enumeration stale = ring.elements();
            ring.add("late");
            stale.nextElement();
        } catch (IllegalStateException e) {
            System.out.println(e.getMessage());
        }
        try {
            cursor.at = 99;
            cursor.expected = ring.changes;
            cursor.nextElement();
        } catch (NoSuchElementException e) {
            System.out.println(e.getMessage());
        }
        Tree tree = new Tree();
        String[] words = {"m", "c", "x", "a", "e", "z", "n", "c", "m"};
        for (int i = 0; i < words.length; i++) tree.add(words[i]);
        System.out.println(join(tree.inOrder()) + tree.count);
    }
}
