package calc.run;

import java.io.PrintWriter;
import java.util.Stack;

/** The state of a running program: its variables, the calls that are open, and how much it has done. */
public class Machine {
    private static final int MOST_STEPS = 1000000, MOST_CALLS = 200;

    private final PrintWriter out;
    private final Scope global = new Scope(null);
    private Scope scope = global;
    private final Stack callers = new Stack();
    private Value result;
    private int steps;

    public Machine(PrintWriter out) {
        this.out = out;
        BuiltIn.define(this);
    }

    public void step() throws CalcException {
        if (++steps > MOST_STEPS) throw new CalcException("more than " + MOST_STEPS + " steps");
    }

    public int steps() {
        return steps;
    }

    public void print(String s) {
        out.println(s);
    }

    public void enter() {
        scope = new Scope(scope);
    }

    public void leave() {
        scope = scope.outer;
    }

    /** A called function sees the global variables and its own. */
    public void call() throws CalcException {
        if (callers.size() == MOST_CALLS) throw new CalcException("calls are nested too deeply");
        callers.push(scope);
        scope = new Scope(outermost());
    }

    public void finish() {
        scope = (Scope) callers.pop();
    }

    /** The scope of the program's own block, or the built-in one before there is any. */
    private Scope outermost() {
        Scope s = callers.empty() ? scope : (Scope) callers.firstElement();
        while (s != global && s.outer != global) s = s.outer;
        return s;
    }

    public void putResult(Value v) {
        result = v;
    }

    public Value takeResult() {
        try {
            return result;
        } finally {
            result = null;
        }
    }

    public void define(String name, Value v) {
        scope.define(name, v);
    }

    public Value get(String name) throws CalcException {
        return scope.holder(name).get(name);
    }

    public void set(String name, Value v) throws CalcException {
        scope.holder(name).define(name, v);
    }
}
