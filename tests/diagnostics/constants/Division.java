class Division {
    static final int ZERO = 0;
    int a = 1 / 0;
    //        ^ warning 500: cannot compute value of expression: / by zero
    int b = 1 % ZERO;
    //        ^ warning 500: cannot compute value of expression: / by zero
    long c = 1L / 0;
    //          ^ warning 500: cannot compute value of expression: / by zero
    boolean d = true || 1 / 0 == 0;
    //                    ^ warning 500: cannot compute value of expression: / by zero
    double e = 1.0 / 0;
    float f = 1f % 0;
    int g = (-2147483648) / -1;
    int notConstant = a / b;
    static final int DIVIDED = 1 / 0;
    //                           ^ warning 500: cannot compute value of expression: / by zero
    int use = DIVIDED;
}
