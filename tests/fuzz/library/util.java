package java.util;

// What programs use of java.util, by its interface alone.

public interface Enumeration {
    boolean hasMoreElements();
    Object nextElement();
}

public class NoSuchElementException extends RuntimeException {
    public NoSuchElementException() {}
    public NoSuchElementException(String message) { super(message); }
}
public class EmptyStackException extends RuntimeException {}

public class Vector implements Cloneable, java.io.Serializable {
    protected Object[] elementData;
    protected int elementCount;
    public Vector() {}
    public Vector(int capacity) {}
    public final int size() { return elementCount; }
    public final native boolean isEmpty();
    public final native Enumeration elements();
    public final native boolean contains(Object o);
    public final native int indexOf(Object o);
    public final native Object elementAt(int at);
    public final native Object firstElement();
    public final native Object lastElement();
    public final native void setElementAt(Object o, int at);
    public final native void removeElementAt(int at);
    public final native void insertElementAt(Object o, int at);
    public final native void addElement(Object o);
    public final native boolean removeElement(Object o);
    public final native void removeAllElements();
    public final native void copyInto(Object[] into);
    public native Object clone();
    public native String toString();
}

public class Stack extends Vector {
    public native Object push(Object o);
    public native Object pop();
    public native Object peek();
    public native boolean empty();
}

public abstract class Dictionary {
    public abstract int size();
    public abstract Enumeration keys();
    public abstract Enumeration elements();
    public abstract Object get(Object key);
    public abstract Object put(Object key, Object value);
    public abstract Object remove(Object key);
}

public class Hashtable extends Dictionary implements Cloneable {
    private static class Entry {
        Object key;
        Entry next;
    }
    public static class Keys implements Enumeration {
        public native boolean hasMoreElements();
        public native Object nextElement();
    }
    private Entry[] table;
    public Hashtable() {}
    public Hashtable(int capacity) {}
    public native int size();
    public native boolean isEmpty();
    public Enumeration keys() { return new Keys(); }
    public native Enumeration elements();
    public native boolean containsKey(Object key);
    public native Object get(Object key);
    public native Object put(Object key, Object value);
    public native Object remove(Object key);
    public native void clear();
}

public class StringTokenizer implements Enumeration {
    public StringTokenizer(String s) {}
    public StringTokenizer(String s, String delimiters) {}
    public StringTokenizer(String s, String delimiters, boolean returned) {}
    public native boolean hasMoreTokens();
    public native String nextToken();
    public native String nextToken(String delimiters);
    public native boolean hasMoreElements();
    public native Object nextElement();
    public native int countTokens();
}

public class Random {
    public Random() {}
    public Random(long seed) {}
    public native int nextInt();
    public native long nextLong();
    public native double nextDouble();
}

public class EventObject {
    protected Object source;
    public EventObject(Object source) {}
    public native Object getSource();
}
public interface EventListener {}
