class Finals {
    final int x = 1;
    final int blank;
    static final int S = 2;
    static final Object O;
    static { O = null; }

    Finals() { blank = 3; }

    void f(final int p, int[] a, Finals other) {
        x = 2;
      //^ error 350: variable x is declared final; cannot be assigned
        blank++;
      //^ error 350: variable blank is declared final; cannot be assigned
        Finals.S = 3;
        //     ^ error 350: variable S is declared final; cannot be assigned
        this.blank = 4;
        //   ^ error 350: variable blank is declared final; cannot be assigned
        other.blank = 4;
        //    ^ error 350: variable blank is declared final; cannot be assigned
        a.length = 1;
        //^ error 350: variable length is declared final; cannot be assigned
        final int local = 5;
        local += 1;
      //^ error 350: variable local is declared final; cannot be assigned
    }

    {
        O = null;
      //^ error 350: variable O is declared final; cannot be assigned
    }
}
