abstract class Casts implements Cloneable {
    abstract int g();

    void f(Object o, String s, Integer n, int i, boolean b, Runnable r, int[] a, long[] c, Object[] d) {
        s = (String) o;
        n = (Integer) s;
        //  ^ error 364: cannot cast java.lang.String to java.lang.Integer
        i = (int) b;
        //  ^ error 364: cannot cast boolean to int
        b = (boolean) i;
        //  ^ error 364: cannot cast int to boolean
        c = (long[]) a;
        //  ^ error 364: cannot cast int[] to long[]
        s = ((String[]) d)[0];
        r = (Runnable) s;
        //  ^ error 364: cannot cast java.lang.String to java.lang.Runnable
        r = (Runnable) this;
        b = s == n;
        //    ^ error 365: cannot compare java.lang.String with java.lang.Integer
        b = r == s != n;
        //    ^ error 365: cannot compare java.lang.Runnable with java.lang.String
        //         ^ error 300: method !=(boolean, java.lang.Integer) not found in class Casts
        b = o instanceof int;
        //    ^ error 365: cannot compare java.lang.Object with int
        b = s instanceof Integer;
        //    ^ error 365: cannot compare java.lang.String with java.lang.Integer
        b = 1 instanceof Object;
        //    ^ error 365: cannot compare int with java.lang.Object
        o = new Casts();
        //           ^ error 353: class Casts is abstract; cannot be instantiated
        o = new Runnable();
        //              ^ error 353: interface java.lang.Runnable is abstract; cannot be instantiated
    }
}

class Concrete extends Casts {
    int g() { return super.g(); }
    //                     ^ error 352: abstract method g() cannot be accessed directly
}
