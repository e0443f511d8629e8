/** Constants of the classes around a class, and captured ones, stay constants: in labels and in constant expressions. */
public class Main {
    private static final int ONE = 1;
    private static final int TWO = ONE + 1;
    private static final String WORD = "word";
    private static final boolean ON = true;
    private static final byte SMALL = 5;
    private static final long BIG = 1L << 40;
    private static final char LETTER = 'L';
    private final int instance = 9;

    interface Limits {
        int LOW = -5;
        String UNIT = "cm";
        Object OBJECT = new StringBuffer("object");
    }

    static class Base implements Limits {
        protected static final int FROM_BASE = 50;
        final int ownConstant = 60;
    }

    static class Derived extends Base {
        class Inner {
            String label(int n) {
                switch (n) {
                case LOW: return "low";
                case FROM_BASE: return "base";
                case ownConstant: return "own";
                default: return n + UNIT + OBJECT;
                }
            }

            boolean folded() { return (UNIT + LOW) == "cm-5"; }
        }
    }

    class Inner {
        final int MINE = TWO * 2;
        final byte narrow = TWO + MINE;

        String label(int n) {
            switch (n) {
            case ONE: return "one";
            case TWO: return WORD + TWO;
            case MINE: return "mine";
            case SMALL: return "small";
            case LETTER: return "letter";
            case instance: return "instance";
            case ON ? 77 : 78: return "on";
            default: return "none";
            }
        }

        boolean folded() { return (WORD + ONE + ON) == "word1true"; }

        byte narrowed() {
            byte b = ONE + SMALL;
            b += BIG >> 38;
            final char c = TWO;
            return (byte) (b + c + narrow);
        }

        int unreachable() {
            if (!ON) return 1;
            while (ON) {
                return 2;
            }
        }
    }

    static String local(int n) {
        final int k = 3;
        final String s = "k" + k;
        final boolean yes = true;
        class Local {
            final int next = k + 1;

            String get(int n) {
                switch (n) {
                case k: return "k";
                case next: return s;
                case k * k: return "square";
                default: break;
                }
                byte b = k;
                final int folded = k;
                class Deeper {
                    String get(int n) {
                        switch (n) {
                        case folded + 10: return "deeper" + b();
                        default: return (s == "k3") + "" + folded;
                        }
                    }

                    byte b() {
                        byte r = folded;
                        return r;
                    }
                }
                while (yes) {
                    return new Deeper().get(n) + b;
                }
            }
        }
        return new Local().get(n);
    }

    public static void main(String[] args) {
        Derived.Inner d = new Derived().new Inner();
        System.out.println(d.label(-5) + " " + d.label(50) + " " + d.label(60) + " " + d.label(7) + " " + d.folded());
        Inner in = new Main().new Inner();
        int[] values = {1, 2, 4, 5, 'L', 9, 77, 78};
        for (int i = 0; i < values.length; i++) System.out.print(in.label(values[i]) + " ");
        System.out.println(in.folded() + " " + in.narrowed() + " " + in.unreachable());
        System.out.println(local(3) + " " + local(4) + " " + local(9) + " " + local(13) + " " + local(0));
    }
}
