package calc.run;

public final class FunctionValue extends Value {
    private final String name;
    private final int parameters;
    private final Callable body;

    public FunctionValue(String name, int parameters, Callable body) {
        this.name = name;
        this.parameters = parameters;
        this.body = body;
    }

    String kind() {
        return "function";
    }

    public FunctionValue function() {
        return this;
    }

    public Value call(Machine m, Value[] args) throws CalcException {
        if (args.length != parameters) throw new CalcException(name + " has " + parameters + " parameters, but got " + args.length);
        return body.call(m, args);
    }

    public String toString() {
        return name;
    }
}
