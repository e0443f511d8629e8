import java.util.Enumeration;
import java.util.Hashtable;

/** Anonymous and local classes in field, static and instance initializers, in arrays, interfaces and conditions. */
public class Main {
    interface Op {
        int apply(int a, int b);

        Op PLUS = new Op() {
            public int apply(int a, int b) { return a + b; }
        };
        Op[] MORE = {
            new Op() {
                public int apply(int a, int b) { return a - b; }
            },
            PLUS,
            new Op() {
                int calls = 100;

                public int apply(int a, int b) { return a * b + calls++; }
            }
        };
    }

    static abstract class Named {
        final String name;

        Named(String name) { this.name = name; }

        Named(int n, Object[] more) { this(n + ":" + more.length); }

        abstract int value();

        public String toString() { return name + value(); }
    }

    static int counter = 10;

    static final Named STATIC = new Named("static" + counter) {
        { counter++; }

        int value() { return counter; }
    };

    private final int base = counter * 2;

    final Named instance = new Named(base, new Object[] {"a", new Object() {
            public String toString() { return "b"; }
        }}) {
        int extra;
        int[] table = {1, 2, base};

        {
            extra = base + 5;
            table[0] += extra;
        }

        int value() { return extra + table[0] + table[2]; }
    };

    final Object[] objects = {
        new Object() {
            public String toString() { return "first" + base; }
        },
        new Named("second") {
            int value() { return hashCode() == hashCode() ? objects.length : 0; }
        },
        base > 3 ? new Object() {
            public String toString() { return "big"; }
        } : (Object) new Runnable() {
            public void run() {}

            public String toString() { return "small"; }
        }
    };

    private static Hashtable table = new Hashtable();

    static {
        final int size = 4;
        for (int i = 0; i < size; i++) {
            final Integer key = new Integer(i);
            table.put(key, new Named("entry") {
                int value() { return key.intValue() * size; }
            });
        }
        class Summing {
            int sum() {
                int sum = 0;
                for (Enumeration e = table.elements(); e.hasMoreElements();) sum += ((Named) e.nextElement()).value();
                return sum + size;
            }
        }
        counter += new Summing().sum();
    }

    private String order = "";

    private void note(String s) { order += s; }

    { note("1"); }

    private final Runnable noting = new Runnable() {
        { note("2"); }

        String mine = order;

        public void run() { note("run" + mine); }
    };

    {
        note("3");
        noting.run();
        class Late {
            Late() { note("4"); }
        }
        new Late();
    }

    static class Throwing {
        final Object made;

        // The initializer of an anonymous class may throw what may be thrown where it is created.
        Throwing(final boolean fail) throws Exception {
            made = new Object() {
                int n;

                {
                    n = 5;
                    if (fail) throw new Exception("failed" + n);
                }

                public String toString() { return "made" + n; }
            };
        }
    }

    // A superclass's constructor that calls what its subclasses override: their captured variables and enclosing
    // instances are there by then, their own fields are not.
    static abstract class Eager {
        final String seen;
        Eager() { seen = look(); }
        Eager(String prefix) { seen = prefix + look(); }
        abstract String look();
    }
    String mine = "mine";

    String eager(final int captured, final String text) {
        class Between extends Eager {
            Between() { super(text + ":"); }
            Between(int i) { this(); }
            String look() { return reach(); }
            String reach() { return mine + captured; }
        }
        class Below extends Between {
            int own = 7;
            Below() { super(1); }
            String look() { return reach() + own + text.length(); }
        }
        Eager anonymous = new Eager() {
            int own = captured;
            String look() { return text + own + new Object() { public String toString() { return mine + captured; } }; }
        };
        return new Between().seen + " " + new Below().seen + " " + anonymous.seen + " " + anonymous.look();
    }

    public static void main(String[] args) throws Exception {
        System.out.println(new Main().eager(4, "ab"));
        System.out.println(Op.PLUS.apply(3, 4) + " " + Op.MORE[0].apply(3, 4) + " " + Op.MORE[2].apply(3, 4) + " "
                           + Op.MORE[2].apply(3, 4) + " " + (Op.MORE[1] == Op.PLUS));
        System.out.println(STATIC + " " + counter);
        Main main = new Main();
        System.out.println(main.instance);
        System.out.println(main.objects[0] + " " + main.objects[1] + " " + main.objects[2]);
        System.out.println(table.get(new Integer(3)));
        System.out.println(main.order);
        System.out.println(new Throwing(false).made);
        try {
            new Throwing(true);
        } catch (Exception e) {
            System.out.println(e.getMessage());
        }
        System.out.println(new Object() {
            int fib(int n) { return n < 2 ? n : fib(n - 1) + fib(n - 2); }
        }.fib(15));
    }
}
