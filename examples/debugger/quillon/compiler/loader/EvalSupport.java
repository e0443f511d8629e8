package quillon.compiler.loader;

/**
 * The conversions of an expression's value to an object: `eval` returns what the `box` for the expression's type gives.
 */
public final class EvalSupport {
    private EvalSupport() {
    }

    public static Object box(byte value) {
        return new Byte(value);
    }

    public static Object box(char value) {
        return new Character(value);
    }

    public static Object box(short value) {
        return new Short(value);
    }

    public static Object box(int value) {
        return new Integer(value);
    }

    public static Object box(long value) {
        return new Long(value);
    }

    public static Object box(float value) {
        return new Float(value);
    }

    public static Object box(double value) {
        return new Double(value);
    }

    public static Object box(boolean value) {
        return value ? Boolean.TRUE : Boolean.FALSE;
    }

    public static Object box(Object value) {
        return value;
    }
}
