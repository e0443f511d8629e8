class Members {
    5 x;
  //^ error 203: illegal start of type
    int a = ;
    //      ^ error 204: illegal start of expression
    int b = 1 + ;
    //          ^ error 204: illegal start of expression
    public public int c;
    //     ^ error 208: repeated modifier
    static final static int d = 1;
    //           ^ error 208: repeated modifier
    method() { }
    //    ^ error 215: invalid method declaration; return type required
    int.x e;
  //^ error 220: basic type cannot be dereferenced
    int f = int.y;
    //      ^ error 220: basic type cannot be dereferenced
    int g = Members.super.hashCode();
    //      ^ error 221: illegal qualifier for super
    int h = this.hashCode();
    Object i = new Object[] ;
    //                      ^ error 200: '{' expected
    Object j = (int[]);
    //             ^ error 361: value required, but class found
    Object k = int[];
    //         ^ error 204: illegal start of expression
    int[] l = { 1, 2, }, m[] = { { 1 }, { } };
}
