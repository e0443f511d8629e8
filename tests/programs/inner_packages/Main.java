import base.Bounded;
import use.*;
import use.Derived.Inner;

/** Members that a class inherits from another package, used by the classes in it. */
public class Main {
    public static void main(String[] args) throws Exception {
        Derived d = new Derived();
        Derived.Inner inner = d.new Inner();
        System.out.println(inner.read());
        System.out.println(inner.call());
        System.out.println(inner.change());
        System.out.println(inner.fail());
        System.out.println(inner.copy(new Derived()));
        System.out.println(inner.part());
        Inner.Mixed mixed = inner.new Mixed();
        System.out.println(mixed.run(new Derived()));
        System.out.println(Derived.Static.all());
        System.out.println(d.callback(6).call(d));
        System.out.println(Bounded.run());
    }
}
