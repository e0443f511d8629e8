import java.io.IOException;

/** Private methods and constructors across the nest, overloaded, static, with exceptions, in both directions. */
public class Main {
    private final String label;

    private Main(String label) { this.label = label; }

    private Main(String label, Main other) { this(label + "+" + (other == null ? "none" : other.label)); }

    private String show(int n) { return "int " + n + label; }

    private String show(long n) { return "long " + n + label; }

    private String show(Object o) { return "object " + o + label; }

    private String show(String s, int[] numbers) { return s + numbers.length + label; }

    private static String twice(String s) { return s + s; }

    private static int twice(int n) { return n * 2; }

    private static void fail(boolean really) throws IOException {
        if (really) throw new IOException("really");
    }

    private void note(StringBuffer out) { out.append(label).append(';'); }

    class Caller {
        private int calls;

        private Caller() { calls = 1; }

        private Caller(int calls) { this.calls = calls; }

        String all() {
            byte small = 3;
            StringBuffer out = new StringBuffer();
            note(out);
            Main.this.note(out);
            out.append(show(1)).append(show(2L)).append(show(small)).append(show('c')).append(show("s"));
            out.append(show("s", new int[calls])).append(show(null));
            out.append(twice("x")).append(Main.twice(21)).append(twice(small));
            return out.toString();
        }

        private void bump() { calls++; }

        private int calls() { return calls; }
    }

    static class Builder {
        private String text = "built";

        Main build() { return new Main(text); }

        Main build(Main other) { return new Main(text, other); }

        private static Builder make() { return new Builder(); }
    }

    static class Sub extends Main {
        Sub(int n) { super("sub" + n); }

        Sub(Main other) { super("sub", other); }

        String tell() { return label() + super.show(5); }

        String label() { return ((Main) this).label; }
    }

    static class Thrower {
        static String run(boolean really) {
            try {
                fail(really);
                return "fine";
            } catch (IOException e) {
                return "caught " + e.getMessage();
            }
        }
    }

    private static class Secret {
        private int value;
        private static Secret last;

        private Secret(int value) {
            this.value = value;
            last = this;
        }

        private int value() { return value; }

        private class Part {
            private int half() { return value / 2; }
        }
    }

    public static void main(String[] args) {
        Main main = new Main("!");
        Caller caller = main.new Caller(4);
        System.out.println(caller.all());
        caller.bump();
        caller.calls += 10;
        System.out.println(caller.calls() + " " + caller.calls + " " + main.new Caller().calls++);
        Builder builder = Builder.make();
        builder.text += 1;
        System.out.println(builder.build().label + " " + builder.build(main).label + " " + builder.build(null).label);
        System.out.println(new Sub(3).label() + " " + new Sub(main).tell());
        System.out.println(Thrower.run(false) + " " + Thrower.run(true));
        Secret secret = new Secret(42);
        Secret.Part part = secret.new Part();
        System.out.println(secret.value() + " " + part.half() + " " + (Secret.last == secret) + " " + ++secret.value);
        Main anonymous = new Main("anonymous") {
            public String toString() { return "body"; }
        };
        System.out.println(anonymous + " " + anonymous.label);
    }
}
