package calc.tree;

import calc.run.CalcException;
import calc.run.ListValue;
import calc.run.Machine;
import calc.run.Value;

public class ListOf extends Expression {
    private final Expression[] items;

    public ListOf(int line, Expression[] items) {
        super(line);
        this.items = items;
    }

    public Value evaluate(Machine m) throws CalcException {
        Value[] values = new Value[items.length];
        for (int i = 0; i < values.length; i++) values[i] = items[i].evaluate(m);
        return new ListValue(values);
    }

    public String toString() {
        return "[" + join(items) + "]";
    }
}
