class Values {
    static final long LONG = 1L << 65;
    static final String TEXT = "a" + 1 + 'c' + 2L + 1.5f + true;
    static final int EARLY = Late.LATE + 1;

    void f(int x) {
        switch (x) {
        case 2147483647 + 1: ;
        case -2147483648: ;
        //   ^ error 407: duplicate case label
        case 1 << 33: ;
        case (int) LONG: ;
        //   ^ error 407: duplicate case label
        case -1 >>> 28: ;
        case 15: ;
        //   ^ error 407: duplicate case label
        case TEXT == "a1c21.5true" ? 100 : 101: ;
        case 100: ;
        //   ^ error 407: duplicate case label
        case (byte) 200: ;
        case -56: ;
        //   ^ error 407: duplicate case label
        case (char) -1: ;
        case 65535: ;
        //   ^ error 407: duplicate case label
        case (byte) 1e10: ;
        case -1: ;
        //   ^ error 407: duplicate case label
        case 0.0 == -0.0 ? 200 : 201: ;
        case 200: ;
        //   ^ error 407: duplicate case label
        case EARLY: ;
        case 42: ;
        //   ^ error 407: duplicate case label
        case (int) 0x7fffffffL: ;
        case 2147483647: ;
        //   ^ error 407: duplicate case label
        case ~5: ;
        case -6: ;
        //   ^ error 407: duplicate case label
        case 1 < 2L ? 300 : 301: ;
        case 300: ;
        //   ^ error 407: duplicate case label
        }
    }
}

class Late {
    static final int LATE = 41;
}
