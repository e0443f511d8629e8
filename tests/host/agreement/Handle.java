import java.lang.reflect.Array;
import java.lang.reflect.Field;
import java.util.HashMap;
import java.util.Hashtable;
import quillon.compiler.loader.IEvaluatorContext;

/** A place of this very virtual machine: enough of a host to run expressions without a debugger. */
abstract class Handle implements IEvaluatorContext {
    abstract Object get();
    abstract void set(Object value);

    public IEvaluatorContext getField(String name) {
        Object object = get();
        if (object.getClass().isArray() && name.equals("length")) return new Value(new Integer(Array.getLength(object)));
        return new FieldHandle(object, object.getClass(), name);
    }

    public IEvaluatorContext getStatic(String className, String name) {
        try {
            return new FieldHandle(null, Class.forName(className), name);
        } catch (ClassNotFoundException failure) {
            throw new RuntimeException(failure.toString());
        }
    }

    public IEvaluatorContext getIndexed(int index) {
        return new Element(get(), index);
    }

    public byte getByteValue() { return ((Byte) get()).byteValue(); }
    public char getCharValue() { return ((Character) get()).charValue(); }
    public short getShortValue() { return ((Short) get()).shortValue(); }
    public int getIntValue() { return ((Integer) get()).intValue(); }
    public long getLongValue() { return ((Long) get()).longValue(); }
    public float getFloatValue() { return ((Float) get()).floatValue(); }
    public double getDoubleValue() { return ((Double) get()).doubleValue(); }
    public boolean getBooleanValue() { return ((Boolean) get()).booleanValue(); }
    public Object getObjectValue() { return Value.wrap(get()); }
    public void setByteValue(byte value) { set(new Byte(value)); }
    public void setCharValue(char value) { set(new Character(value)); }
    public void setShortValue(short value) { set(new Short(value)); }
    public void setIntValue(int value) { set(new Integer(value)); }
    public void setLongValue(long value) { set(new Long(value)); }
    public void setFloatValue(float value) { set(new Float(value)); }
    public void setDoubleValue(double value) { set(new Double(value)); }
    public void setBooleanValue(boolean value) { set(new Boolean(value)); }
    public void setObjectValue(Object value) { set(Value.unwrap(value)); }
}

/** The frame: its fields are its variables. */
class Frame extends Handle {
    final HashMap variables = new HashMap();

    Object get() { throw new RuntimeException("the frame is no value"); }
    void set(Object value) { throw new RuntimeException("the frame is no value"); }

    public IEvaluatorContext getField(final String name) {
        if (!variables.containsKey(name)) throw new RuntimeException("no variable " + name);
        return new Handle() {
            Object get() { return variables.get(name); }
            void set(Object value) { variables.put(name, value); }
        };
    }
}

class Value extends Handle {
    private static final Hashtable known = new Hashtable();
    private final Object value;

    Value(Object value) { this.value = value; }

    /** What an expression sees of an object: a string, null, or always the same handle. */
    static Object wrap(Object object) {
        if (object == null || object instanceof String) return object;
        Integer identity = new Integer(System.identityHashCode(object));
        if (!known.containsKey(identity)) known.put(identity, new Value(object));
        return known.get(identity);
    }

    static Object unwrap(Object value) {
        return value instanceof Value ? ((Value) value).value : value;
    }

    Object get() { return value; }
    void set(Object value) { throw new RuntimeException("a value is no place"); }
    public String toString() { return value.toString(); }
}

class FieldHandle extends Handle {
    private final Object object;
    private final Field field;

    FieldHandle(Object object, Class c, String name) {
        this.object = object;
        try {
            field = c.getField(name);
        } catch (NoSuchFieldException failure) {
            throw new RuntimeException(failure.toString());
        }
    }

    Object get() {
        try {
            return field.get(object);
        } catch (IllegalAccessException failure) {
            throw new RuntimeException(failure.toString());
        }
    }

    void set(Object value) {
        try {
            field.set(object, value);
        } catch (IllegalAccessException failure) {
            throw new RuntimeException(failure.toString());
        }
    }
}

class Element extends Handle {
    private final Object array;
    private final int index;

    Element(Object array, int index) {
        this.array = array;
        this.index = index;
    }

    Object get() { return Array.get(array, index); }
    void set(Object value) { Array.set(array, index, value); }
}
