class Jumps {
    void f(boolean c, int x) {
        break;
      //^ error 401: break outside of loop or switch
        continue;
      //^ error 402: continue outside of loop
        while (c) break missing;
        //        ^ error 400: undefined label: missing
        for (;;) continue missing;
        //       ^ error 400: undefined label: missing
    }

    void labels(boolean c) {
        a: a: while (c) { }
        // ^ error 410: duplicate label: a
        a: { continue a; }
        //   ^ error 403: not a loop label: a
        a: b: while (c) { if (c) continue a; else break b; }
        a: { break a; }
        a: while (c) ;
        break a;
      //^ error 400: undefined label: a
        a: { { a: ; } }
        //     ^ error 410: duplicate label: a
    }

    void switches(boolean c, int x) {
        switch (x) { case 1: continue; }
        //                   ^ error 402: continue outside of loop
        while (c) switch (x) { case 1: continue; default: break; }
        do continue; while (c);
        for (;;) { if (c) break; }
    }

    int notInInitializers = 1;
    { return; }
    //^ error 406: static initializer cannot return
    static { return; }
    //       ^ error 406: static initializer cannot return
    static { break; }
    //       ^ error 401: break outside of loop or switch
}
