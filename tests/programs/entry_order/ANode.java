/** Comes before its superclass, which has a member class that extends this one. */
class ANode extends Base {
    String name() { return "node"; }
}
