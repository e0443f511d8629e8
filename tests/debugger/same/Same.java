class Base {
    int inherited = 6;
    static int shared = 100;
}

/**
 * Variables of every kind for the expressions of expressions.txt. The test runs this program twice: once stopped at the marked line,
 * where the debugger evaluates them, and once with a call of `show` for each of them put there. Both must print the same.
 */
public class Same extends Base {
    static final int MAX = 12;
    static final String NAME = "N" + MAX;
    static long total = 5;

    int count = 1;
    Same other;
    String none;
    int[] own = {4, 5, 6};

    void run(byte b, short s, char c, int i, long l, float f, double d, boolean flag) {
        String text = new String("abc");
        String none = null;
        byte[] bytes = {1, 2};
        short[] shorts = {7};
        char[] chars = {'a', 'b'};
        int[] numbers = {3, 1, 4, 1, 5};
        long[] longs = {1, 2};
        float[] floats = {1.5f};
        double[] doubles = {0, 1};
        boolean[] bools = {true, false};
        String[] texts = {"x", "y", null};
        int[][] grid = {{1, 2}, {3, 4}};
        char[][][] cube = {null, {{'a', 'b', 'c'}}};
        Object o = this;
        other = new Same();
        other.other = this;
        total += 0; // HERE
    }

    public static void main(String[] args) {
        new Same().run((byte) -7, (short) 300, 'x', 7, 1L << 33, 1.5f, 0.1, true);
    }

    // ---- what the debugger's `print` prints

    static void show(byte value) {
        System.out.println("byte " + value);
    }

    static void show(short value) {
        System.out.println("short " + value);
    }

    static void show(char value) {
        System.out.println("char '" + value + "'");
    }

    static void show(int value) {
        System.out.println("int " + value);
    }

    static void show(long value) {
        System.out.println("long " + value);
    }

    static void show(float value) {
        System.out.println("float " + value);
    }

    static void show(double value) {
        System.out.println("double " + value);
    }

    static void show(boolean value) {
        System.out.println("boolean " + value);
    }

    static void show(String value) {
        System.out.println(value == null ? "null" : "String \"" + value + "\"");
    }
}
