package base;

public class Bounded extends Stack {
    private int bound = 7;
    private String name = "bounded";
    private static int made;

    private int shrink(int n) { return bound -= n; }

    class BoundedView extends View {
        int size() { return super.size() * 100 + bound; }

        int grown() { return super.grown() * 1000 + shrink(2) + bound++; }

        String name() { return name + "," + super.name(); }

        void rename(String s) {
            super.rename(s + s);
            name += s;
            made++;
        }
    }

    public static String run() {
        Bounded b = new Bounded();
        View v = b.new BoundedView();
        v.rename("!");
        View plain = b.new View();
        return v.size() + " " + v.grown() + " " + v.name() + " " + plain.size() + " " + plain.name() + " " + made;
    }
}
