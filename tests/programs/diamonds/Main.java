/** Searches through the levels of interfaces that `generate` writes: members, subtypes, and what a class inherits. */
interface Level0 {
    int LEVEL0 = 0;
    Mark FIRST = new Mark(7);

    int level();
    String show(Object o);
    String show(String s);

    class Mark {
        final int number;

        Mark(int number) { this.number = number; }
        public String toString() { return "mark " + number; }
    }
}

/** Compiled only. */
abstract class Stepping implements Level40 {
    abstract class Step implements Level40 {
        abstract int size();
        int twice() { return size() * 2 + LEVEL0 + left40() + new Mark(2).number; }
    }

    Whole40 step(final Whole40 whole) {
        return new Whole40() {
            public int level() { return whole.level() + Stepping.this.level() + Sums40.left(this) + left1(); }
        };
    }
}

public class Main extends Whole10 {
    static String kind(Object o) {
        return (o instanceof Level0) + " " + (o instanceof Right5) + " " + (o instanceof Main);
    }

    String own() {
        return show("x") + ", " + show(FIRST) + ", " + new Mark(LEVEL10 - LEFT10) + ", " + super.show(null);
    }

    public static void main(String[] args) {
        Whole10 whole = new Whole10();
        Level10 top = whole;
        Half10 half = whole;
        Level0 bottom = args.length == 0 ? top : (Level0) new Main();
        // 1 + 2 + ... + n = n * (n + 1) / 2
        System.out.println(Sums10.left(top) + " " + Sums10.right(half) + " " + Main.LEVEL5 + " " + Level40.LEVEL40);
        System.out.println(top.level() + bottom.level() + half.level() + " " + bottom.FIRST + " " + half.LEFT1);
        System.out.println(top.show("a") + ", " + half.show((Object) "b") + ", " + bottom.show(null));
        System.out.println(new Main().own() + ", " + Sums10.first(half, whole));
        System.out.println(kind(whole) + " " + kind(new int[0]) + " " + ((Right10) bottom).right10());
        Right1[] rights = { whole, new Main() };
        Level0[] levels = rights;
        System.out.println(levels.length + " " + levels[1].level() + " " + rights[0].right1() + " " + kind(rights[1]));
    }
}
