import java.lang.reflect.*;

interface Greeting {
    int LEVEL = 3;

    String greet(String whom) throws java.io.IOException;
}

abstract class Plain implements Greeting {
    public final int constant = 5;
    public final String text = "te" + "xt";
    public int counted = 6;
    public static final long BIG = 1L << 40;
    public static final char LETTER = 'x';
    public static final boolean FLAG = 1 < 2;
    public static final double HALF = 0.5;
    public static final byte SMALL = (byte) 200;
    public static transient volatile int odd;

    public Plain(int i, String[] names) {
        counted = i + names.length;
    }

    protected Plain() {
    }

    public static synchronized final double twice(double d) {
        return d * 2;
    }

    public abstract void nothing();
}

public class Main extends Plain {
    public Main(int i, String[] names) {
        super(i, names);
    }

    public Main() {
        this(1, new String[2]);
    }

    public String greet(String whom) {
        return "hello " + whom;
    }

    public void nothing() {
    }

    public int[][] grid(byte b, short s, char c, long l, float f, boolean z, int[] is, Object[][] os) {
        return new int[b][s];
    }

    /** @deprecated only to have such a method */
    public void old() {
    }

    static void literals() throws ClassNotFoundException {
        Class[] classes = { int.class, byte.class, short.class, char.class, long.class, float.class, double.class, boolean.class, void.class, String.class,
            int[].class, String[].class, long[][].class, Main.class, Greeting.class, Plain[].class, java.util.Vector.class, Object[][][].class, boolean[].class };
        for (int i = 0; i < classes.length; i++) System.out.print(classes[i].getName() + " ");
        System.out.println();
        System.out.println((int.class == Integer.TYPE) + " " + (String.class == "x".getClass()) + " " + (int[].class == new int[0].getClass()) + " "
            + (void.class == Void.TYPE) + " " + (Main.class == Class.forName("Main")) + " " + (Plain[].class.getComponentType() == Plain.class) + " "
            + int.class.getName().length() + " " + Greeting.class.isInterface() + String[].class.isArray() + double.class.isPrimitive()
            + Object.class.isInstance(new int[0]) + Plain.class.isAssignableFrom(Main.class));
    }

    static void fields(Object o) throws Exception {
        String[] names = { "constant", "text", "counted", "BIG", "LETTER", "FLAG", "HALF", "SMALL", "odd", "LEVEL" };
        for (int i = 0; i < names.length; i++) {
            Field f = o.getClass().getField(names[i]);
            System.out.println(Modifier.toString(f.getModifiers()) + " " + f.getType().getName() + " " + f.getName() + " = " + f.get(o));
        }
    }

    static void methods(Object o) throws Exception {
        Method greet = o.getClass().getMethod("greet", new Class[] { String.class });
        System.out.println(greet.invoke(o, new Object[] { "you" }) + ", declared exceptions " + greet.getExceptionTypes().length);
        Method inherited = Greeting.class.getMethod("greet", new Class[] { String.class });
        System.out.println(inherited.invoke(o, new Object[] { "all" }) + ", declared exceptions " + inherited.getExceptionTypes()[0].getName() + " " + Modifier.toString(inherited.getModifiers()));
        Method twice = Plain.class.getMethod("twice", new Class[] { double.class });
        System.out.println(twice.invoke(null, new Object[] { new Double(1.25) }) + " " + Modifier.toString(twice.getModifiers()));
        Method grid = Main.class.getMethod("grid", new Class[] { byte.class, short.class, char.class, long.class, float.class, boolean.class, int[].class, Object[][].class });
        System.out.println(grid);
        int[][] made = (int[][]) grid.invoke(o, new Object[] { new Byte((byte) 2), new Short((short) 3), new Character('c'), new Long(1), new Float(1), Boolean.TRUE, new int[1], null });
        System.out.println(made.length + " " + made[1].length);
        System.out.println(Main.class.getMethod("old", new Class[0]));
        System.out.println(Modifier.toString(Plain.class.getModifiers()) + "; " + Modifier.toString(Main.class.getModifiers()) + "; " + Modifier.toString(Greeting.class.getModifiers()));
    }

    static void constructors() throws Exception {
        Constructor c = Main.class.getConstructor(new Class[] { int.class, String[].class });
        Main m = (Main) c.newInstance(new Object[] { new Integer(40), new String[] { "a", "b" } });
        Main n = (Main) Class.forName("Main").newInstance();
        System.out.println(c + " " + m.counted + " " + n.counted);
        Constructor[] all = Plain.class.getConstructors();
        System.out.println(all.length + " " + all[0]);
        Object array = Array.newInstance(int.class, 3);
        Array.setInt(array, 1, 7);
        System.out.println(((int[]) array)[1] + " " + Array.getLength(array));
    }

    public static void main(String[] args) throws Exception {
        literals();
        fields(new Main());
        methods(new Main());
        constructors();
        try {
            Class.forName("no.such.Thing");
        } catch (ClassNotFoundException e) {
            System.out.println("no class " + e.getMessage());
        }
    }
}
