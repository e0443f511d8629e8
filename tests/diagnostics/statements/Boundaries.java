class Boundaries {
    void f(boolean c) {
        a: while (c) {
            class Local {
                void g() { break; }
                //         ^ error 401: break outside of loop or switch
                void h() { continue a; }
                //         ^ error 400: undefined label: a
                void i() { a: for (;;) break a; }
                { continue; }
                //^ error 402: continue outside of loop
                { return; }
                //^ error 406: static initializer cannot return
            }
        }
    }
}
