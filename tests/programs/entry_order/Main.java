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
        // A class repeats no abstract method that its superclass has from the same interface.
        System.out.println(Further.class.getDeclaredMethods().length);
    }
}

class Ground {
    static class Size { }
}

/** Its field needs the supertypes of a class derived from it. */
abstract class Half extends Ground implements Runnable {
    Further.Size size;
}

abstract class Further extends Half implements Runnable { }
