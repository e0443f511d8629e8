package calc.run;

/** What a program works with. Each kind overrides the conversions that it has. */
public abstract class Value {
    /** What a function without a result returns. */
    public static final Value NOTHING = new Nothing();

    abstract String kind();

    private CalcException mismatch(String wanted) {
        return new CalcException(wanted + " expected, but found " + kind() + " " + this);
    }

    public double number() throws CalcException {
        throw mismatch("a number");
    }

    public boolean truth() throws CalcException {
        throw mismatch("a truth value");
    }

    public ListValue list() throws CalcException {
        throw mismatch("a list");
    }

    public FunctionValue function() throws CalcException {
        throw mismatch("a function");
    }

    /** A sum, or one after the other. */
    public Value plus(Value v) throws CalcException {
        if (v instanceof TextValue) return new TextValue(toString() + v);
        throw mismatch("something to add to");
    }

    /** Below, at or above 0 as this stands before, beside or behind the other. */
    public int compare(Value v) throws CalcException {
        throw mismatch("something with an order");
    }
}

final class Nothing extends Value {
    String kind() {
        return "nothing";
    }

    public String toString() {
        return "nothing";
    }
}
