package near;

public class Entries {
    public static String show() { return Shape.local().size() + " " + Shape.local().twice(); }
}
