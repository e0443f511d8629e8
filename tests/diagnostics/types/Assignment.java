class Assignment {
    int fromString = "s";
    //               ^ error 354: incompatible types; found: java.lang.String, required: int
    String fromInt = 1;
    //               ^ error 354: incompatible types; found: int, required: java.lang.String
    String fromObject = (String) 5;
    //                  ^ error 364: cannot cast int to java.lang.String
    int fromNull = null;
    //             ^ error 354: incompatible types; found: null, required: int
    boolean fromNumber = 1;
    //                   ^ error 354: incompatible types; found: int, required: boolean
    byte fits = 127, tooLarge = 128;
    //                          ^ error 355: possible loss of precision: int, required: byte
    char letter = 65535, negative = -1;
    //                              ^ error 355: possible loss of precision: int, required: char
    short fromLong = 1L;
    //               ^ error 355: possible loss of precision: long, required: short
    float fromDouble = 1.5;
    //                 ^ error 355: possible loss of precision: double, required: float
    int[] array = { 1, "two", 3L };
    //                 ^ error 354: incompatible types; found: java.lang.String, required: int
    //                        ^ error 355: possible loss of precision: long, required: int
    int[][] nested = { { 1 }, 2 };
    //                        ^ error 354: incompatible types; found: int, required: int[]
    int noArray = { 1 };
    //            ^ error 354: incompatible types; found: int[], required: int
    Object[] covariant = new String[1];
    Object object = new int[1];
    long[] notCovariant = new int[1];
    //                        ^ error 354: incompatible types; found: int[], required: long[]
    final int K = 3;
    byte fromConstant = K;

    void f(int i, byte b, Object o, Runnable r) {
        b = i;
        //  ^ error 355: possible loss of precision: int, required: byte
        b += 1.5;
        i = g();
        //   ^ error 354: incompatible types; found: void, required: int
        String s = o;
        //         ^ error 354: incompatible types; found: java.lang.Object, required: java.lang.String
        s += 1;
        i += s;
        //   ^ error 354: incompatible types; found: java.lang.String, required: int
        r = o;
        //  ^ error 354: incompatible types; found: java.lang.Object, required: java.lang.Runnable
        o = r;
        if (i) ;
        //  ^ error 354: incompatible types; found: int, required: boolean
        while (o) ;
        //     ^ error 354: incompatible types; found: java.lang.Object, required: boolean
        boolean c = i = 1;
        //            ^ error 354: incompatible types; found: int, required: boolean
        int[] a = new int[1L];
        //                ^ error 355: possible loss of precision: long, required: int
        a[1.0] = 1;
        //^ error 355: possible loss of precision: double, required: int
        i = true ? 1 : "x";
        //             ^ error 354: incompatible types; found: java.lang.String, required: int
    }

    void g() { }
}
