package calc.tree;

import calc.run.Machine;
import calc.run.NumberValue;
import calc.run.TextValue;
import calc.run.TruthValue;
import calc.run.Value;

public final class Literal extends Expression {
    private final Value value;

    private Literal(int line, Value value) {
        super(line);
        this.value = value;
    }

    public static Literal number(int line, double d) {
        return new Literal(line, new NumberValue(d));
    }

    public static Literal text(int line, String s) {
        return new Literal(line, new TextValue(s));
    }

    public static Literal truth(int line, boolean b) {
        return new Literal(line, b ? TruthValue.TRUE : TruthValue.FALSE);
    }

    public Value evaluate(Machine m) {
        return value;
    }

    public String toString() {
        return value instanceof TextValue ? '"' + value.toString() + '"' : value.toString();
    }
}
