class Ambiguous implements Left, Right {
    void m(long a, int b) { }
    void m(int a, long b) { }
    void n(Object o) { }
    void n(String s) { }
    void o(String s) { }
    void o(Integer i) { }
    Ambiguous() { }
    Ambiguous(long a, int b) { }
    Ambiguous(int a, long b) { }

    void f() {
        m(1, 1);
      //^ error 304: reference to m is ambiguous; both method m(long, int) in class Ambiguous and method m(int, long) in class Ambiguous match
        n(null);
        o(null);
      //^ error 304: reference to o is ambiguous; both method o(java.lang.String) in class Ambiguous and method o(java.lang.Integer) in class Ambiguous match
        m(1, 1L);
        new Ambiguous(1, 1);
        //  ^ error 304: reference to Ambiguous is ambiguous; both constructor Ambiguous(long, int) in class Ambiguous and constructor Ambiguous(int, long) in class Ambiguous match
        int i = field;
        //      ^ error 304: reference to field is ambiguous; both variable field in interface Left and variable field in interface Right match
    }
}

interface Left {
    int field = 1;
}

interface Right {
    int field = 2;
}
