class Assigned {
    int f(boolean c, int k) {
        int a;
        if (c) a = 1;
        int b;
        if (c) b = 1; else b = 2;
        int d;
        while (c) { d = 1; }
        int e;
        for (;;) { e = 1; break; }
        int g;
        if (c && (g = k) > 0) k = g;
        int h;
        if (c || (h = k) > 0) k = h;
        //                        ^ error 553: variable h might not have been initialized
        int i;
        try { i = f(c, k); } catch (RuntimeException x) { }
        int j;
        try { j = f(c, k); } finally { }
        int l;
        try { } finally { l = 1; }
        switch (k) { case 1: int m = 1; break; case 2: k = m; }
        //                                                 ^ error 553: variable m might not have been initialized
        int n;
        n++;
      //^ error 553: variable n might not have been initialized
        return a + b + d + e + i + j + l + a;
        //     ^ error 553: variable a might not have been initialized
        //             ^ error 553: variable d might not have been initialized
        //                     ^ error 553: variable i might not have been initialized
    }
}
