import q.B;
import p.A;

/** Protected member classes, fields and methods of a superclass in another package. */
public class Main {
    public static void main(String[] a) {
        System.out.println(new B().run());
        A.Cb c = new A.Cb() {
            public int call() {
                return A.Pub.Inner.c++;
            }
        };
        System.out.println(c.call() + c.call());
    }
}
