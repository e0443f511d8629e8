package debug;

import com.sun.jdi.ArrayType;
import com.sun.jdi.ClassNotLoadedException;
import com.sun.jdi.ClassType;
import com.sun.jdi.InterfaceType;
import com.sun.jdi.ReferenceType;
import com.sun.jdi.Type;
import java.util.Iterator;
import java.util.List;

/**
 * What `instanceof` and casts do in an expression's class, where an object of the program is a handle: its own class is what
 * counts, not that of the handle. `ExpressionLoader` puts calls of these methods in place of the instructions. Names of classes
 * are as in a class file: "java/lang/String", "[I", "[Ljava/lang/String;".
 */
public class Casts {
    private Casts() {
    }

    public static boolean isInstance(Object value, String className) {
        if (value == null) return false;
        String name = className.replace('/', '.');
        if (value instanceof Handle) return isSubtype(((Handle) value).read().type(), name);
        try {
            return Class.forName(name).isInstance(value);
        } catch (ClassNotFoundException failure) {
            return false; // a class of the program, which no object of the debugger is of
        }
    }

    public static Object cast(Object value, String className) {
        if (value == null) return null;
        if (isInstance(value, className)) {
            if (value instanceof Handle) see((Handle) value, className.replace('/', '.'));
            return value;
        }
        String actual = value instanceof Handle ? ((Handle) value).read().type().name() : value.getClass().getName();
        throw new ClassCastException(actual);
    }

    /** The fields are now those of that class. Arrays have none. */
    private static void see(Handle object, String name) {
        ReferenceType type = (ReferenceType) object.read().type();
        while (type instanceof ClassType && !type.name().equals(name)) type = ((ClassType) type).superclass();
        if (type instanceof ClassType) object.frame().cast(object, type);
    }

    private static boolean isSubtype(Type type, String name) {
        if (type instanceof ArrayType) return isArraySubtype((ArrayType) type, name);
        return type instanceof ReferenceType && isClassSubtype((ReferenceType) type, name);
    }

    private static boolean isArraySubtype(ArrayType type, String name) {
        if (!name.startsWith("["))
            return name.equals("java.lang.Object") || name.equals("java.lang.Cloneable") || name.equals("java.io.Serializable");
        if (type.signature().replace('/', '.').equals(name)) return true;
        String element = name.substring(1);
        if (element.startsWith("L")) element = element.substring(1, element.length() - 1);
        try {
            return isSubtype(type.componentType(), element);
        } catch (ClassNotLoadedException failure) {
            return element.equals("java.lang.Object"); // all that is known of the class without an object of it
        }
    }

    private static boolean isClassSubtype(ReferenceType type, String name) {
        if (type.name().equals(name) || name.equals("java.lang.Object")) return true;
        if (type instanceof InterfaceType) return isAmong(((InterfaceType) type).superinterfaces(), name);
        ClassType superclass = ((ClassType) type).superclass();
        return superclass != null && isClassSubtype(superclass, name) || isAmong(((ClassType) type).allInterfaces(), name);
    }

    private static boolean isAmong(List interfaces, String name) {
        for (Iterator i = interfaces.iterator(); i.hasNext();)
            if (isClassSubtype((ReferenceType) i.next(), name)) return true;
        return false;
    }
}
