package use;

import base.Base;
import java.io.IOException;

public class Derived extends Base {
    private String own = "own";

    public Derived() { super(50); }

    protected String abstractMethod() { return "derived"; }

    /** No subclass of Base: what Base protects is reached by way of Derived. */
    public class Inner {
        public String read() {
            return field + " " + small + " " + text + " " + total + " " + names[1] + " " + LIMIT + UNIT + " " + open();
        }

        public String call() {
            return method(1) + " " + method("s") + " " + shared(own) + " " + abstractMethod() + " "
                + Derived.this.method(2) + " " + Derived.super_(Derived.this);
        }

        public String change() {
            field += 2.5;
            small++;
            text += 1;
            total <<= 2;
            names[0] = "ZERO";
            Derived.this.field *= 2;
            Derived.total--;
            return "" + field++ + ++small + (text = text + "x") + (total += small) + names[0];
        }

        public String fail() {
            try {
                failing();
                return "none";
            } catch (IOException e) {
                return e.getMessage();
            }
        }

        public Object copy(Derived other) throws CloneNotSupportedException {
            int[] numbers = {1, 2};
            int[] same = (int[]) numbers.clone();
            return other.field + other.method(same[1]) + same.length;
        }

        public String part() {
            Part part = new Part() {
                public String show() { return "sub" + super.show() + guarded() + field; }
            };
            return part.show() + new Helper().help() + part.name;
        }

        /** A subclass of Base itself: its own members are its own, those of the class around it are not. */
        public class Mixed extends Base {
            protected String abstractMethod() { return "mixed" + field; }

            public String run(Derived d) {
                field = 1000;
                Derived.this.field = 2000;
                d.field += 1;
                return field + " " + Derived.this.field + " " + method(3) + " " + Derived.this.method(4) + " "
                    + abstractMethod() + " " + Derived.this.abstractMethod() + " " + d.method(5) + total;
            }
        }
    }

    static String super_(Derived d) { return d.superMethod(); }

    private String superMethod() { return super.method(9); }

    public static class Static {
        public static String all() { return shared("static") + total + names.length + MADE + MADE; }
    }

    public Callback callback(final int n) {
        return new Callback() {
            public String call(Base b) { return ((Derived) b).method(n) + method(own) + b.open(); }
        };
    }
}
