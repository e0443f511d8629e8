class Finals {
    final int field;
    static final int CONSTANT = 1;
    static final int UNSET;
    static int start = 1;
    //         ^ error 553: variable UNSET might not have been initialized

    void f(boolean c, final int p) {
        final int x;
        x = 1;
        x = 2;
      //^ error 554: final variable x might already have been assigned to
        final int y;
        while (c) y = 1;
        //        ^ error 554: final variable y might already have been assigned to
        while (c) { final int z; z = 1; }
        final int v;
        while (c) for (v = 1; c; ) { }
        //             ^ error 554: final variable v might already have been assigned to
        final int w;
        try { f(c, 1); } finally { w = 1; }
        w = 2;
      //^ error 554: final variable w might already have been assigned to
        p = 1;
      //^ error 554: final variable p might already have been assigned to
    }

    { int once; if (start > 2) once = 1; start = once; }
    //                                           ^ error 553: variable once might not have been initialized
    Finals() { field = 1; }
    Finals(boolean c) {
        if (c) field = 1;
    }
  //^ error 553: variable field might not have been initialized
    Finals(int i) { this(); }
    Finals(long l) {
        return;
    }
  //^ error 553: variable field might not have been initialized
    Finals(char c) {
        field = 1;
        field = 2;
      //^ error 554: final variable field might already have been assigned to
    }
    Finals(byte b) { this.field = b; }
}
