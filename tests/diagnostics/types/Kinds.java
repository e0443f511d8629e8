class Kinds {
    void f(int i, int[] a) {
        1 = 2;
      //^ error 361: variable required, but value found
        f(1, null) = 1;
       //^ error 361: variable required, but value found
        (i + 1)++;
        // ^ error 361: variable required, but value found
        a[0] = 1;
        this = null;
      //^ error 361: variable required, but value found
        new int();
        //     ^ error 361: class required, but int found
        this(1);
      //^ error 361: method required, but value found
        super(1);
      //^ error 361: method required, but value found
        i[0] = 1;
       //^ error 367: array type required for [] but int found
        null[0] = 1;
        //  ^ error 363: null cannot be dereferenced
        Object o = null.x;
        //              ^ error 363: null cannot be dereferenced
        o = i.x;
        //    ^ error 359: object type required, but int found
        o = i.f();
        //    ^ error 359: object type required, but int found
        synchronized (1) { }
        //            ^ error 359: object type required, but int found
        synchronized (Kinds) { }
        //            ^ error 300: variable Kinds not found in class Kinds
        throw o;
        //    ^ error 354: incompatible types; found: java.lang.Object, required: java.lang.Throwable
    }
}

class BadSupertypes extends int {
//                          ^ error 359: object type required, but int found
}

class ArraySupertype extends Object[] {
//                                 ^ error 361: class required, but java.lang.Object[] found
}
