/** Local classes that create others whose captured variables they do not use themselves. */
public class Main {
    interface Text {
        String text();
    }

    static Text chain(final int a, final String b, final double c) {
        class First implements Text {
            public String text() { return "first" + a; }
        }
        class Second implements Text {
            public String text() { return new First().text() + b; }
        }
        class Third implements Text {
            public String text() { return new Second().text() + c; }
        }
        class Nothing implements Text {
            public String text() { return new Third().text(); }
        }
        class Wrapper {
            Text[] all() { return new Text[] {new Nothing(), new Text() {
                    public String text() { return new Nothing().text() + "anonymous"; }
                }};
            }
        }
        return new Text() {
            public String text() {
                Text[] all = new Wrapper().all();
                return all[0].text() + "|" + all[1].text();
            }
        };
    }

    private String field = "field";

    Text nested(final String p) {
        class Holder {
            class Member implements Text {
                public String text() { return p + field; }
            }

            Text member() { return new Member(); }
        }
        class User {
            // Creates a member of a local class by way of its holder.
            Text use() { return new Holder().new Member(); }

            class Deep {
                Text use() { return new User().use(); }

                Text direct() { return new Holder().member(); }
            }
        }
        final Text used = new User().new Deep().use();
        final Text direct = new User().new Deep().direct();
        return new Text() {
            public String text() { return used.text() + "," + direct.text() + "," + new User().use().text(); }
        };
    }

    static Text subclasses(final int n, final String s) {
        class Base implements Text {
            final int times;

            Base(int times) { this.times = times; }

            Base() { this(2); }

            public String text() { return s + n * times; }
        }
        class Sub extends Base {
            Sub() {}

            Sub(int x) { super(x + 1); }

            Sub(int x, int y) { this(x + y); }
        }
        class SubSub extends Sub {
            final String own = "own" + times;

            SubSub(int x) { super(x, n); }

            public String text() { return super.text() + own; }
        }
        return new Text() {
            public String text() {
                Base anonymous = new Base(5) {
                    public String text() { return "anonymous " + super.text(); }
                };
                Base further = new SubSub(1) {
                    public String text() { return "further " + super.text() + new Sub().text(); }
                };
                return new Sub().text() + " " + new Sub(3).text() + " " + new Sub(1, 1).text() + " "
                    + new SubSub(4).text() + " " + anonymous.text() + " " + further.text();
            }
        };
    }

    /** A class that creates itself, and one that is created before what it creates is complete. */
    static Text recursive(final String s, final int depth) {
        class Node implements Text {
            final int level;
            Node next;

            Node(int level) {
                this.level = level;
                if (level < depth) next = new Node(level + 1);
            }

            Text copy() {
                return new Text() {
                    public String text() { return "copy of " + new Node(depth - 1).text(); }
                };
            }

            public String text() { return s + level + (next == null ? "" : next.text()); }
        }
        return new Text() {
            public String text() { return new Node(0).text() + " " + new Node(1).next.copy().text(); }
        };
    }

    /** Variables of one name from different methods, which meet in one class. */
    static Text sameName(final String x) {
        class Outer {
            String get() { return x; }
        }
        class Middle {
            Text meet(final int x) {
                class Inner {
                    String get() { return "" + x; }
                }
                return new Text() {
                    public String text() { return x + new Outer().get() + new Inner().get(); }
                };
            }
        }
        return new Middle().meet(7);
    }

    public static void main(String[] args) {
        System.out.println(chain(1, "b", 2.5).text());
        System.out.println(new Main().nested("p").text());
        System.out.println(subclasses(10, "s").text());
        System.out.println(recursive("n", 3).text());
        System.out.println(sameName("name").text());
    }
}
