package drawing;

public interface Shape {
    double area();

    interface Named {
        String name();
    }

    class Unit implements Named {
        public String name() { return "unit"; }
    }

    class Circle implements Shape {
        private double radius;

        public Circle(double radius) { this.radius = radius; }
        public double area() { return 3 * radius * radius; }
    }

    class Twice implements Shape {
        private final Shape shape;

        public Twice(Shape shape) { this.shape = shape; }
        public double area() {
            return shape.area() + new Shape() {
                public double area() { return shape.area(); }
            }.area();
        }
    }
}
