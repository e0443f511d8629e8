/** Inner classes that extend their outer class, each other, and inner classes of other classes. */
public class Main {
    static class Outer {
        private String name;
        protected String tag = "tag";
        int number = 1;

        Outer(String name) { this.name = name; }

        private String secret() { return "secret of " + name; }

        String greet() { return "I am " + name; }

        /** Extends its own outer class: its private members are those of the instance around it. */
        class Sub extends Outer {
            Sub(String name) { super(name + "!"); }

            String both() {
                number += 10;
                Outer.this.number += 100;
                return name + "/" + Outer.this.name + "/" + ((Outer) this).name + " " + secret() + " "
                    + Outer.this.greet() + " " + greet() + " " + super.greet() + " " + number + " " + Outer.this.number;
            }

            String greet() { return "sub " + tag + later(); }

            Sub below(String n) { return new Sub(n); }

            Sub beside(String n) { return Outer.this.new Sub(n); }

            Outer around() { return Outer.this; }
        }

        String later() { return " later" + afterwards; }

        String afterwards = "field";

        static class StaticSub extends Outer {
            StaticSub() { super("static"); }

            String show() { return ((Outer) this).name + ((Outer) this).secret() + number; }
        }
    }

    static class Host {
        String id;

        Host(String id) { this.id = id; }

        class Guest {
            final String from;

            Guest(String from) { this.from = from + "@" + id; }

            Guest() { this("default"); }

            String who() { return from + "(" + id + ")"; }
        }

        class Second extends Guest {
            Second() { super("second"); }

            Second(Host other) { other.super("third"); }

            String who() { return super.who() + "+" + id; }
        }
    }

    /** Not nested in Host. */
    static class Foreign extends Host.Guest {
        Foreign(Host host) { host.super("foreign"); }

        Foreign(String s) { new Host(s).super(); }
    }

    class ForeignInner extends Host.Guest {
        private String id = "own";

        ForeignInner(Host h, int n) { h.super("inner" + n + count); }

        String who() { return super.who() + id + count; }
    }

    /** A subclass of the host sees the inherited inner class. */
    static class SubHost extends Host {
        SubHost(String id) { super(id); }

        Guest invite() {
            return new Guest("sub") {
                String who() { return "anonymous " + super.who() + SubHost.this.id; }
            };
        }

        class Own extends Guest {}

        class Local extends Host {
            Local() { super("local"); }

            // The innermost instance that has the class is this one.
            Guest mine() { return new Guest(); }

            Guest outers() { return SubHost.this.new Guest(); }
        }
    }

    private int count = 3;

    /** A member that comes both by inheritance and from the class around. */
    static class Both {
        protected String v = "both";
        static String s = "static";

        String m() { return "Both.m"; }

        class First extends Both {
            String run() { return v + m() + Both.this.v + Both.this.m() + s; }

            String m() { return "First.m"; }
        }

        class Other {
            String run() { return v + m() + s; }
        }

        static class Apart extends Both {
            String m() { return "Apart.m"; }

            class In extends Other {
                In(Both b) { b.super(); }

                String run() { return super.run() + ":" + v + m(); }
            }
        }
    }

    /** A private overload is not inherited, so that it does not take part. */
    static class Overloads {
        private String pick(int n) { return "private int"; }

        String pick(long n) { return "long"; }

        String pick(Object o) { return "object"; }

        static class Inherits extends Overloads {
            String run() { return this.pick(1) + " " + super.pick(2L) + " " + pick("s") + " " + pick(1); }
        }
    }

    public static void main(String[] args) {
        Outer outer = new Outer("outer");
        Outer.Sub sub = outer.new Sub("sub");
        sub.tag = "subtag";
        System.out.println(sub.both());
        System.out.println(sub.below("x").both());
        System.out.println(sub.beside("y").both());
        System.out.println(sub.below("x").around() == outer);
        System.out.println(new Outer.StaticSub().show());
        Host a = new Host("a");
        Host b = new Host("b");
        System.out.println(a.new Guest("g").who() + " " + a.new Second().who() + " " + a.new Second(b).who());
        b.id = "B";
        System.out.println(new Foreign(b).who() + " " + new Foreign("f").who());
        Main main = new Main();
        System.out.println(main.new ForeignInner(a, 5).who());
        SubHost sh = new SubHost("sh");
        System.out.println(sh.invite().who() + " " + sh.new Own().who());
        SubHost.Local local = sh.new Local();
        System.out.println(local.mine().who() + " " + local.outers().who() + " " + local.new Guest("l").who());
        Both both = new Both();
        Both.First first = both.new First();
        first.v = "first";
        System.out.println(first.run() + " " + first.new Other().run() + " " + both.new Other().run());
        Both.Apart apart = new Both.Apart();
        apart.v = "apart";
        System.out.println(apart.new In(both).run());
        System.out.println(new Overloads.Inherits().run());
    }
}
