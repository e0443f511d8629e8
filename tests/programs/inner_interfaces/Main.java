import drawing.Shape;
import drawing.Shape.*;

/** Classes and interfaces that are members of interfaces: public, static, and inherited. */
interface Plan extends Shape.Named {
    int FLOORS = 3;
    Plan USUAL = new House();
    Plan ODD = new Draft() {
        int revision() { return new Object() { int doubled = FLOORS * 2; }.doubled; }
    };

    class House implements Plan {
        static int built = 0;
        private int doors = 1;

        House() { built++; }
        public String name() { return "house" + FLOORS + doors; }

        class Room {
            int number = doors++ + FLOORS;
        }
    }

    abstract class Draft implements Plan {
        abstract int revision();
        public String name() { return "draft" + revision(); }
    }

    interface Extended extends Plan {
        String annex();

        class Label {
            static final String TEXT = "label";
        }
    }

    final class Fixed extends Draft {
        final int revision;

        Fixed(int revision) { this.revision = revision; }
        int revision() { return revision; }
        static Fixed of(int revision) { return new Fixed(revision); }
    }
}

class Site implements Plan.Extended {
    public String name() { return "site of " + new House().name(); }
    public String annex() {
        House house = new House();
        House.Room room = house.new Room();
        return Label.TEXT + room.number + house.new Room().number + new Fixed(8).name() + Fixed.of(9).revision();
    }

    class Sign extends Label {
        String text() {
            return TEXT + FLOORS + new House() {
                public String name() { return "<" + super.name() + " " + annex() + ">"; }
            }.name();
        }
    }
}

class Annex extends Site {
    String all() {
        return new House().name() + Label.TEXT + Plan.Extended.Label.TEXT + new Annex.House().name() + new Sign().text();
    }
}

class Square implements Shape {
    public double area() { return 2; }
    String areas() { return new Circle(1).area() + " " + new Unit().name() + " " + new Twice(this).area(); }
}

public class Main {
    interface Deep {
        class A {
            interface B {
                class C {
                    Object o = new Object() {
                        public String toString() { return "deepest"; }
                    };
                }
            }
        }
    }

    public static void main(String[] args) {
        System.out.println(Plan.USUAL.name() + " " + Plan.ODD.name() + " " + Plan.House.built);
        Site site = new Annex();
        System.out.println(site.name() + " " + site.annex());
        System.out.println(((Annex) site).all() + " " + Plan.House.built);
        System.out.println(new Deep.A.B.C().o);
        System.out.println(new Square().areas() + " " + new Shape.Unit() {
            public String name() { return "my " + super.name(); }
        }.name());
        Class[] classes = { Plan.House.class, Plan.Draft.class, Plan.Extended.class, Plan.Fixed.class, Plan.House.Room.class,
                            Shape.Unit.class };
        for (int i = 0; i < classes.length; i++)
            System.out.println(classes[i].getName() + " " + Integer.toHexString(classes[i].getModifiers()) + " of "
                               + classes[i].getDeclaringClass().getName());
    }
}
