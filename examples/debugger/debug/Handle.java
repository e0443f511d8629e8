package debug;

import com.sun.jdi.ArrayReference;
import com.sun.jdi.ArrayType;
import com.sun.jdi.ClassNotLoadedException;
import com.sun.jdi.Field;
import com.sun.jdi.InvalidTypeException;
import com.sun.jdi.ObjectReference;
import com.sun.jdi.PrimitiveValue;
import com.sun.jdi.ReferenceType;
import com.sun.jdi.Value;
import com.sun.jdi.VirtualMachine;
import quillon.compiler.loader.IEvaluatorContext;

/**
 * A value handle on a mirror: a place in the stopped program that a value can be read from and perhaps written to. What kind of
 * place it is, the subclasses know; here is what all have in common, the way from a place to the places inside its value and the
 * conversions between mirrors and Java's own values.
 */
abstract class Handle implements IEvaluatorContext {
    /** The stopped frame that all handles of an evaluation belong to. */
    abstract StoppedFrame frame();

    abstract Value read();

    abstract void write(Value value) throws InvalidTypeException, ClassNotLoadedException;

    /** The class that the place is declared with, or the object was last seen as; null if that is not known or is no class. */
    ReferenceType declaredType() {
        return null;
    }

    public IEvaluatorContext getField(String name) {
        ObjectReference object = (ObjectReference) readReference();
        if (object instanceof ArrayReference && name.equals("length")) return frame().lengthOf((ArrayReference) object);
        Field field = findField(object, name);
        if (field != null) return frame().fieldOf(object, field);
        throw new EvaluationFailure("no field " + name + " in " + object.referenceType().name());
    }

    public IEvaluatorContext getStatic(String className, String name) {
        return frame().staticField(className, name);
    }

    public IEvaluatorContext getIndexed(int index) {
        ArrayReference array = (ArrayReference) readReference();
        if (index < 0 || index >= array.length())
            throw new ArrayIndexOutOfBoundsException("index " + index + " of an array of " + array.length());
        Object declared = declaredType();
        return frame().elementOf(array, (ArrayType) (declared instanceof ArrayType ? declared : array.type()), index);
    }

    /** The language takes the field that the declared class has, whatever a subclass calls its own fields. */
    private Field findField(ObjectReference object, String name) {
        ReferenceType declared = declaredType();
        Field field = declared == null ? null : declared.fieldByName(name);
        return field != null ? field : object.referenceType().fieldByName(name);
    }

    private Value readReference() {
        Value value = read();
        if (value == null) throw new NullPointerException();
        return value;
    }

    private PrimitiveValue readPrimitive() {
        return (PrimitiveValue) read();
    }

    public byte getByteValue() {
        return readPrimitive().byteValue();
    }

    public char getCharValue() {
        return readPrimitive().charValue();
    }

    public short getShortValue() {
        return readPrimitive().shortValue();
    }

    public int getIntValue() {
        return readPrimitive().intValue();
    }

    public long getLongValue() {
        return readPrimitive().longValue();
    }

    public float getFloatValue() {
        return readPrimitive().floatValue();
    }

    public double getDoubleValue() {
        return readPrimitive().doubleValue();
    }

    public boolean getBooleanValue() {
        return readPrimitive().booleanValue();
    }

    public Object getObjectValue() {
        return frame().toObject(read(), declaredType());
    }

    public void setByteValue(byte value) {
        assign(machine().mirrorOf(value));
    }

    public void setCharValue(char value) {
        assign(machine().mirrorOf(value));
    }

    public void setShortValue(short value) {
        assign(machine().mirrorOf(value));
    }

    public void setIntValue(int value) {
        assign(machine().mirrorOf(value));
    }

    public void setLongValue(long value) {
        assign(machine().mirrorOf(value));
    }

    public void setFloatValue(float value) {
        assign(machine().mirrorOf(value));
    }

    public void setDoubleValue(double value) {
        assign(machine().mirrorOf(value));
    }

    public void setBooleanValue(boolean value) {
        assign(machine().mirrorOf(value));
    }

    public void setObjectValue(Object value) {
        assign(frame().toMirror(value));
    }

    private VirtualMachine machine() {
        return frame().machine();
    }

    private void assign(Value value) {
        try {
            write(value);
        } catch (InvalidTypeException failure) {
            // The compiler has checked the declared types, so only an array of a narrower class is left.
            throw new ArrayStoreException(value.type().name());
        } catch (ClassNotLoadedException failure) {
            throw new EvaluationFailure("the program has not loaded class " + failure.className());
        }
    }
}
