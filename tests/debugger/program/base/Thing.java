package base;

/** What classes of another package inherit. */
public class Thing {
    public static int made;

    protected String label;
    private int serial = ++made;

    public Thing(String label) {
        this.label = label;
    }

    public String toString() {
        return label + "#" + serial;
    }
}
