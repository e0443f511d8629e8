class Abstract {
// error 454 (1:1): class Abstract should be declared abstract; it does not define method f() in class Abstract
    abstract void f();
}

class Unimplemented implements Runnable {
// error 454 (6:1): class Unimplemented should be declared abstract; it does not define method run() in interface java.lang.Runnable
}

abstract class Deferring implements Runnable {
    void call() { run(); }
}

class StillMissing extends Deferring {
// error 454 (14:1): class StillMissing should be declared abstract; it does not define method run() in class Deferring
}

class Bodies {
    void missing();
    //   ^ error 464: missing method body, or declare as abstract
    native void fine();
    native void native_() { }
    //          ^ error 465: native methods cannot have body
    static void constructorLike();
    //          ^ error 464: missing method body, or declare as abstract
}

abstract class AbstractBody {
    abstract void f() { }
    //            ^ error 465: abstract methods cannot have body
    abstract void g();
}

interface InterfaceBody {
    void f() { }
    //   ^ error 465: interface methods cannot have body
    int g();
}

class SelfCalls {
    SelfCalls() { this(1); }
    SelfCalls(int i) { this(); }
  //^ error 366: cyclic `this' constructor calls involving constructor SelfCalls(int)
    SelfCalls(long l) { this(1); }
}
