class Overriding {
    final void f() { }
    static void g() { }
    void h() { }
    public void i() { }
    protected void j() { }
    long k() { return 1; }
    void l() { }
    void m() throws java.io.IOException { }
    Object n() { return null; }
    private void o() { }
    void p(int i) { }
}

class Overrider extends Overriding {
    void f() { }
    //   ^ error 455: final method f() in class Overriding cannot be overridden by method f() in class Overrider
    void g() { }
    //   ^ error 455: static method g() in class Overriding cannot be overridden by method g() in class Overrider
    static void h() { }
    //          ^ error 456: static method h() in class Overrider cannot override method h() in class Overriding
    protected void i() { }
    //             ^ error 458: method i() in class Overrider cannot override method i() in class Overriding with weaker access privileges, was public
    void j() { }
    //   ^ error 458: method j() in class Overrider cannot override method j() in class Overriding with weaker access privileges, was protected
    int k() { return 1; }
    //  ^ error 460: method k() in class Overrider cannot override method k() in class Overriding with different return type, was long
    void l() throws java.io.IOException { }
    //   ^ error 462: method l() in class Overrider cannot override method l() in class Overriding, overridden method does not throw java.io.IOException
    void m() throws java.io.FileNotFoundException, RuntimeException { }
    String n() { return null; }
    //     ^ error 460: method n() in class Overrider cannot override method n() in class Overriding with different return type, was java.lang.Object
    private int o() { return 1; }
    private int p(long l) { return 1; }
}

class Hides extends Overriding {
    static void g() { }
    private void h() { }
    //           ^ error 458: method h() in class Hides cannot override method h() in class Overriding with weaker access privileges, was package
}

interface Implemented {
    void a();
    void b();
    long c();
    void d();
}

abstract class Implementer implements Implemented {
    public static void a() { }
    //                 ^ error 457: static method a() in class Implementer cannot implement method a() in interface Implemented
    void b() { }
    //   ^ error 459: method b() in class Implementer cannot implement method b() in interface Implemented with weaker access privileges, was public
    public void d() throws Exception { }
    //          ^ error 463: method d() in class Implementer cannot implement method d() in interface Implemented, implemented method does not throw java.lang.Exception
}

abstract class Returner implements Implemented {
//       ^ error 461: method c() in class Returner cannot implement method c() in interface Implemented with different return type, was long
    public int c() { return 1; }
    //         ^ error 461: method c() in class Returner cannot implement method c() in interface Implemented with different return type, was long
}

class Inherited {
    void a() { }
    public void b() { }
    public long c() { return 1; }
    public void d() { }
}

class ThroughSuperclass extends Inherited implements Implemented {
// error 459 (72:1): method a() in class Inherited cannot implement method a() in interface Implemented with weaker access privileges, was public
}
