class Numbers {
    int octal = 09;
    //          ^ error 103: malformed integer number
    int tooLarge = 2147483648;
    //             ^ error 104: integer number too large
    int smallest = -2147483648;
    int minus = 1 - 2147483648;
    //              ^ error 104: integer number too large
    int hexadecimal = 0xFFFFFFFF + 037777777777;
    int hexadecimalTooLarge = 0x100000000;
    //                        ^ error 104: integer number too large
    long longTooLarge = 9223372036854775808L;
    //                  ^ error 104: integer number too large
    long longSmallest = -9223372036854775808L;
    double noExponent = 1e;
    //                  ^ error 102: malformed floating point number
    double signOnly = 1e+;
    //                ^ error 102: malformed floating point number
    //                   ^ error 204: illegal start of expression
    double overflow = 1e999;
    //                ^ error 108: numeric overflow
    float floatOverflow = 1e39f;
    //                    ^ error 108: numeric overflow
    double underflow = 1e-999;
    //                 ^ error 109: numeric underflow
    float floatUnderflow = 1e-50f;
    //                     ^ error 109: numeric underflow
    double zero = 0e-999, point = .5, nine = 09.5, suffix = 1d;
}
