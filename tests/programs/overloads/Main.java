import java.util.Vector;

class Animal { }
class Dog extends Animal implements Barks { }
class Puppy extends Dog { }
interface Barks { }

class Parent {
    String m(Object o) { return "Parent.m(Object)"; }
    String m(long l) { return "Parent.m(long)"; }
    static String st(double d) { return "Parent.st(double)"; }
    String only(int i) { return "Parent.only(int)"; }
    protected String pick(int i) { return "Parent.pick(int)"; }
}

class Child extends Parent {
    String m(String s) { return "Child.m(String)"; }
    String m(Object o) { return "Child.m(Object)"; }
    String m(int i) { return "Child.m(int)"; }
    static String st(int i) { return "Child.st(int)"; }
    String only(String s) { return "Child.only(String)"; }
    public String pick(int i) { return "Child.pick(int)"; }
    private String pick(byte b) { return "Child.pick(byte)"; }
}

/** Which method is meant, by the types of the arguments. */
public class Main {
    static String prim(int i) { return "int"; }
    static String prim(long i) { return "long"; }
    static String prim(float i) { return "float"; }
    static String prim(double i) { return "double"; }

    static String narrow(byte b) { return "byte"; }
    static String narrow(short b) { return "short"; }
    static String narrow(char b) { return "char"; }
    static String narrow(int b) { return "int"; }

    static String wide(long l) { return "long"; }
    static String wide(double d) { return "double"; }

    static String toFloat(float f) { return "float"; }
    static String toFloat(Object o) { return "Object"; }

    static String two(int a, long b) { return "int,long"; }
    static String two(long a, long b) { return "long,long"; }
    static String two(double a, double b) { return "double,double"; }

    static String ref(Object o) { return "Object"; }
    static String ref(Animal a) { return "Animal"; }
    static String ref(Dog d) { return "Dog"; }

    static String face(Object o) { return "Object"; }
    static String face(Barks b) { return "Barks"; }

    static String array(Object o) { return "Object"; }
    static String array(Object[] o) { return "Object[]"; }
    static String array(int[] o) { return "int[]"; }
    static String array(Cloneable o) { return "Cloneable"; }

    static String text(Object o) { return "Object"; }
    static String text(String s) { return "String"; }

    static String count() { return "0"; }
    static String count(int a) { return "1"; }
    static String count(int a, int b) { return "2"; }
    static String count(int[] a) { return "array"; }

    String kind(char c) { return "instance char"; }
    static String kind(int i) { return "static int"; }

    private final String made;

    Main() { this(1); }
    Main(int i) { made = "int"; }
    Main(long l) { made = "long"; }
    Main(Object o) { made = "Object"; }
    Main(String s) { made = "String"; }
    Main(char c, double d) { made = "char,double"; }
    Main(int c, float d) { made = "int,float"; }

    /** A field, a method and a local may share a name. */
    static int same = 1;

    static int same() { return same + 1; }

    static int same(int same) {
        return same() + same + Main.same;
    }

    static void print(char[] cs) { System.out.println("chars " + new String(cs)); }
    static void print(String s) { System.out.println("string " + s); }
    static void print(Object o) { System.out.println("object " + o); }

    public static void main(String[] args) {
        byte b = 1;
        short s = 2;
        char c = 'c';
        long l = 4;
        float f = 5;
        System.out.println(prim(b) + " " + prim(s) + " " + prim(c) + " " + prim(1) + " " + prim(l) + " " + prim(f) + " " + prim(1.0) + " " + prim(b + l) + " " + prim('a' + 1f));
        System.out.println(narrow(b) + " " + narrow(s) + " " + narrow(c) + " " + narrow(5) + " " + narrow(b + b) + " " + narrow((byte) 5) + " " + narrow(b++) + " " + narrow(b += 2) + " " + narrow(-b) + " " + narrow('x'));
        System.out.println(wide(b) + " " + wide('c') + " " + wide(1) + " " + wide(f) + " " + toFloat(l) + " " + toFloat("s") + " " + toFloat(c));
        System.out.println(two(1, 1) + " " + two(l, 1) + " " + two(1, f) + " " + two(b, c));
        Animal reallyDog = new Dog();
        System.out.println(ref("s") + " " + ref(new Animal()) + " " + ref(reallyDog) + " " + ref(new Dog()) + " " + ref(new Puppy()) + " " + ref(null) + " " + ref((Object) new Puppy()) + " " + ref((Animal) null));
        System.out.println(face(reallyDog) + " " + face(new Puppy()) + " " + face(null));
        System.out.println(array(new int[0]) + " " + array(new String[0]) + " " + array(new int[0][]) + " " + array(new long[0]) + " " + array("s") + " " + array((Object) new int[0]));
        System.out.println(text("s") + " " + text(null) + " " + text('c' + "s") + " " + text(new StringBuffer()) + " " + text((Object) "s"));
        System.out.println(count() + count(1) + count(1, 2) + count(new int[] { 1, 2 }) + count(count(1).length()));
        System.out.println(new Main().kind('c') + " " + new Main().kind(1) + " " + kind('c' + 0) + " " + new Main().kind(b));
        System.out.println(new Main().made + " " + new Main(b).made + " " + new Main(l).made + " " + new Main("s").made + " " + new Main(new Object()).made + " " + new Main((Object) "s").made
            + " " + new Main('c', 1.0).made + " " + new Main(1, 1).made);
        System.out.println(same + " " + same() + " " + same(10));

        Child child = new Child();
        Parent parent = child;
        System.out.println(child.m("s") + " " + child.m(new Vector()) + " " + child.m(1) + " " + child.m(1L) + " " + child.m('c') + " " + child.m(null));
        System.out.println(parent.m("s") + " " + parent.m(1) + " " + parent.m((Object) null));
        System.out.println(Child.st(1) + " " + Child.st(1.5) + " " + child.only(1) + " " + child.only("s") + " " + parent.only(2) + " " + parent.pick(1) + " " + child.pick((byte) 1));
        print(new char[] { 'a', 'b' });
        print("ab");
        print((Object) "ab");
        print(new StringBuffer("ab"));
        StringBuffer out = new StringBuffer();
        out.append('c').append((int) 'c').append(1L).append(2.5).append(true).append(new char[] { 'x' }).append((Object) "o").append("s").append(0.5f);
        System.out.println(out);
        System.out.println(Math.max(1, 2L) + " " + Math.abs(-1.5f) + " " + Math.min('a', 5) + " " + Math.max(1f, 2) + " " + String.valueOf('c') + String.valueOf((int) 'c') + " " + Math.round(2.5f) + Math.round(-2.5));
    }
}
