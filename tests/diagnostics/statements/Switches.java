class Switches {
    static final int ONE = 1;
    static final double D = 5.5 % 2;

    void f(int x, long l, char c, byte b, String s, boolean z) {
        switch (x) {
        case 1: ;
        case ONE: ;
        //   ^ error 407: duplicate case label
        case '\u0001': ;
        //   ^ error 407: duplicate case label
        case x: ;
        //   ^ error 409: constant expression required
        case (int) D: ;
        //   ^ error 407: duplicate case label
        case 2L: ;
        //   ^ error 355: possible loss of precision: long, required: int
        case "2": ;
        //   ^ error 354: incompatible types; found: java.lang.String, required: int
        default: ;
        default: ;
      //^ error 408: duplicate default label
        }
        switch (l) { }
        //      ^ error 355: possible loss of precision: long, required: int
        switch (s) { }
        //      ^ error 354: incompatible types; found: java.lang.String, required: int
        switch (z) { }
        //      ^ error 354: incompatible types; found: boolean, required: int
        switch (c) { case 'a': case 98: }
        switch (b) { case 1: int inside = 1; case 2: inside = 2; }
        inside = 3;
      //^ error 300: variable inside not found in class Switches
        int inside = 4;
        switch (x) { case 1: case 1: }
        //                        ^ error 407: duplicate case label
    }
}
