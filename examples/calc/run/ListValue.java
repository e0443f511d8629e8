package calc.run;

/** A row of values whose number does not change. */
public final class ListValue extends Value {
    private final Value[] items;

    public ListValue(Value[] items) {
        this.items = items;
    }

    String kind() {
        return "list";
    }

    public ListValue list() {
        return this;
    }

    public int size() {
        return items.length;
    }

    private int checked(int i) throws CalcException {
        if (i < 0 || i >= items.length) throw new CalcException("no index " + i + " in a list of " + items.length);
        return i;
    }

    public Value get(int i) throws CalcException {
        return items[checked(i)];
    }

    public void set(int i, Value v) throws CalcException {
        items[checked(i)] = v;
    }

    public Value plus(Value v) throws CalcException {
        if (!(v instanceof ListValue)) return super.plus(v);
        Value[] more = ((ListValue) v).items, all = new Value[items.length + more.length];
        System.arraycopy(items, 0, all, 0, items.length);
        System.arraycopy(more, 0, all, items.length, more.length);
        return new ListValue(all);
    }

    /** A sorted copy. */
    ListValue sorted() throws CalcException {
        Value[] a = (Value[]) items.clone();
        for (int i = 1; i < a.length; i++) {
            Value v = a[i];
            int k = i;
            for (; k > 0 && v.compare(a[k - 1]) < 0; k--) a[k] = a[k - 1];
            a[k] = v;
        }
        return new ListValue(a);
    }

    public boolean equals(Object o) {
        if (!(o instanceof ListValue) || ((ListValue) o).items.length != items.length) return false;
        for (int i = 0; i < items.length; i++) if (!items[i].equals(((ListValue) o).items[i])) return false;
        return true;
    }

    public int hashCode() {
        return items.length;
    }

    public String toString() {
        StringBuffer b = new StringBuffer("[");
        for (int i = 0; i < items.length; i++) b.append(i > 0 ? ", " : "").append(items[i]);
        return b.append(']').toString();
    }
}
