/** When and in which order classes and objects are initialized. */
public class Main {
    static StringBuffer log = new StringBuffer();

    static int say(String s) {
        log.append(s).append(' ');
        return s.length();
    }

    static void flush(String label) {
        System.out.println(label + ": " + log);
        log = new StringBuffer();
    }

    int a = say("a"), b = say("bb" + a);
    static int early = later();
    static int late = 5;
    static int afterwards = late + early;
    final int c;

    {
        say("block1 a=" + a + " d=" + this.d);
        for (int i = 0; i < 2; i++) {
            switch (i) {
                case 0: say("zero"); continue;
                default: say("one"); break;
            }
        }
    }

    int d = a + b + say("dddd");

    {
        try {
            c = d * 2;
            if (d > 0) say("c=" + c);
        } finally {
            say("finally");
        }
        int local = 1;
        int other = local + d;
        d = other;
    }

    static int later() {
        return late + 100;
    }

    Main() {
        say("Main() d=" + d);
    }

    Main(int x) {
        this();
        say("Main(int) " + x);
    }

    Main(long l) {
        say("Main(long) c=" + c);
        try {
            if (l == 0) return;
            say("not zero");
        } finally {
            say("end");
        }
    }

    public static void main(String[] args) {
        System.out.println("early " + early + " late " + late + " afterwards " + afterwards);
        new Main();
        flush("no arguments");
        new Main(7);
        flush("this(...)");
        new Main(0L);
        flush("long");

        say("" + Lazy.CONSTANT + Lazy.TEXT);
        Lazy[] none = new Lazy[2];
        Object cast = (Lazy) null;
        say(none.length + "" + (cast instanceof Lazy));
        flush("does not initialize Lazy");
        say("" + Lazy.variable);
        flush("does");
        new Derived(3);
        flush("first object of Derived");
        new Derived(4);
        flush("second");
        say("" + Implementor.PLAIN);
        new Implementor();
        flush("interface fields stay asleep");
        say("" + Implementor.COMPUTED + HasFields.OTHER);
        flush("until they are asked for");
        new Virtual();
        flush("virtual call from the constructor");
        say(Blank.A + " " + Blank.B + " " + new Blank(true).c + new Blank(false).c + " " + new Blank("q").c + " " + new Blank(true).list[1]);
        flush("blank finals");
        say("" + SelfReference.total + SelfReference.first + SelfReference.copy + new SelfReference().p);
        flush("self reference");
    }
}

class Lazy {
    static final int CONSTANT = 5;
    static final String TEXT = "t" + CONSTANT;
    static int variable = Main.say("Lazy");
    static final Integer BOXED = new Integer(1);
}

class Base {
    static { Main.say("Base.static"); }
    static int fromBase = Main.say("fromBase");
    int x = Main.say("Base.x");
    { Main.say("Base.block"); }

    Base(int i) {
        Main.say("Base(" + i + ")");
        hook();
    }

    void hook() {
        Main.say("Base.hook");
    }
}

class Derived extends Base {
    { Main.say("Derived.block"); }
    static { Main.say("Derived.static"); }
    String s = "set" + Main.say("Derived.s");
    static final int K;

    static {
        int sum = 0;
        for (int i = 0; i < 5; i++) sum += i;
        K = sum;
        Main.say("K=" + K);
    }

    Derived(int i) {
        super(i + Main.say("arg"));
        Main.say("Derived(" + i + ") " + s);
    }

    void hook() {
        super.hook();
        Main.say("Derived.hook s=" + s);
    }
}

interface HasFields {
    int PLAIN = 7;
    int COMPUTED = Main.say("HasFields.COMPUTED");
    int OTHER = Main.say("OTHER");
}

class Implementor implements HasFields {
    static { Main.say("Implementor.static"); }
}

class Virtual {
    final int constant = 5;
    final int computed = "12345".length();
    int assigned = 6;
    int zero = 0;

    Virtual() {
        this("x");
        Main.say("back " + zero);
    }

    Virtual(String s) {
        Main.say(constant + " " + computed + " " + assigned);
        zero = 9;
    }
}

class Blank {
    static final int A;
    static final String B;
    final char c;
    final int[] list;

    static {
        if ("x".length() == 1) A = 1;
        else A = 2;
        switch (A) {
            case 1: B = "one"; break;
            default: B = "many";
        }
    }

    { list = new int[] { 1, 2 }; }

    Blank(boolean b) {
        if (b) c = 't';
        else this.c = 'f';
        list[1]++;
    }

    Blank(String s) {
        c = s.charAt(0);
    }
}

class SelfReference {
    static int total = (SelfReference.copy = 4) + 1;
    static int copy;
    static int first = copy++ + SelfReference.copy;
    int p = this.q + 3, q = p + 1;
}
