/** A compound assignment takes the value of its variable first, also if that is a private field of another class. */
public class Main {
    private int n = 1;
    private long l = 5;
    private byte b = 1;
    private boolean z;
    private String text = "a";
    private static double d = 0.5;
    private static Main one = new Main();
    private static int calls;

    static Main one() {
        calls++;
        return one;
    }

    int next() {
        n = 40;
        return 2;
    }

    public String toString() {
        return text += "!";
    }

    class Changer {
        void run() {
            n += n = 5;
            System.out.print(n);
            n -= n++ + n;
            System.out.print(" " + n);
            System.out.print(" " + (n += next()) + " " + n);
            l <<= l = 3;
            b += b += b++;
            z ^= z = !z;
            System.out.println(" " + l + " " + b + " " + z);
            text += text += "b";
            System.out.print(text);
            text += Main.this;
            d *= d += 1.5;
            System.out.println(" " + text + " " + d);
            one().n += one().n = calls;
            System.out.print(one.n + " " + calls);
            Main none = null;
            try { none.n += one().next(); } catch (NullPointerException e) { System.out.println(" null first " + calls); }
        }
    }

    public static void main(String[] args) {
        one.new Changer().run();
    }
}
