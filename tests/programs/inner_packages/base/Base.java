package base;

public abstract class Base implements Constants {
    protected int field = 1;
    protected byte small = 2;
    protected String text = "text";
    protected static long total = 100;
    protected static String[] names = {"zero", "one"};
    private int hidden = 5;

    protected Base() {}

    protected Base(int field) { this.field = field; }

    protected String method(int n) { return "base" + n + field; }

    protected String method(String s) { return "string " + s; }

    protected static String shared(Object o) { return "shared " + o; }

    protected abstract String abstractMethod();

    protected void failing() throws java.io.IOException { throw new java.io.IOException("failing" + field); }

    public int open() { return hidden++; }

    protected class Part {
        public String name = "part";

        protected Part() {}

        public String show() { return name + field + hidden; }

        protected String guarded() { return "guarded " + name; }
    }

    protected static class Helper {
        public int help() { return 42; }

        public Helper() {}
    }

    public interface Callback {
        String call(Base b);
    }
}
