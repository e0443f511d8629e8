/** Local classes that capture finals of every type, with and without a constant value, wherever a block can stand. */
public class Main {
    interface Source {
        String get();
    }

    private static int sequence;

    static int next() { return ++sequence; }

    static Source ofEverything(final byte b, final short s, final char c, final int i, final long l, final float f,
                               final double d, final boolean z, final String text, final int[] array, final Object o) {
        class All implements Source {
            public String get() {
                return b + "," + s + "," + c + "," + i + "," + l + "," + f + "," + d + "," + z + "," + text + ","
                    + array[0] + "," + o;
            }
        }
        return new All();
    }

    static Source constants() {
        final byte b = 1;
        final short s = 2;
        final char c = 'c';
        final int i = 4;
        final long l = 5L;
        final float f = 6.5f;
        final double d = 7.25;
        final boolean z = true;
        final String text = "constant";
        return new Source() {
            public String get() {
                byte narrowed = i;
                switch (narrowed + 0) {
                case b: return "b";
                case i + c: return "no";
                case i: return b + s + c + i + l + f + d + (z ? text : "wrong") + narrowed;
                default: return "default";
                }
            }
        };
    }

    static Source mixed(int n) {
        final int later;
        if (n > 0) later = n * 2;
        else later = -1;
        final int fixed = 10;
        final String both = "v" + later;
        class Pair implements Source {
            private final int start = fixed + later;

            public String get() { return both + ":" + start + ":" + fixed * later; }
        }
        return new Pair();
    }

    private final Source[] sources = new Source[6];

    Main(final int seed) {
        final int tripled = seed * 3;
        class InConstructor implements Source {
            public String get() { return "constructor " + seed + " " + tripled + " " + sources.length; }
        }
        sources[0] = new InConstructor();
        for (int i = 1; i < 3; i++) {
            final int copy = i;
            final Source before = sources[i - 1];
            sources[i] = new Source() {
                public String get() { return "loop " + copy + " " + (before == sources[copy - 1]) + " " + tripled; }
            };
        }
        switch (seed) {
        case 5: {
            final String label = "five";
            class InCase implements Source {
                public String get() { return label + seed; }
            }
            sources[3] = new InCase();
            break;
        }
        default:
            class InDefault implements Source {
                public String get() { return "default" + tripled; }
            }
            sources[3] = new InDefault();
        }
        try {
            final int number = next();
            if (seed == 5) throw new RuntimeException("thrown" + number);
            sources[4] = new Source() {
                public String get() { return "body" + number; }
            };
        } catch (final RuntimeException e) {
            sources[4] = new Source() {
                public String get() { return e.getMessage() + tripled; }
            };
        } finally {
            final int number = next();
            class InFinally implements Source {
                public String get() { return "finally" + number + seed; }
            }
            sources[5] = new InFinally();
        }
    }

    static Source[] initialized = new Source[2];

    static {
        final int inBlock = next() * 100;
        class InStaticBlock implements Source {
            public String get() { return "static " + inBlock; }
        }
        initialized[0] = new InStaticBlock();
    }

    private Source early;

    {
        final int inBlock = next() * 1000;
        early = new Source() {
            public String get() { return "instance " + inBlock + (early == this); }
        };
    }

    static synchronized Source labelled() {
        outer:
        for (final int[] found = new int[1];;) {
            for (int i = 0; i < 5; i++) {
                found[0] += i;
                if (found[0] > 5) break outer;
            }
            synchronized (found) {
                final long when = found[0];
                return new Source() {
                    public String get() { return "labelled " + when + found[0]; }
                };
            }
        }
        final double half = 0.5;
        return new Source() {
            public String get() { return "behind " + half; }
        };
    }

    public static void main(String[] args) {
        System.out.println(ofEverything((byte) -1, (short) 300, 'x', 70000, 1L << 40, 1.5f, -0.0, true, null,
                                        new int[] {9}, "o").get());
        System.out.println(constants().get());
        System.out.println(mixed(4).get() + " " + mixed(-4).get());
        for (int seed = 5; seed < 7; seed++) {
            Main main = new Main(seed);
            for (int i = 0; i < main.sources.length; i++) System.out.print(main.sources[i].get() + "; ");
            System.out.println(main.early.get());
        }
        System.out.println(initialized[0].get());
        System.out.println(labelled().get());
    }
}
