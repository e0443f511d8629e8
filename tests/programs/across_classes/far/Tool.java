package far;

public class Tool {
    public static String name() { return "far.Tool"; }
}
