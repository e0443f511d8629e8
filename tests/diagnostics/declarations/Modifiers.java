abstract final class Modifiers {
//             ^ error 216: illegal combination of modifiers: abstract and final
    public private int a;
    //                 ^ error 216: illegal combination of modifiers: public and private
    final volatile int b = 1;
    //                 ^ error 216: illegal combination of modifiers: final and volatile
    private protected int c;
    //                    ^ warning 219: obsolete syntax: `private protected' no longer supported, assuming `protected' instead
    synchronized int d;
    //               ^ error 217: modifier synchronized not allowed here
    static Modifiers() { }
    //     ^ error 217: modifier static not allowed here
    abstract static void e();
    //                   ^ error 216: illegal combination of modifiers: abstract and static
    abstract native void f();
    //                   ^ error 216: illegal combination of modifiers: abstract and native
    void g() {
        final int h = 1;
        final class Local { }
        abstract class AbstractLocal { }
    }
    transient void i() { }
    //             ^ error 217: modifier transient not allowed here
    public protected void j() { }
    //                    ^ error 216: illegal combination of modifiers: public and protected
    public private String toString() { return ""; }
    //                    ^ error 216: illegal combination of modifiers: public and private
}

private class Private {
//      ^ error 217: modifier private not allowed here
}

static class Static {
//     ^ error 217: modifier static not allowed here
}

interface Interface {
    private int A = 1;
    //          ^ error 217: modifier private not allowed here
    protected void f();
    //             ^ error 217: modifier protected not allowed here
    static void g();
    //          ^ error 217: modifier static not allowed here
    public static final int B = 1;
    public abstract void h();
    private class C { }
    //      ^ error 217: modifier private not allowed here
    protected interface D { }
    //        ^ error 217: modifier protected not allowed here
    public static final class E { }
    abstract class F { }
}
