class Duplicates {
    int x;
    String x;
    //     ^ error 450: duplicate definition of variable x in class Duplicates
    int x() { return x; }
    void f(int i) { }
    int f(int j) { return undefinedHere; }
    //  ^ error 450: duplicate definition of method f(int) in class Duplicates
    void f(long i) { }
    Duplicates() { }
    Duplicates() { }
  //^ error 450: duplicate definition of constructor Duplicates() in class Duplicates

    void parameters(int a, int a) { }
    //                         ^ error 450: duplicate definition of variable a in method parameters

    void locals(int p) {
        int p;
        //  ^ error 450: duplicate definition of variable p in method locals(int)
        int a;
        int a;
        //  ^ error 450: duplicate definition of variable a in method locals(int)
        {
            int a;
            //  ^ error 469: variable a is already defined in method locals(int)
            int b;
        }
        int b;
        for (int p = 0; ; ) {
        //       ^ error 469: variable p is already defined in method locals(int)
        }
        int x;
    }

    void catchParameter(int e) {
        try { } catch (RuntimeException e) { int e; }
        //                              ^ error 469: variable e is already defined in method catchParameter(int)
        //                                       ^ error 469: variable e is already defined in method catchParameter(int)
    }

    class Member { }
    class Member { }
  //^ error 450: duplicate definition of class Duplicates.Member in class Duplicates

    void classes() {
        class Local { }
        class Local { }
      //^ error 450: duplicate definition of class Duplicates.Local in method classes()
    }
}

class Duplicates {
// error 451 (52:1): duplicate definition of class Duplicates
    int unseen = "s";
}
