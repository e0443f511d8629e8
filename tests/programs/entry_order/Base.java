abstract class Base {
    static Base make() { return new Special(); }
    abstract String name();
    ANode.Kind kind = new ANode.Kind();
    static class Kind { int size = 3; }
    static class Special extends ANode {
        String name() { return "special " + super.name(); }
    }
}

/** A second class of the unit, which needs one of the unit that needed this unit first. */
class Other extends ANode {
    int size() { return 5; }
}
