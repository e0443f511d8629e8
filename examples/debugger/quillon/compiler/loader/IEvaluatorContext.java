package quillon.compiler.loader;

/**
 * A value handle: how an expression's class reaches the stopped program. The object given to `IExpression.eval` stands for the
 * frame, and its fields are the variables of the frame, `this` among them. All other handles stand for a variable, a field or an
 * array element, or, if they came from `getObjectValue`, for an object or array. Expressions call these methods by name and
 * descriptor, so a host implements them as they stand here.
 */
public interface IEvaluatorContext {
    /** The handle of a variable of the frame, or of an instance field of the object that this handle holds; of an array `length`. */
    IEvaluatorContext getField(String name);

    /** The handle of a static field; `className` is as `Class.forName` takes it. */
    IEvaluatorContext getStatic(String className, String name);

    /** The handle of an element of the array that this handle holds. */
    IEvaluatorContext getIndexed(int index);

    byte getByteValue();

    char getCharValue();

    short getShortValue();

    int getIntValue();

    long getLongValue();

    float getFloatValue();

    double getDoubleValue();

    boolean getBooleanValue();

    /**
     * Null, a `String`, or a handle (an `IEvaluatorContext`) of the array or object that is the value. Two handles of one object are
     * the same, so that expressions can compare them.
     */
    Object getObjectValue();

    void setByteValue(byte value);

    void setCharValue(char value);

    void setShortValue(short value);

    void setIntValue(int value);

    void setLongValue(long value);

    void setFloatValue(float value);

    void setDoubleValue(double value);

    void setBooleanValue(boolean value);

    /** `value` is what `getObjectValue` may give, or an object that the expression itself made. */
    void setObjectValue(Object value);
}
