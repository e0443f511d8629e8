package debug;

import com.sun.jdi.AbsentInformationException;
import com.sun.jdi.IncompatibleThreadStateException;
import com.sun.jdi.LocalVariable;
import com.sun.jdi.Location;
import com.sun.jdi.StackFrame;
import com.sun.jdi.ThreadReference;
import com.sun.jdi.connect.IllegalConnectorArgumentsException;
import com.sun.jdi.connect.VMStartException;
import com.sun.jdi.request.StepRequest;
import java.io.BufferedReader;
import java.io.FileReader;
import java.io.IOException;
import java.io.InputStreamReader;
import java.io.PrintStream;
import java.util.Hashtable;
import java.util.Iterator;
import java.util.Vector;

/**
 * A small source-level debugger of the command line. It launches a program, stops it at lines, and evaluates expressions there in
 * the language of the program, assignments included. `help` lists the commands; README.md tells how to start it.
 */
public class Debugger {
    private static final String USAGE = "usage: java debug.Debugger -eval TARN-EVAL -library CLASSES.zip -classpath PATH"
        + " -sourcepath PATH [-script FILE] CLASS [ARGUMENT...]";

    /** A command, by its first word. */
    private interface Command {
        void run(String rest) throws IOException, InterruptedException;
    }

    /** A command was used wrongly, or at the wrong time. */
    private static class Misuse extends RuntimeException {
        Misuse(String text) {
            super(text);
        }
    }

    private final Hashtable commands = new Hashtable();
    private final Vector breakpoints = new Vector();
    private final PrintStream out = System.out;
    private final String options;
    private final String commandLine;
    private final Evaluator evaluator;
    private Session session;
    private int frameIndex;
    private boolean done;

    /** `options` are those of the program's virtual machine, `commandLine` is its class with the arguments. */
    Debugger(String options, String commandLine, Evaluator evaluator) {
        this.options = options;
        this.commandLine = commandLine;
        this.evaluator = evaluator;
        defineRunning();
        defineLooking();
    }

    private void defineRunning() {
        commands.put("stop", new Command() {
            public void run(String rest) {
                stopAt(rest);
            }
        });
        commands.put("run", new Command() {
            public void run(String rest) throws IOException, InterruptedException {
                launch();
            }
        });
        commands.put("cont", new Command() {
            public void run(String rest) throws IOException, InterruptedException {
                stoppedThread();
                report(session.resume());
            }
        });
        class Step implements Command {
            private final int depth;

            Step(int depth) {
                this.depth = depth;
            }

            public void run(String rest) throws IOException, InterruptedException {
                stoppedThread();
                report(session.step(depth));
            }
        }
        commands.put("step", new Step(StepRequest.STEP_INTO));
        commands.put("next", new Step(StepRequest.STEP_OVER));
        commands.put("finish", new Step(StepRequest.STEP_OUT));
        commands.put("quit", new Command() {
            public void run(String rest) {
                done = true;
            }
        });
    }

    private void defineLooking() {
        commands.put("print", new Command() {
            public void run(String rest) throws IOException, InterruptedException {
                StoppedFrame frame = stoppedFrame();
                out.println(new Printer(frame).describe(evaluator.evaluate(frame, rest)));
            }
        });
        commands.put("set", new Command() {
            public void run(String rest) throws IOException, InterruptedException {
                evaluator.evaluate(stoppedFrame(), rest);
            }
        });
        commands.put("locals", new Command() {
            public void run(String rest) {
                printLocals();
            }
        });
        commands.put("where", new Command() {
            public void run(String rest) {
                printFrames();
            }
        });
        commands.put("frame", new Command() {
            public void run(String rest) {
                selectFrame(rest);
            }
        });
        commands.put("help", new Command() {
            public void run(String rest) {
                out.println("stop at CLASS:LINE, run, cont, step, next, finish, print EXPRESSION, set EXPRESSION, locals,");
                out.println("where, frame NUMBER, quit");
            }
        });
    }

    // ---- the commands

    private void stopAt(String rest) {
        int colon = rest.lastIndexOf(':');
        if (!rest.startsWith("at ") || colon < 0) throw new Misuse("stop at CLASS:LINE");
        int line = number(rest.substring(colon + 1));
        Session.Breakpoint breakpoint = new Session.Breakpoint(rest.substring(3, colon).trim(), line);
        if (session == null)
            breakpoints.addElement(breakpoint);
        else if (!session.add(breakpoint))
            throw new Misuse("no code at line " + line);
    }

    private void launch() throws IOException, InterruptedException {
        if (session != null) throw new Misuse("the program is running already");
        try {
            session = new Session(options, commandLine, breakpoints, out);
        } catch (IllegalConnectorArgumentsException failure) {
            throw new Misuse(failure.toString());
        } catch (VMStartException failure) {
            throw new Misuse(failure.toString());
        }
        report(session.resume());
    }

    /** Tells where the program has stopped, or that it has ended. */
    private void report(boolean stopped) throws IOException, InterruptedException {
        frameIndex = 0;
        if (stopped) {
            out.println("stopped at " + placeOf(stoppedFrame().mirror().location()));
            return;
        }
        out.println("the program has ended with status " + session.exitStatus());
        session = null;
    }

    private void printLocals() {
        StoppedFrame frame = stoppedFrame();
        StackFrame mirror = frame.mirror();
        Printer printer = new Printer(frame);
        Vector names = new Vector();
        try {
            for (Iterator i = mirror.visibleVariables().iterator(); i.hasNext();) {
                String name = ((LocalVariable) i.next()).name();
                int at = 0;
                while (at < names.size() && name.compareTo((String) names.elementAt(at)) > 0) at++;
                names.insertElementAt(name, at);
            }
            for (int i = 0; i < names.size(); i++) {
                String name = (String) names.elementAt(i);
                // The mirror is asked for again, since printing may call into the program.
                StackFrame current = frame.mirror();
                out.println(name + " = " + printer.describe(current.getValue(current.visibleVariableByName(name))));
            }
        } catch (AbsentInformationException failure) {
            throw new Misuse("the class was compiled without -g");
        }
    }

    private void printFrames() {
        ThreadReference thread = stoppedThread();
        for (int i = 0; i < frameCount(thread); i++) {
            String mark = i == frameIndex ? "* " : "  ";
            out.println(mark + i + " " + placeOf(new StoppedFrame(session, thread, i).mirror().location()));
        }
    }

    private void selectFrame(String rest) {
        int chosen = number(rest);
        if (chosen >= frameCount(stoppedThread())) throw new Misuse("no frame " + chosen);
        frameIndex = chosen;
    }

    // ---- what they share

    private ThreadReference stoppedThread() {
        if (session == null) throw new Misuse("the program is not running");
        return session.thread();
    }

    private StoppedFrame stoppedFrame() {
        return new StoppedFrame(session, stoppedThread(), frameIndex);
    }

    private static int frameCount(ThreadReference thread) {
        try {
            return thread.frameCount();
        } catch (IncompatibleThreadStateException failure) {
            throw new Misuse("the thread is not stopped");
        }
    }

    private static String placeOf(Location location) {
        String source;
        try {
            source = location.sourceName();
        } catch (AbsentInformationException failure) {
            source = "unknown source";
        }
        return location.declaringType().name() + "." + location.method().name() + "(" + source + ":" + location.lineNumber() + ")";
    }

    private static int number(String text) {
        try {
            int number = Integer.parseInt(text.trim());
            if (number >= 0) return number;
        } catch (NumberFormatException failure) {
            // Told below.
        }
        throw new Misuse("no number: " + text);
    }

    // ---- the command line

    /** Runs commands until `quit` or the end of the input. A script's commands are shown before what they print. */
    void runCommands(BufferedReader in, boolean echo) throws IOException, InterruptedException {
        String line;
        while (!done && (line = in.readLine()) != null) {
            line = line.trim();
            if (line.length() == 0 || line.startsWith("#")) continue;
            if (echo) out.println("> " + line);
            runCommand(line);
            out.flush();
        }
        if (session != null) session.kill();
    }

    private void runCommand(String line) throws IOException, InterruptedException {
        int space = line.indexOf(' ');
        String word = space < 0 ? line : line.substring(0, space);
        Command command = (Command) commands.get(word);
        try {
            if (command == null) throw new Misuse("no command " + word);
            command.run(space < 0 ? "" : line.substring(space + 1).trim());
        } catch (Misuse failure) {
            out.println(failure.getMessage());
        } catch (EvaluationFailure failure) {
            out.println(failure.getMessage());
        }
    }

    /** Takes the options off the front of the command line; gives the index of the first other word. */
    private static int readOptions(String[] words, Hashtable options) {
        int at = 0;
        for (; at + 1 < words.length && words[at].startsWith("-"); at += 2) options.put(words[at], words[at + 1]);
        return at;
    }

    public static void main(String[] words) throws IOException, InterruptedException {
        Hashtable options = new Hashtable();
        int first = readOptions(words, options);
        String compiler = (String) options.get("-eval");
        String library = (String) options.get("-library");
        String classPath = (String) options.get("-classpath");
        String sourcePath = (String) options.get("-sourcepath");
        if (first == words.length || compiler == null || library == null || classPath == null || sourcePath == null) {
            System.err.println(USAGE);
            System.exit(2);
        }
        StringBuffer commandLine = new StringBuffer();
        for (int i = first; i < words.length; i++) commandLine.append('"').append(words[i]).append("\" ");

        // The interfaces of expressions are on the debugger's own class path.
        String separator = System.getProperty("path.separator");
        String wholePath = library + separator + classPath + separator + System.getProperty("java.class.path");
        Debugger debugger = new Debugger("-cp \"" + classPath + "\"", commandLine.toString(),
                                         new Evaluator(compiler, wholePath, sourcePath));
        String script = (String) options.get("-script");
        BufferedReader in = new BufferedReader(script == null ? new InputStreamReader(System.in) : new FileReader(script));
        debugger.runCommands(in, script != null);
        System.exit(0);
    }
}
