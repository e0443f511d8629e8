class Bodies {
    void f(boolean c) {
        if (c) int x = 1;
        //         ^ error 207: not a statement
        if (c) ; else int y = 1;
        //                ^ error 207: not a statement
        if (c) class Local { }
        //     ^ error 207: not a statement
        while (c) int z = 1;
        //            ^ error 207: not a statement
        do final int u = 1; while (c);
        //           ^ error 207: not a statement
        for (;;) int v;
        //           ^ error 207: not a statement
        synchronized (this) int w = 1;
        //                      ^ error 207: not a statement
        label: int q = 1;
        //         ^ error 207: not a statement
        if (c) { int k = 1; } else while (c) { class Local2 { } }
    }
}
