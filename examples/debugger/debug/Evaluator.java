package debug;

import com.sun.jdi.AbsentInformationException;
import com.sun.jdi.Location;
import java.io.ByteArrayOutputStream;
import java.io.File;
import java.io.FileInputStream;
import java.io.IOException;
import java.io.InputStream;
import java.util.StringTokenizer;
import quillon.compiler.loader.IExpression;

/** Evaluates expressions in stopped frames: has them compiled, loads what comes of it, and runs that on the frame. */
class Evaluator {
    private final String compiler;
    private final String classPath;
    private final String sourcePath;

    /** `compiler` is the path of the program `tarn-eval`. */
    Evaluator(String compiler, String classPath, String sourcePath) {
        this.compiler = compiler;
        this.classPath = classPath;
        this.sourcePath = sourcePath;
    }

    /** What `IExpression.eval` gives. Throws an `EvaluationFailure` if the expression has no value. */
    Object evaluate(StoppedFrame frame, String expression) throws IOException, InterruptedException {
        Location location = frame.mirror().location();
        File output = File.createTempFile("expression", ".class");
        try {
            compile(sourceOf(location), location.lineNumber(), expression, output);
            return run(load(output), frame);
        } finally {
            output.delete();
        }
    }

    private String sourceOf(Location location) {
        String path;
        try {
            path = location.sourcePath();
        } catch (AbsentInformationException failure) {
            throw new EvaluationFailure("the source of " + location.declaringType().name() + " is unknown");
        }
        for (StringTokenizer folders = new StringTokenizer(sourcePath, File.pathSeparator); folders.hasMoreTokens();) {
            File file = new File(folders.nextToken(), path);
            if (file.isFile()) return file.getPath();
        }
        throw new EvaluationFailure("no source " + path);
    }

    private void compile(String source, int line, String expression, File output) throws IOException, InterruptedException {
        String[] command = {compiler, "-classpath", classPath, "-sourcepath", sourcePath, "--",
                            source, String.valueOf(line), expression, output.getPath()};
        Process process;
        try {
            process = Runtime.getRuntime().exec(command);
        } catch (IOException failure) {
            throw new EvaluationFailure(failure.getMessage());
        }
        process.getOutputStream().close();
        String messages = new String(readAll(process.getInputStream())) + new String(readAll(process.getErrorStream()));
        if (process.waitFor() != 0) throw new EvaluationFailure(messages.trim());
    }

    private static IExpression load(File file) throws IOException {
        try {
            InputStream in = new FileInputStream(file);
            return (IExpression) new ExpressionLoader(readAll(in)).load().newInstance();
        } catch (InstantiationException failure) {
            throw new EvaluationFailure(failure.toString());
        } catch (IllegalAccessException failure) {
            throw new EvaluationFailure(failure.toString());
        } catch (VerifyError failure) {
            throw new EvaluationFailure("an object of the program cannot be used like that outside of it");
        }
    }

    private static Object run(IExpression expression, StoppedFrame frame) {
        try {
            return expression.eval(frame);
        } catch (EvaluationFailure failure) {
            throw failure;
        } catch (NoClassDefFoundError failure) {
            throw new EvaluationFailure("class " + failure.getMessage().replace('/', '.') + " is there in the program only");
        } catch (NullPointerException failure) {
            throw new EvaluationFailure(failure.getClass().getName()); // its text would be about the expression's class
        } catch (RuntimeException failure) {
            throw new EvaluationFailure(failure.toString());
        }
    }

    /** What is left of the stream, which is closed. */
    private static byte[] readAll(InputStream in) throws IOException {
        try {
            ByteArrayOutputStream out = new ByteArrayOutputStream();
            byte[] buffer = new byte[4096];
            int count;
            while ((count = in.read(buffer)) > 0) out.write(buffer, 0, count);
            return out.toByteArray();
        } finally {
            in.close();
        }
    }
}
