import java.util.*;
import java.io.PrintStream;;

/** Obscure but legal: who wins when a name means several things, odd places for brackets and semicolons. */
public class Main {
    ;
    static Main Main;
    int value = 2;;
    static String String = "field";
    static String length() { return "method"; }
    static PrintStream out = System.out;

    static int f()[] { return new int[] { 1, 2, 3 }; }
    static int[] g(int a[], int[] b[])[] { return new int[][] { a, b[0] }; }
    static java.lang.String h(final java.lang.String s) { return s + s; }

    int Main() { return 10; }

    Main Main(Main Main) {
        Main:
        for (;;) {
            if (Main.Main(1) == Main.value / 2) break Main;
            else break;
        }
        return Main;
    }

    static int Main(int Main) { return Main; }

    synchronized final static public void odd() throws RuntimeException, Error { out.println("odd order of modifiers"); }

    static int a = 5, b = 3;

    /** A parenthesised name is a cast or not, by what follows. */
    static void casts() {
        int Integer = 7;
        out.println((a) + b);
        out.println((a) - b);
        out.println((a)+(b)-(-b));
        out.println((Integer) + 1);
        out.println((Integer) - 1);
        out.println((int) + 1 + (int) - 1 + (int) ~1 + (int) 1.5);
        out.println((int) 'a' + (char) 98 + "" + (char) (98) + (byte) -1);
        Object o = "text";
        out.println(((java.lang.String) o).length() + ((java.lang.String) (o)).length() + ((Object) o).toString() + (java.lang.String) o);
        int[] array = { 4 };
        out.println((array[0]) + b + (array)[0] * (((a))));
        out.println((boolean) true & !(boolean) false);
        out.println((Object) o == (Object) "text" ? (a) : (b));
        out.println(((int[]) (Object) array)[0] + ((Object[]) (Object) new String[] { "s" }).length);
        long l = (long) a << 40 >> (int) 38L;
        out.println(l + (long) (a) + (a = (int) 6L) + (b) + (-(b)) + (+b) + (~b) + (byte) (b) + (short) +b);
    }

    static void locals() {
        String String = "local";
        out.println(String + Main.String + length() + String.length());
        int i = 0;
        i: i++;
        int out = 3;
        Main.out.println(out + i);
        String java = "variable";
        Main.out.println(java.length());
        Vector Vector = new Vector();
        Vector.addElement(Vector.toString());
        Main.out.println(Vector.elementAt(0) + " " + Vector.size());
        int length[] = { 5 }, size = length.length;
        Main.out.println(length[0] + size + length());
        Main Main = new Main();
        Main.value++;
        Main.out.println(Main.Main + "" + Main.value + Main.Main() + Main.Main(Main).Main(5));
    }

    static void brackets() {
        int a[] = { 1 }, b = 2, c[][] = { a, { b } };
        int[] d[] = c, e = a;
        out.println(a.length + b + c[1][0] + d[0][0] + e[0] + f()[2] + g(a, c)[1][0] + f().length + (new int[2][3])[1].length + new int[] { 9 }[0]);
        for (int x[] = { 1, 2 }, y = 0; y < x.length; y++) out.print(x[y]);
        int q [ ] = new int [ 2 ] , r = q . length ;
        out . println ( r ) ;
    }

    static void empties() {
        ;;;
        {}
        {;}
        {{{}}}
        if (a > 0);
        if (a > 0); else;
        if (a < 0) {} else {}
        for (;a < 0;);
        while (a < 0);
        do; while (a < 0);
        lonely: {}
        switch (a) {}
        try {} finally {}
        synchronized (out) {}
        int x;
        final int y = 1, z;
        out.println("empties");
    }

    static int dangling(int p, int q) {
        if (p > 0)
            if (q > 0) return 1;
            else return 2;
        if (p < 0) { if (q > 0) return 3; } else return 4;
        if (p < -1) while (q < 0) if (q++ == -2) return 5; else ; else for (;;) if (q < 0) return 6; else return 7;
        return 8;
    }

    static void operators() {
        int i = 5, j = 2;
        out.println(i+++j);
        out.println(i---j);
        out.println(i- -j);
        out.println(i- - -j);
        out.println(- -i + + +j + ~ ~j);
        out.println(-+-+j);
        out.println(!(!true)&!!false);
        out.println(i<j==j>i);
        out.println(i<<j>>>1>=8);
        out.println(i=j=4);
        out.println(i+=j-=i*=2);
        out.println(i>0?j>0?"a":"b":j<0?"c":"d");
        out.println(i>>1<<2>>>1);
        out.println(1+2+"3"+4*5+(6+7)+-8);
        out.println(2+3*4%5-6/4<<1&7|8^3);
        boolean t = true, u = false;
        out.println(t||u&&u|t&u^t);
        out.println(t==u!=u==t);
        out.println(u=t=!t);
        i = j = 1;
        out.println(i++ + ++j - -i + +j-- - --i);
    }

    public static void main(String argv[]) {
        casts();
        brackets();
        empties();
        operators();
        out.println(dangling(1, 1) + "" + dangling(1, 0) + dangling(-1, 1) + dangling(0, 0) + dangling(-1, -1) + dangling(-1, 0) + dangling(-2, -3) + dangling(-2, 0));
        Main.odd();
        locals();
        new Main().Main(new Main()).out.println(h("h").length() + Main(3) + new Main().Main());
        out.println(new Empty() instanceof Nothing);
        out.println(new class$Money$().$ + $_$.$$() + new $_$().toString().substring(0, 4));
        out.println(new Same().Same.same.Same.toString());
    }
}

;

/** A dollar sign is a letter like any other. */
class class$Money$ { String $ = "$"; }
class $_$ { static String $$() { return "$$"; } }

interface Nothing { }
final class Empty implements Nothing { };

class Same {
    Same same, Same;

    Same() {
        Same = this;
        same = this.Same;
    }

    public String toString() {
        Same Same = this.Same;
        Same: while (Same == same) break Same;
        return "Same" + (Same instanceof Same);
    }
}
;
