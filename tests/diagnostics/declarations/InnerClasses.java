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

class Qualified {
    class Inner {
        Inner(String s) throws Exception { }
    }
    static class Nested { }
    interface Member { }

    Object made() throws Exception {
        Object o = new Qualified().new Nested() { };
        //                                      ^ error 479: illegal qualifier; class Qualified.Nested is not an inner class
        o = this.new Member() { };
        //           ^ error 479: illegal qualifier; interface Qualified.Member is not an inner class
        return "".new Inner(null);
        //            ^ error 300: class Inner not found in class java.lang.String
    }
    Object field = new Inner(null) { };
    //                      ^ error 360: unreported exception: java.lang.Exception; must be caught or declared to be thrown
    static Object anonymous = new Inner("") { };
    //                                      ^ error 303: 'Qualified.this' cannot be referenced from a static context
    //                                 ^ error 360: unreported exception: java.lang.Exception; must be caught or declared to be thrown
}

class SelfCalls {
    int member;
    class Inner { }

    SelfCalls(Object o) { }
    SelfCalls(int i) { this(new Inner()); }
    //                               ^ error 478: enclosing class SelfCalls of class SelfCalls.Inner is not in scope
    SelfCalls(long l) { this(new Object() { int i = member; }); }
    //                                              ^ error 308: non-static variable member cannot be referenced from a static context
    SelfCalls(char c) { this(SelfCalls.this.member); }
    //                                 ^ error 310: cannot reference this before superclass constructor has been called

    class Sub extends SelfCalls {
        Sub() { super(new Object() { int i = SelfCalls.this.member; }); }
        Sub(SelfCalls s) { s.super(1); }
        //                   ^ error 479: illegal qualifier; class SelfCalls is not an inner class
    }
}

class Captured {
    void f(final int parameter) {
        final int blank;
        class Local {
            void assign() {
                blank = 1;
              //^ error 350: variable blank is declared final; cannot be assigned
                parameter++;
              //^ error 350: variable parameter is declared final; cannot be assigned
            }
        }
        blank = 2;
        new Local() {
            class Local extends Local { }
          //^ error 362: cyclic inheritance involving class Captured.8.Local
        };
    }
}
