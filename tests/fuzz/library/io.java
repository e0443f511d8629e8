package java.io;

// What programs use of java.io, by its interface alone.

public interface Serializable {}

public class IOException extends Exception {
    public IOException() {}
    public IOException(String message) { super(message); }
}
public class EOFException extends IOException {
    public EOFException() {}
    public EOFException(String message) { super(message); }
}

public abstract class OutputStream {
    public abstract void write(int b) throws IOException;
    public void flush() throws IOException {}
    public void close() throws IOException {}
}
public class ByteArrayOutputStream extends OutputStream {
    public native void write(int b);
    public native byte[] toByteArray();
    public native int size();
}

public class PrintStream extends OutputStream {
    public PrintStream(OutputStream out) {}
    public native void write(int b);
    public native void flush();
    public native void print(Object o);
    public native void print(String s);
    public native void print(char[] c);
    public native void print(boolean b);
    public native void print(char c);
    public native void print(int i);
    public native void print(long l);
    public native void print(float f);
    public native void print(double d);
    public native void println();
    public native void println(Object o);
    public native void println(String s);
    public native void println(char[] c);
    public native void println(boolean b);
    public native void println(char c);
    public native void println(int i);
    public native void println(long l);
    public native void println(float f);
    public native void println(double d);
}

public abstract class Writer {
    protected Object lock;
    public void write(int c) throws IOException {}
    public void write(String s) throws IOException {}
    public abstract void flush() throws IOException;
    public abstract void close() throws IOException;
}
public class StringWriter extends Writer {
    public native void flush();
    public native void close() throws IOException;
}
public class PrintWriter extends Writer {
    public PrintWriter(Writer out) {}
    public PrintWriter(OutputStream out, boolean autoFlush) {}
    public native void flush();
    public native void close();
    public native void print(char c);
    public native void print(int i);
    public native void print(String s);
    public native void print(Object o);
    public native void println();
    public native void println(int i);
    public native void println(String s);
    public native void println(Object o);
}

public abstract class Reader {
    protected Object lock;
    public int read() throws IOException { return -1; }
    public abstract void close() throws IOException;
}
public class StringReader extends Reader {
    public StringReader(String s) {}
    public native void close();
}
public class PushbackReader extends Reader {
    public PushbackReader(Reader in) {}
    public PushbackReader(Reader in, int size) {}
    public native void unread(int c) throws IOException;
    public native void close() throws IOException;
}
public class BufferedReader extends Reader {
    public BufferedReader(Reader in) {}
    public native String readLine() throws IOException;
    public native void close() throws IOException;
}
