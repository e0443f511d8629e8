class ForwardReferences {
    int a = b;
    //      ^ error 552: illegal forward reference
    int b = 1;
    int c = d();
    int d() { return e; }
    int e = s;
    static int s = t;
    //             ^ error 552: illegal forward reference
    static int t = 1;
    { a = f + 1; }
    //    ^ error 552: illegal forward reference
    int f = this.g;
    int g = g2(), h = h + 1;
    //                ^ error 552: illegal forward reference
    int g2() { return f; }
    static final int K = L + 1;
    //                   ^ error 552: illegal forward reference
    static final int L = 1;
}
