package base;

/** Its subclass in another source of this package has accessors of its own for members of its own. */
class Stack {
    private int size = 3;
    private String name = "stack";

    private int grow(int n) { return size += n; }

    class View {
        int size() { return size; }

        int grown() { return grow(10) + size++; }

        String name() { return name; }

        void rename(String s) { name += s; }
    }
}
