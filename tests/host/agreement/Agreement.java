import java.io.ByteArrayOutputStream;
import java.io.FileInputStream;
import java.io.IOException;
import java.io.InputStream;
import java.lang.reflect.Method;
import quillon.compiler.loader.IExpression;

/**
 * Runs each expression twice: as a method of `Subject`, and as the class that was made of it, over a frame with the same
 * variables. Both must give the same value and leave the same state, or fail with the same exception.
 */
public class Agreement extends ClassLoader {
    private final String folder;

    private Agreement(String folder) {
        this.folder = folder;
    }

    protected Class findClass(String name) throws ClassNotFoundException {
        try {
            InputStream in = new FileInputStream(folder + "/" + name.substring(name.lastIndexOf('.') + 1) + ".class");
            ByteArrayOutputStream bytes = new ByteArrayOutputStream();
            for (int b = in.read(); b >= 0; b = in.read()) bytes.write(b);
            in.close();
            return defineClass(name, bytes.toByteArray(), 0, bytes.size());
        } catch (IOException failure) {
            throw new ClassNotFoundException(name);
        }
    }

    private String evaluate(int number) throws Exception {
        Class c = loadClass("quillon.compiler.loader.E" + number);
        Frame frame = Subject.frame();
        String value;
        try {
            value = Subject.show(Value.unwrap(((IExpression) c.newInstance()).eval(frame)));
        } catch (RuntimeException failure) {
            value = failure.getClass().getName();
        }
        return value + Subject.state(frame);
    }

    private static String call(int number) throws Exception {
        Method method = Subject.class.getMethod("n" + number, new Class[0]);
        return (String) method.invoke(new Subject(1), new Object[0]);
    }

    public static void main(String[] args) throws Exception {
        int count = Integer.parseInt(args[1]);
        int different = 0;
        for (int i = 1; i <= count; i++) {
            Subject.reset();
            String expected = call(i);
            Subject.reset();
            String found;
            try {
                found = new Agreement(args[0]).evaluate(i);
            } catch (Error failure) {
                found = failure.toString();
            }
            if (expected.equals(found)) continue;
            System.out.println("expression " + i + ": " + expected + "\n  but " + found);
            different++;
        }
        System.out.println(count + " expressions, " + different + " differ");
    }
}
