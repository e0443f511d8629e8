import far.Order;

/**
 * Classes whose supertypes and members depend on each other in every direction, in units that come in the order of their
 * names: a class before its superclass, whose members name the class or extend it.
 */
public class Main {
    public static void main(String[] args) {
        System.out.println(ANode.make().name() + " " + new ANode.Kind().size + " " + new Early().kept.size());
        System.out.println(new LateUser().kind.size + " " + LateUser.Deep.depth());
        Action action = new Action.Both();
        action.run();
        action.stop();
        System.out.println(new XUser().own.value + new YUser().first.value);
        new ZQuiet().quiet();
        System.out.println(new Order().of("x") + new Order.Part().weight());
    }
}
