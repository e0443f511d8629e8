interface Shape {
    double UNIT = 1.5;
    String NAME = "shape";

    double area();

    String describe();
}

interface Scalable {
    int FACTOR = 10, STEPS[] = { 1, 2, 3 };

    void scale(int factor);
}

interface Solid extends Shape, Scalable {
    String NAME = "solid";

    public abstract double volume();
}

/** Leaves `area` and `scale` to the classes below. */
abstract class Figure implements Shape {
    protected String name = "figure";
    static int made;
    final int number;

    Figure() {
        number = ++made;
    }

    public String describe() {
        return name() + " #" + number + " of area " + area();
    }

    String name() {
        return name;
    }

    abstract int corners();
}

class Square extends Figure implements Scalable {
    protected int side;
    String name = "square";

    Square(int side) {
        this.side = side;
    }

    public double area() {
        return side * side * UNIT;
    }

    int corners() {
        return 4;
    }

    public void scale(int factor) {
        side *= factor;
    }

    String name() {
        return name + " (a " + super.name() + ", " + super.name + ", " + ((Figure) this).name + ")";
    }
}

class Cube extends Square implements Solid {
    Cube(int side) {
        super(side);
        super.name = "cubic square";
        super.side++;
        side--;
        this.side += side;
    }

    public double volume() {
        return area() * side;
    }

    public double area() {
        return 6 * super.area();
    }

    public String describe() {
        return super.describe() + " and volume " + volume() + " " + Solid.NAME + Shape.NAME;
    }

    int corners() {
        return 2 * super.corners();
    }
}

class Hider {
    String f = "Hider.f";
    static String s = "Hider.s";

    static String who() {
        return "Hider.who";
    }

    String mine() {
        return "Hider.mine";
    }

    private String secret() {
        return "Hider.secret";
    }

    String reveal() {
        return secret() + "," + this.secret() + "," + mine() + "," + f + "," + who();
    }
}

class Hiding extends Hider {
    int f = 7;
    static int s = 8;

    static String who() {
        return "Hiding.who";
    }

    String mine() {
        return "Hiding.mine " + super.mine();
    }

    String secret() {
        return "Hiding.secret";
    }

    String reveal() {
        return super.reveal() + "|" + secret() + "," + super.f + "," + f + "," + Hider.who() + "," + who() + "," + ((Hider) this).f + "," + Hider.s + "," + s;
    }
}

class Deeper extends Hiding {
    String all() {
        return mine() + "/" + f + "/" + ((Hider) this).f + "/" + who() + "/" + super.reveal();
    }
}

public class Main {
    static String kinds(Object o) {
        return (o instanceof Shape ? "shape " : "") + (o instanceof Scalable ? "scalable " : "") + (o instanceof Solid ? "solid " : "")
            + (o instanceof Figure ? "figure " : "") + (o instanceof Square ? "square " : "");
    }

    static void scale(Scalable s) {
        s.scale(Scalable.FACTOR);
        System.out.println("scaled to " + ((Shape) s).area() + " " + s.equals(s) + " " + (s.hashCode() == s.hashCode()) + " " + s.FACTOR);
    }

    public static void main(String[] args) {
        Figure[] figures = { new Square(2), new Cube(3) };
        for (int i = 0; i < figures.length; i++) {
            Figure f = figures[i];
            System.out.println(f.describe() + " " + f.corners() + " " + f.name + " " + kinds(f));
            scale((Scalable) f);
        }
        Solid solid = (Solid) figures[1];
        solid.scale(1);
        System.out.println(solid.volume() + " " + solid.area() + " " + Solid.STEPS[2] + " " + solid.NAME + " " + Figure.made + Cube.made + " " + Square.UNIT);

        Hider h = new Hiding();
        Hiding hiding = (Hiding) h;
        System.out.println(h.f + " " + hiding.f + " " + h.s + " " + hiding.s + " " + h.who() + " " + hiding.who() + " " + h.mine());
        System.out.println(h.reveal());
        System.out.println(new Deeper().all());
        Hider none = null;
        System.out.println(none.s + " " + none.who());
    }
}
