package model;

public class ChangeEvent extends java.util.EventObject {
    private static int made;
    public final int before, after;

    protected ChangeEvent(Object source, int before, int after) {
        super(source);
        this.before = before;
        this.after = after;
        made++;
    }

    public static int made() {
        return made;
    }

    public String toString() {
        return source + " from " + before + " to " + after;
    }
}
