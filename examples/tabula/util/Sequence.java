package tabula.util;

import java.util.Enumeration;
import java.util.NoSuchElementException;

/** A growable row of objects. It must not change while somebody walks over it. */
public class Sequence {
    /** Says of an element whether it is wanted. */
    public interface Filter {
        boolean accepts(Object element);
    }

    /** Says which of two elements comes first: below 0 the one, above 0 the other. */
    public interface Order {
        int compare(Object a, Object b);
    }

    /** What is done with an element. */
    public interface Action {
        void on(Object element);
    }

    /** Makes something of an element. */
    public interface Change {
        Object of(Object element);
    }

    /** The order of texts. */
    public static final Order BY_TEXT = new Order() {
        public int compare(Object a, Object b) {
            return a.toString().compareTo(b.toString());
        }
    };

    private Object[] elements = new Object[8];
    private int size;
    private int changes;

    public Sequence add(Object element) {
        return insert(size, element);
    }

    public Sequence addAll(Enumeration more) {
        while (more.hasMoreElements()) add(more.nextElement());
        return this;
    }

    public Sequence insert(int index, Object element) {
        if (index < 0 || index > size) throw new IndexOutOfBoundsException("insert at " + index);
        if (size == elements.length) grow();
        System.arraycopy(elements, index, elements, index + 1, size - index);
        elements[index] = element;
        size++;
        changes++;
        return this;
    }

    private void grow() {
        Object[] longer = new Object[2 * size];
        System.arraycopy(elements, 0, longer, 0, size);
        elements = longer;
    }

    public Object removeAt(int index) {
        Object removed = at(index);
        System.arraycopy(elements, index + 1, elements, index, --size - index);
        elements[size] = null;
        changes++;
        return removed;
    }

    public boolean remove(Object element) {
        int index = indexOf(element);
        if (index >= 0) removeAt(index);
        return index >= 0;
    }

    public Object at(int index) {
        if (index < 0 || index >= size) throw new IndexOutOfBoundsException(index + " of " + size);
        return elements[index];
    }

    public int indexOf(Object element) {
        for (int i = 0; i < size; i++)
            if (elements[i].equals(element)) return i;
        return -1;
    }

    public int size() {
        return size;
    }

    public boolean isEmpty() {
        return size == 0;
    }

    // ---- walking

    /** An enumeration that finds out when the sequence changes under it. */
    private abstract class Walk implements Enumeration {
        private final int changesAtStart = changes;

        abstract int nextIndex();

        public Object nextElement() {
            if (!hasMoreElements()) throw new NoSuchElementException();
            if (changes != changesAtStart) throw new IllegalStateException("changed while walked over");
            return elements[nextIndex()];
        }
    }

    public Enumeration elements() {
        return new Walk() {
            private int next;

            public boolean hasMoreElements() {
                return next < size;
            }

            int nextIndex() {
                return next++;
            }
        };
    }

    public Enumeration backwards() {
        return new Walk() {
            private int left = size;

            public boolean hasMoreElements() {
                return left > 0;
            }

            int nextIndex() {
                return --left;
            }
        };
    }

    public void each(Action action) {
        for (Enumeration e = elements(); e.hasMoreElements();) action.on(e.nextElement());
    }

    // ---- making others

    public Sequence select(final Filter filter) {
        final Sequence selected = new Sequence();
        each(new Action() {
            public void on(Object element) {
                if (filter.accepts(element)) selected.add(element);
            }
        });
        return selected;
    }

    public Sequence change(final Change change) {
        final Sequence changed = new Sequence();
        each(new Action() {
            public void on(Object element) {
                changed.add(change.of(element));
            }
        });
        return changed;
    }

    /** A copy in that order; what is equal stays in the order that it has. */
    public Sequence sorted(Order order) {
        Sequence sorted = new Sequence();
        for (int i = 0; i < size; i++) {
            int at = sorted.size;
            while (at > 0 && order.compare(sorted.elements[at - 1], elements[i]) > 0) at--;
            sorted.insert(at, elements[i]);
        }
        return sorted;
    }

    /** The opposite of an order. */
    public static Order reverse(final Order order) {
        return new Order() {
            public int compare(Object a, Object b) {
                return order.compare(b, a);
            }
        };
    }

    public String join(final String separator) {
        final StringBuffer text = new StringBuffer();
        each(new Action() {
            private boolean first = true;

            public void on(Object element) {
                if (!first) text.append(separator);
                first = false;
                text.append(element);
            }
        });
        return text.toString();
    }

    public String toString() {
        return "[" + join(", ") + "]";
    }
}
