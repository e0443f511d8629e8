import far.*;
import near.*;

/** Names, overriding and constants that go across classes and packages. */
public class Main {
    static abstract class Area {
        abstract double area();
        int corners() { return 0; }
    }

    static class Limits {
        final int most = 3;
        final String text = "t";
        static final int LEAST = 1;
    }

    static Limits missing;

    public static void main(String[] args) {
        Area square = new Area() {
            double area() { return 6.25; }
            int corners() { return 4; }
        };
        System.out.println(square.area() + " " + square.corners());
        System.out.println(Shape.sizeOf() + " " + Entries.show());
        System.out.println(Tool.name());
        constantsOfObjects();
    }

    /** Only a class's constant can be had without an object. */
    static void constantsOfObjects() {
        Limits none = null;
        System.out.println(none.LEAST + missing.LEAST);
        System.out.println(Integer.MAX_VALUE - Limits.LEAST);
        try {
            System.out.println(none.most);
        } catch (NullPointerException e) {
            System.out.println("no object");
        }
        try {
            System.out.println(missing.text + "x");
        } catch (NullPointerException e) {
            System.out.println("no object");
        }
        none = new Limits();
        System.out.println(none.most + none.text);
    }
}
