package java.lang;

// What programs use of java.lang, by its interface alone: a library to compile against, on any machine.

public class Object {
    public Object() {}
    public final native Class getClass();
    public native int hashCode();
    public boolean equals(Object other) { return this == other; }
    protected native Object clone() throws CloneNotSupportedException;
    public String toString() { return getClass().getName(); }
    public final native void notify();
    public final native void notifyAll();
    public final void wait() throws InterruptedException { wait(0); }
    public final native void wait(long millis) throws InterruptedException;
    protected void finalize() throws Throwable {}
}

public interface Cloneable {}
public interface Runnable { void run(); }

public final class Class {
    private Class() {}
    public static native Class forName(String name) throws ClassNotFoundException;
    public native Object newInstance() throws InstantiationException, IllegalAccessException;
    public native String getName();
    public native Class getSuperclass();
    public native Class getComponentType();
    public native Class[] getInterfaces();
    public native boolean isInterface();
    public native boolean isArray();
    public native boolean isInstance(Object o);
}

public final class String {
    public String() {}
    public String(String value) {}
    public String(char[] value) {}
    public String(char[] value, int from, int count) {}
    public String(byte[] value) {}
    public native int length();
    public native char charAt(int at);
    public native void getChars(int begin, int end, char[] into, int at);
    public native char[] toCharArray();
    public native boolean equals(Object other);
    public native boolean equalsIgnoreCase(String other);
    public native int compareTo(String other);
    public native boolean startsWith(String prefix);
    public native boolean startsWith(String prefix, int at);
    public native boolean endsWith(String suffix);
    public native int hashCode();
    public native int indexOf(int c);
    public native int indexOf(int c, int from);
    public native int indexOf(String s);
    public native int indexOf(String s, int from);
    public native int lastIndexOf(int c);
    public native int lastIndexOf(String s);
    public native String substring(int begin);
    public native String substring(int begin, int end);
    public native String concat(String s);
    public native String replace(char from, char to);
    public native String toLowerCase();
    public native String toUpperCase();
    public native String trim();
    public String toString() { return this; }
    public native String intern();
    public static native String valueOf(Object o);
    public static native String valueOf(char[] c);
    public static native String valueOf(boolean b);
    public static native String valueOf(char c);
    public static native String valueOf(int i);
    public static native String valueOf(long l);
    public static native String valueOf(float f);
    public static native String valueOf(double d);
}

public final class StringBuffer {
    public StringBuffer() {}
    public StringBuffer(int capacity) {}
    public StringBuffer(String s) {}
    public native int length();
    public native void setLength(int length);
    public native char charAt(int at);
    public native void setCharAt(int at, char c);
    public native StringBuffer append(Object o);
    public native StringBuffer append(String s);
    public native StringBuffer append(char[] c);
    public native StringBuffer append(boolean b);
    public native StringBuffer append(char c);
    public native StringBuffer append(int i);
    public native StringBuffer append(long l);
    public native StringBuffer append(float f);
    public native StringBuffer append(double d);
    public native StringBuffer insert(int at, Object o);
    public native StringBuffer insert(int at, String s);
    public native StringBuffer insert(int at, char c);
    public native StringBuffer reverse();
    public native String toString();
}

public abstract class Number {
    public abstract int intValue();
    public abstract long longValue();
    public abstract float floatValue();
    public abstract double doubleValue();
    public byte byteValue() { return (byte) intValue(); }
    public short shortValue() { return (short) intValue(); }
}

public final class Integer extends Number {
    public static final int MIN_VALUE = 0x80000000;
    public static final int MAX_VALUE = 0x7fffffff;
    public static final Class TYPE = null;
    private int value;
    public Integer(int value) { this.value = value; }
    public int intValue() { return value; }
    public long longValue() { return value; }
    public float floatValue() { return value; }
    public double doubleValue() { return value; }
    public static native String toString(int i);
    public static native String toString(int i, int radix);
    public static native String toHexString(int i);
    public static native String toBinaryString(int i);
    public static native int parseInt(String s) throws NumberFormatException;
    public static native int parseInt(String s, int radix) throws NumberFormatException;
    public static native Integer valueOf(String s) throws NumberFormatException;
}

public final class Long extends Number {
    public static final long MIN_VALUE = 0x8000000000000000L;
    public static final long MAX_VALUE = 0x7fffffffffffffffL;
    public static final Class TYPE = null;
    private long value;
    public Long(long value) { this.value = value; }
    public int intValue() { return (int) value; }
    public long longValue() { return value; }
    public float floatValue() { return value; }
    public double doubleValue() { return value; }
    public static native String toString(long l);
    public static native String toHexString(long l);
    public static native long parseLong(String s) throws NumberFormatException;
}

public final class Float extends Number {
    public static final float POSITIVE_INFINITY = 1.0f / 0.0f;
    public static final float NEGATIVE_INFINITY = -1.0f / 0.0f;
    public static final float NaN = 0.0f / 0.0f;
    public static final float MAX_VALUE = 3.40282346638528860e+38f;
    public static final float MIN_VALUE = 1.40129846432481707e-45f;
    public static final Class TYPE = null;
    private float value;
    public Float(float value) { this.value = value; }
    public int intValue() { return (int) value; }
    public long longValue() { return (long) value; }
    public float floatValue() { return value; }
    public double doubleValue() { return value; }
    public static native boolean isNaN(float f);
    public static native int floatToIntBits(float f);
    public static native float intBitsToFloat(int bits);
}

public final class Double extends Number {
    public static final double POSITIVE_INFINITY = 1.0 / 0.0;
    public static final double NEGATIVE_INFINITY = -1.0 / 0.0;
    public static final double NaN = 0.0d / 0.0;
    public static final double MAX_VALUE = 1.79769313486231570e+308;
    public static final double MIN_VALUE = 4.94065645841246544e-324;
    public static final Class TYPE = null;
    private double value;
    public Double(double value) { this.value = value; }
    public int intValue() { return (int) value; }
    public long longValue() { return (long) value; }
    public float floatValue() { return (float) value; }
    public double doubleValue() { return value; }
    public native boolean isNaN();
    public static native boolean isNaN(double d);
    public static native String toString(double d);
    public static native Double valueOf(String s) throws NumberFormatException;
    public static native long doubleToLongBits(double d);
    public static native double longBitsToDouble(long bits);
}

public final class Byte {
    public Byte(byte value) {}
    public static final byte MIN_VALUE = -128;
    public static final byte MAX_VALUE = 127;
    public static final Class TYPE = null;
}

public final class Short {
    public Short(short value) {}
    public static final short MIN_VALUE = -32768;
    public static final short MAX_VALUE = 32767;
    public static final Class TYPE = null;
    public static native short parseShort(String s) throws NumberFormatException;
}

public final class Character {
    public static final char MIN_VALUE = '\u0000';
    public static final char MAX_VALUE = '\uffff';
    public static final int MIN_RADIX = 2;
    public static final Class TYPE = null;
    private char value;
    public Character(char value) { this.value = value; }
    public char charValue() { return value; }
    public static native boolean isDigit(char c);
    public static native boolean isLetter(char c);
    public static native boolean isLetterOrDigit(char c);
    public static native boolean isUpperCase(char c);
    public static native boolean isLowerCase(char c);
    public static native boolean isWhitespace(char c);
    public static native boolean isSpaceChar(char c);
    public static native char toUpperCase(char c);
    public static native char toLowerCase(char c);
    public static native int digit(char c, int radix);
    public static native char forDigit(int digit, int radix);
}

public final class Boolean {
    public static final Boolean TRUE = new Boolean(true);
    public static final Boolean FALSE = new Boolean(false);
    public static final Class TYPE = null;
    private boolean value;
    public Boolean(boolean value) { this.value = value; }
    public boolean booleanValue() { return value; }
}

public final class Void {
    public static final Class TYPE = null;
}

public final class Math {
    public static final double PI = 3.14159265358979323846;
    public static final double E = 2.7182818284590452354;
    private Math() {}
    public static native double sin(double a);
    public static native double cos(double a);
    public static native double sqrt(double a);
    public static native double pow(double a, double b);
    public static native double floor(double a);
    public static native double rint(double a);
    public static native long round(double a);
    public static native int round(float a);
    public static int abs(int a) { return a < 0 ? -a : a; }
    public static long abs(long a) { return a < 0 ? -a : a; }
    public static float abs(float a) { return a < 0 ? -a : a; }
    public static double abs(double a) { return a < 0 ? -a : a; }
    public static int max(int a, int b) { return a >= b ? a : b; }
    public static long max(long a, long b) { return a >= b ? a : b; }
    public static double max(double a, double b) { return a >= b ? a : b; }
    public static int min(int a, int b) { return a <= b ? a : b; }
    public static long min(long a, long b) { return a <= b ? a : b; }
    public static double min(double a, double b) { return a <= b ? a : b; }
}

public final class System {
    public static final java.io.PrintStream out = null;
    public static final java.io.PrintStream err = null;
    private System() {}
    public static native long currentTimeMillis();
    public static native void arraycopy(Object from, int at, Object to, int toAt, int count);
    public static native int identityHashCode(Object o);
    public static native void exit(int status);
    public static native void gc();
}

public class Thread implements Runnable {
    public Thread() {}
    public Thread(Runnable target) {}
    public Thread(Runnable target, String name) {}
    public Thread(String name) {}
    public void run() {}
    public native void start();
    public final native void join() throws InterruptedException;
    public final native boolean isAlive();
    public final native void setDaemon(boolean on);
    public final native String getName();
    public static native Thread currentThread();
    public static native void yield();
    public static native void sleep(long millis) throws InterruptedException;
    /** @deprecated */
    public final native void stop();
}

public class Throwable {
    public Throwable() {}
    public Throwable(String message) {}
    public native String getMessage();
    public native void printStackTrace();
}

public class Error extends Throwable {
    public Error() {}
    public Error(String message) { super(message); }
}
public class LinkageError extends Error {
    public LinkageError(String message) { super(message); }
}
public class NoClassDefFoundError extends LinkageError {
    public NoClassDefFoundError(String message) { super(message); }
}
public class ExceptionInInitializerError extends LinkageError {
    public ExceptionInInitializerError(String message) { super(message); }
    public native Throwable getException();
}
public class StackOverflowError extends Error {}
public class InternalError extends Error {
    public InternalError() {}
    public InternalError(String message) { super(message); }
}

public class Exception extends Throwable {
    public Exception() {}
    public Exception(String message) { super(message); }
}
public class ClassNotFoundException extends Exception {}
public class CloneNotSupportedException extends Exception {}
public class IllegalAccessException extends Exception {}
public class InstantiationException extends Exception {}
public class InterruptedException extends Exception {
    public InterruptedException() {}
    public InterruptedException(String message) { super(message); }
}

public class RuntimeException extends Exception {
    public RuntimeException() {}
    public RuntimeException(String message) { super(message); }
}
public class ArithmeticException extends RuntimeException {
    public ArithmeticException() {}
    public ArithmeticException(String message) { super(message); }
}
public class ArrayStoreException extends RuntimeException {}
public class ClassCastException extends RuntimeException {
    public ClassCastException() {}
    public ClassCastException(String message) { super(message); }
}
public class IllegalArgumentException extends RuntimeException {
    public IllegalArgumentException() {}
    public IllegalArgumentException(String message) { super(message); }
}
public class NumberFormatException extends IllegalArgumentException {
    public NumberFormatException() {}
    public NumberFormatException(String message) { super(message); }
}
public class IllegalMonitorStateException extends RuntimeException {}
public class IllegalStateException extends RuntimeException {
    public IllegalStateException() {}
    public IllegalStateException(String message) { super(message); }
}
public class IndexOutOfBoundsException extends RuntimeException {
    public IndexOutOfBoundsException() {}
    public IndexOutOfBoundsException(String message) { super(message); }
}
public class ArrayIndexOutOfBoundsException extends IndexOutOfBoundsException {}
public class StringIndexOutOfBoundsException extends IndexOutOfBoundsException {}
public class NegativeArraySizeException extends RuntimeException {}
public class NullPointerException extends RuntimeException {
    public NullPointerException() {}
    public NullPointerException(String message) { super(message); }
}
