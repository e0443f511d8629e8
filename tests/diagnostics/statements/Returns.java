class Returns {
    Returns() { return; }
    Returns(int i) { return 1; }
    //                      ^ error 404: can't return a value from method whose result type is void
    void f() { return f(); }
    //                 ^ error 404: can't return a value from method whose result type is void
    int g() { return; }
    //        ^ error 405: missing return value
    int h() { return "1"; }
    //               ^ error 354: incompatible types; found: java.lang.String, required: int
    byte i(boolean b) { if (b) return 1; else return 300; }
    //                                               ^ error 355: possible loss of precision: int, required: byte
    int j() {
        try { throw new Exception(); } catch (Exception e) { return; }
        //                                                   ^ error 405: missing return value
    }
    Object k(boolean b) { if (b) return null; return "s"; }
}
