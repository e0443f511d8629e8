/** The type and the value of `?:`: which overload is called tells the type. */
public class Main {
    static String type(byte x) { return "byte"; }
    static String type(short x) { return "short"; }
    static String type(char x) { return "char"; }
    static String type(int x) { return "int"; }
    static String type(long x) { return "long"; }
    static String type(float x) { return "float"; }
    static String type(double x) { return "double"; }
    static String type(boolean x) { return "boolean"; }
    static String type(String x) { return "String"; }
    static String type(Object x) { return "Object"; }

    static boolean yes = true, no = false;

    static void types() {
        byte b = 1;
        short s = 2;
        char c = 'c';
        int i = 4;
        long l = 5;
        float f = 6;
        double d = 7;
        System.out.println("b:b " + type(yes ? b : b) + ", b:s " + type(yes ? b : s) + ", s:b " + type(yes ? s : b) + ", b:c " + type(yes ? b : c)
            + ", c:s " + type(yes ? c : s) + ", c:c " + type(yes ? c : c) + ", s:i " + type(yes ? s : i) + ", i:c " + type(yes ? i : c)
            + ", b:l " + type(yes ? b : l) + ", l:f " + type(yes ? l : f) + ", f:d " + type(yes ? f : d) + ", i:f " + type(yes ? i : f)
            + ", c:d " + type(yes ? c : d));
        System.out.println("constants: b:1 " + type(yes ? b : 1) + ", 127:b " + type(yes ? 127 : b) + ", b:128 " + type(yes ? b : 128)
            + ", s:70000 " + type(yes ? s : 70000) + ", c:65535 " + type(yes ? c : 65535) + ", c:-1 " + type(yes ? c : -1)
            + ", b:'a' " + type(yes ? b : 'a') + ", s:'a' " + type(yes ? s : 'a') + ", i:'a' " + type(yes ? i : 'a') + ", b:1L " + type(yes ? b : 1L)
            + ", c:1f " + type(yes ? c : 1f));
        System.out.println("both constant: 'a':0 " + type(yes ? 'a' : 0) + ", 0:'a' " + type(yes ? 0 : 'a') + ", 'a':-1 " + type(yes ? 'a' : -1)
            + ", 1:2.0 " + type(yes ? 1 : 2.0) + ", 1:2L " + type(yes ? 1 : 2L) + ", (byte)1:2 " + type(yes ? (byte) 1 : 2)
            + ", (byte)1:'b' " + type(yes ? (byte) 1 : 'b') + ", (short)1:(byte)2 " + type(yes ? (short) 1 : (byte) 2) + ", 1f:2L " + type(yes ? 1f : 2L));
        System.out.println("all constant: 'a':0 " + type(true ? 'a' : 0) + ", 0:'a' " + type(false ? 0 : 'a') + ", 1:2.0 " + type(true ? 1 : 2.0)
            + ", 'x':1L " + type(true ? 'x' : 1L) + ", 1:'a' chosen 1 " + type(true ? 1 : 'a') + ", true:false " + type(true ? true : false));
        System.out.println("b:true " + type(yes ? true : no) + ", null:s " + type(yes ? null : "s") + ", s:null " + type(yes ? "s" : null)
            + ", Object:s " + type(yes ? new Object() : "s") + ", s:Object " + type(yes ? "s" : new Object()));
    }

    static void values() {
        char c = 'x';
        int i = 0;
        System.out.println(yes ? 'a' : 0);
        System.out.println(no ? 0 : 'a');
        System.out.println(yes ? 'a' : i);
        System.out.println(no ? i : c);
        System.out.println(true ? 1 : 2.0);
        System.out.println(yes ? 1 : 2.0);
        System.out.println(yes ? 1 : 2f);
        System.out.println(true ? 'b' : 1);
        System.out.println(false ? 1.0f : 'b');
        System.out.println(yes ? 98 : c);
        System.out.println("" + (yes ? 1 : 'a') + (no ? 'a' : 1L) + (true ? null : "n") + (yes ? null : "n"));
    }

    /** The conditional has its own type first; only then it is converted to what is wanted. */
    static void conversions() {
        int big = 16777217;
        long huge = 9007199254740993L;
        float f = 1;
        long l = yes ? big : 'a';
        double e = yes ? huge : f;
        double g = no ? f : huge;
        double h = no ? 1.0 : huge;
        short s = (short) (yes ? 40000 : 'a');
        byte b = yes ? (byte) -1 : 1;
        final int small = 5;
        byte k = true ? small : 6;
        System.out.println(l + " " + (long) e + " " + (long) g + " " + (long) h + " " + s + " " + b + " " + k);
        Object o = yes ? (Object) "s" : new Integer(1);
        Number n = no ? (Number) new Integer(1) : (Number) new Double(2.5);
        Runnable r = yes ? null : new Thread();
        System.out.println(o + " " + n + " " + r);
        int[] array = yes ? new int[] { 1, 2 } : null;
        System.out.println((no ? array : new int[] { 7, 8, 9 })[2] + (yes ? array : null)[1]);
    }


    public static void main(String[] args) {
        types();
        values();
        conversions();
    }
}
