class StaticContext {
    int x;
    void f() { }
    static Object self() { return this; }
    //                            ^ error 303: 'this' cannot be referenced from a static context
    static int parent() { return super.hashCode(); }
    //                           ^ error 303: 'super' cannot be referenced from a static context
    static int y = x;
    //             ^ error 308: non-static variable x cannot be referenced from a static context
    static { f(); }
    //       ^ error 308: non-static method f() cannot be referenced from a static context
    static void g() {
        StaticContext.f();
        //            ^ error 308: non-static method f() cannot be referenced from a static context
        int z = StaticContext.x;
        //                    ^ error 308: non-static variable x cannot be referenced from a static context
    }
    int w = StaticContext.x;
    //                    ^ error 312: cannot make a static reference to non-static variable x

    static class Nested {
        int v = x;
        //      ^ error 308: non-static variable x cannot be referenced from a static context
        Object outer = StaticContext.this;
        //                           ^ error 303: 'StaticContext.this' cannot be referenced from a static context
    }

    StaticContext(Object o) { }
    StaticContext(int i) { this(this); }
    //                          ^ error 310: cannot reference this before superclass constructor has been called
    StaticContext(long l) { this(super.toString()); }
    //                           ^ error 310: cannot reference super before superclass constructor has been called
    StaticContext(char c) { this(x); }
    //                           ^ error 308: non-static variable x cannot be referenced from a static context
    StaticContext(double d) { this(hashCode()); }
    //                             ^ error 308: non-static method hashCode() cannot be referenced from a static context
}
