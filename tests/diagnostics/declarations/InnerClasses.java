class InnerClasses {
    class Inner {
        static int x;
        //         ^ error 476: inner classes cannot have static members
        static void f() { }
        //          ^ error 476: inner classes cannot have static members
    }
    static class Nested {
        static int fine;
    }
    interface Interface {
        int FINE = 1;
    }

    void f(int p) {
        int local = 1;
        final int settled = 2;
        Object o = new Runnable(1) {
        //                     ^ error 477: anonymous class implements interface; cannot have arguments
            public void run() {
                int i = p + local + settled;
                //      ^ error 480: local variable p is accessed from within inner class; needs to be declared final
                //          ^ error 480: local variable local is accessed from within inner class; needs to be declared final
                i = p;
            }
        };
        o = this.new Nested();
        //           ^ error 479: illegal qualifier; class InnerClasses.Nested is not an inner class
        o = this.new Inner();
    }

    static Object make() { return new Inner(); }
    //                                     ^ error 303: 'InnerClasses.this' cannot be referenced from a static context
}

class Elsewhere {
    Object o = new InnerClasses.Inner();
    //                               ^ error 478: enclosing class InnerClasses of class InnerClasses.Inner is not in scope
}
