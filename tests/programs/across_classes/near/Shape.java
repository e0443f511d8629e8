package near;

public abstract class Shape {
    protected int scale = 2;
    static abstract class Packaged {
        abstract int size();
        int twice() { return 2 * size(); }
    }
    protected static int unit() { return 10; }
    public static int sizeOf() { return new Filled().size() + new Filled().twice(); }
    public static Packaged local() {
        class Inside extends Packaged {
            int size() { return 5; }
        }
        return new Inside();
    }
}

/** Overrides what is package-private in a class that stands in another one. */
class Filled extends Shape.Packaged {
    int size() { return 3; }
    int twice() { return 7; }
}
