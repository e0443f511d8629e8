package debug;

import com.sun.jdi.AbsentInformationException;
import com.sun.jdi.Bootstrap;
import com.sun.jdi.ClassNotLoadedException;
import com.sun.jdi.ClassObjectReference;
import com.sun.jdi.ClassType;
import com.sun.jdi.IncompatibleThreadStateException;
import com.sun.jdi.InterfaceType;
import com.sun.jdi.InvalidTypeException;
import com.sun.jdi.InvocationException;
import com.sun.jdi.Location;
import com.sun.jdi.Method;
import com.sun.jdi.ObjectReference;
import com.sun.jdi.ReferenceType;
import com.sun.jdi.ThreadReference;
import com.sun.jdi.VMDisconnectedException;
import com.sun.jdi.Value;
import com.sun.jdi.VirtualMachine;
import com.sun.jdi.connect.Connector;
import com.sun.jdi.connect.IllegalConnectorArgumentsException;
import com.sun.jdi.connect.LaunchingConnector;
import com.sun.jdi.connect.VMStartException;
import com.sun.jdi.event.BreakpointEvent;
import com.sun.jdi.event.ClassPrepareEvent;
import com.sun.jdi.event.Event;
import com.sun.jdi.event.EventSet;
import com.sun.jdi.event.LocatableEvent;
import com.sun.jdi.event.StepEvent;
import com.sun.jdi.event.VMDisconnectEvent;
import com.sun.jdi.request.BreakpointRequest;
import com.sun.jdi.request.ClassPrepareRequest;
import com.sun.jdi.request.EventRequest;
import com.sun.jdi.request.EventRequestManager;
import com.sun.jdi.request.StepRequest;
import java.io.IOException;
import java.io.InputStream;
import java.io.PrintStream;
import java.util.ArrayList;
import java.util.Enumeration;
import java.util.Hashtable;
import java.util.Iterator;
import java.util.List;
import java.util.Map;
import java.util.Vector;

/**
 * The program under the debugger: launches it, runs it from stop to stop, and calls into it for an evaluation. It is either
 * stopped as a whole, between calls of the methods here, or running, inside of them.
 */
class Session {
    private static final int POLL_MILLISECONDS = 100;
    private static final String[] NOT_STEPPED_INTO = {"java.*", "javax.*", "jdk.*", "sun.*"};

    private final VirtualMachine machine;
    private final PrintStream out;
    private final Vector breakpoints;
    /** The names of the classes that breakpoints wait for, as keys. */
    private final Hashtable watched = new Hashtable();
    private EventSet stop;
    private ThreadReference thread;

    /** A line to stop at; its class may not have been loaded yet. */
    static class Breakpoint {
        final String className;
        final int line;

        Breakpoint(String className, int line) {
            this.className = className;
            this.line = line;
        }
    }

    /** Launches the program, which waits before its first instruction. What it prints is printed to `out`. */
    Session(String options, String commandLine, Vector breakpoints, PrintStream out)
            throws IOException, IllegalConnectorArgumentsException, VMStartException, InterruptedException {
        LaunchingConnector connector = Bootstrap.virtualMachineManager().defaultConnector();
        Map arguments = connector.defaultArguments();
        ((Connector.Argument) arguments.get("options")).setValue(options);
        ((Connector.Argument) arguments.get("main")).setValue(commandLine);
        this.machine = connector.launch(arguments);
        this.out = out;
        this.breakpoints = breakpoints;
        this.stop = machine.eventQueue().remove();
        for (Enumeration e = breakpoints.elements(); e.hasMoreElements();) watch((Breakpoint) e.nextElement());
    }

    /** The thread that hit a breakpoint or made a step; null if the program has not run yet. */
    ThreadReference thread() {
        return thread;
    }

    // ---- breakpoints

    /** Stops there from now on. False if the class is loaded and has no code for that line. */
    boolean add(Breakpoint breakpoint) {
        breakpoints.addElement(breakpoint);
        List loaded = machine.classesByName(breakpoint.className);
        if (loaded.isEmpty()) {
            watch(breakpoint);
            return true;
        }
        return install(breakpoint, (ReferenceType) loaded.get(0));
    }

    /** Asks once for each class to be told when it is loaded. */
    private void watch(Breakpoint breakpoint) {
        if (watched.put(breakpoint.className, breakpoint) != null) return;
        ClassPrepareRequest request = manager().createClassPrepareRequest();
        request.addClassFilter(breakpoint.className);
        request.enable();
    }

    private boolean install(Breakpoint breakpoint, ReferenceType type) {
        try {
            List locations = type.locationsOfLine(breakpoint.line);
            if (locations.isEmpty()) return false;
            Location location = (Location) locations.get(0);
            for (Iterator i = manager().breakpointRequests().iterator(); i.hasNext();)
                if (((BreakpointRequest) i.next()).location().equals(location)) return true;
            manager().createBreakpointRequest(location).enable();
            return true;
        } catch (AbsentInformationException failure) {
            return false;
        }
    }

    private void installAll(ReferenceType type) {
        for (Enumeration e = breakpoints.elements(); e.hasMoreElements();) {
            Breakpoint breakpoint = (Breakpoint) e.nextElement();
            if (!breakpoint.className.equals(type.name()) || install(breakpoint, type)) continue;
            out.println("no code at " + breakpoint.className + ":" + breakpoint.line);
        }
    }

    private EventRequestManager manager() {
        return machine.eventRequestManager();
    }

    // ---- running

    /** Runs to the next stop. False if the program has ended. */
    boolean resume() throws IOException, InterruptedException {
        while (true) {
            stop.resume();
            stop = nextEvents();
            forwardOutput();
            boolean stops = false;
            for (Iterator i = stop.iterator(); i.hasNext();) {
                Event event = (Event) i.next();
                if (event instanceof VMDisconnectEvent) return false;
                if (event instanceof ClassPrepareEvent) installAll(((ClassPrepareEvent) event).referenceType());
                if (event instanceof BreakpointEvent || event instanceof StepEvent) {
                    thread = ((LocatableEvent) event).thread();
                    stops = true;
                }
            }
            if (stops) return true;
        }
    }

    /** As `resume`, but at most to the next line; `depth` is one of the depths of a `StepRequest`. */
    boolean step(int depth) throws IOException, InterruptedException {
        StepRequest request = manager().createStepRequest(thread, StepRequest.STEP_LINE, depth);
        for (int i = 0; i < NOT_STEPPED_INTO.length; i++) request.addClassExclusionFilter(NOT_STEPPED_INTO[i]);
        request.addCountFilter(1);
        request.enable();
        boolean stopped = resume();
        if (stopped) manager().deleteEventRequest(request);
        return stopped;
    }

    /** While it waits it takes what the program prints, so that this is never held up by a full pipe. */
    private EventSet nextEvents() throws IOException, InterruptedException {
        while (true) {
            EventSet events = machine.eventQueue().remove(POLL_MILLISECONDS);
            if (events != null) return events;
            forwardOutput();
        }
    }

    /** What the program printed before it stopped is in the pipes by now, so the order of all output is always the same. */
    private void forwardOutput() throws IOException {
        copyAvailable(machine.process().getInputStream());
        copyAvailable(machine.process().getErrorStream());
    }

    private void copyAvailable(InputStream in) throws IOException {
        byte[] buffer = new byte[4096];
        int count;
        while ((count = Math.min(in.available(), buffer.length)) > 0) out.write(buffer, 0, in.read(buffer, 0, count));
    }

    private void copyAll(InputStream in) throws IOException {
        byte[] buffer = new byte[4096];
        int count;
        while ((count = in.read(buffer)) > 0) out.write(buffer, 0, count);
    }

    /** The exit status of a program that has ended; the rest of what it printed is printed. */
    int exitStatus() throws IOException, InterruptedException {
        copyAll(machine.process().getInputStream());
        copyAll(machine.process().getErrorStream());
        return machine.process().waitFor();
    }

    void kill() {
        try {
            machine.exit(1);
        } catch (VMDisconnectedException alreadyGone) {
            // That is what was wanted.
        }
    }

    // ---- calls into the stopped program

    /**
     * The class of that name, loaded and initialized as a use of it in the stopped method would do it.
     */
    ReferenceType initializedClass(ThreadReference thread, String name) {
        for (Iterator i = machine.classesByName(name).iterator(); i.hasNext();) {
            ReferenceType type = (ReferenceType) i.next();
            // The answer is always yes for an interface.
            if (type.isInitialized() && !(type instanceof InterfaceType)) return type;
        }
        ClassType classClass = (ClassType) machine.classesByName("java.lang.Class").get(0);
        List arguments = new ArrayList();
        arguments.add(machine.mirrorOf(name));
        Value result = call(thread, classClass.classObject(),
                            classClass.concreteMethodByName("forName", "(Ljava/lang/String;)Ljava/lang/Class;"), arguments);
        return ((ClassObjectReference) result).reflectedType();
    }

    /**
     * Lets one thread of the program run a method to its end. Nothing may stop it on the way, since nobody would set it going
     * again; breakpoints in classes that it loads are set afterwards. `arguments` may be null for none.
     */
    Value call(ThreadReference thread, ObjectReference object, Method method, List arguments) {
        if (arguments == null) arguments = new ArrayList();
        enableRequests(false);
        try {
            if (!method.isStatic())
                return object.invokeMethod(thread, method, arguments, ObjectReference.INVOKE_SINGLE_THREADED);
            ClassType type = (ClassType) method.declaringType();
            return type.invokeMethod(thread, method, arguments, ClassType.INVOKE_SINGLE_THREADED);
        } catch (InvocationException failure) {
            throw new EvaluationFailure(failure.exception().referenceType().name() + " in the program");
        } catch (InvalidTypeException failure) {
            throw new EvaluationFailure(failure.toString());
        } catch (ClassNotLoadedException failure) {
            throw new EvaluationFailure(failure.toString());
        } catch (IncompatibleThreadStateException failure) {
            throw new EvaluationFailure("the thread cannot run a method here");
        } finally {
            enableRequests(true);
            installLoaded();
        }
    }

    private void enableRequests(boolean enable) {
        setEnabled(manager().breakpointRequests(), enable);
        setEnabled(manager().classPrepareRequests(), enable);
    }

    private static void setEnabled(List requests, boolean enable) {
        for (Iterator i = requests.iterator(); i.hasNext();) ((EventRequest) i.next()).setEnabled(enable);
    }

    private void installLoaded() {
        for (Enumeration e = breakpoints.elements(); e.hasMoreElements();) {
            Breakpoint breakpoint = (Breakpoint) e.nextElement();
            List loaded = machine.classesByName(breakpoint.className);
            if (!loaded.isEmpty()) install(breakpoint, (ReferenceType) loaded.get(0));
        }
    }
}
