/** Member classes at several depths, and what each reaches of the classes around it. */
public class Main {
    private int number = 1;
    int open = 10;
    private static int shared = 100;
    static final int CONSTANT = 7;
    private static final String NAME = "main";

    class Inner {
        int own = 20;
        private int hidden = 30;

        int sum() { return own + hidden + number + open + shared + CONSTANT; }

        class Deeper {
            private int bottom = 40;

            int sum() { return bottom + own + hidden + number + open + shared; }

            String path() { return NAME + "/" + Main.this.name() + "/" + Inner.this.name() + "/" + name(); }

            String name() { return "deeper"; }

            class Deepest {
                int all() { return bottom * 2 + Inner.this.sum() + Deeper.this.sum() + Main.this.number; }

                void change() {
                    number++;
                    Main.this.open += 5;
                    hidden = hidden * 2;
                    bottom--;
                    shared -= 1;
                }
            }
        }

        String name() { return "inner"; }
    }

    String name() { return "main"; }

    static class Nested {
        private int count;
        static int made;

        Nested() { made++; }

        int next() { return ++count + shared; }

        class InNested {
            int twice() { return 2 * next() + count; }
        }

        static class NestedInNested {
            private String text = "nested" + made;

            String show() { return text + shared + NAME; }
        }
    }

    interface Shape {
        int SIDES = 4;

        int area();
    }

    class Square implements Shape {
        private int side;

        Square(int side) { this.side = side; }

        public int area() { return side * side * number; }

        int sides() { return SIDES; }
    }

    int useInner() {
        Inner inner = new Inner();
        Inner.Deeper deeper = inner.new Deeper();
        Inner.Deeper.Deepest deepest = deeper.new Deepest();
        deepest.change();
        return inner.hidden + deeper.bottom + deepest.all();
    }

    public static void main(String[] args) {
        Main main = new Main();
        Main.Inner inner = main.new Inner();
        System.out.println(inner.sum());
        Main.Inner.Deeper deeper = inner.new Deeper();
        System.out.println(deeper.sum() + " " + deeper.path());
        Main.Inner.Deeper.Deepest deepest = deeper.new Deepest();
        System.out.println(deepest.all());
        deepest.change();
        System.out.println(deepest.all() + " " + inner.hidden + " " + deeper.bottom + " " + main.number + " " + shared);
        System.out.println(main.useInner());
        Nested nested = new Nested();
        System.out.println(nested.next() + " " + nested.new InNested().twice() + " " + nested.count);
        System.out.println(new Nested.NestedInNested().show());
        Square square = main.new Square(3);
        System.out.println(square.area() + " " + square.sides() + " " + square.side);
        Shape shape = new Main().new Square(5);
        System.out.println(shape.area() + Shape.SIDES);
        System.out.println(inner.getClass().getName() + " " + deepest.getClass().getName());
    }
}
