package calc.tree;

import calc.run.CalcException;
import calc.run.FunctionValue;
import calc.run.Machine;
import calc.run.Value;

public class Call extends Expression {
    private final Expression function;
    private final Expression[] args;

    public Call(int line, Expression function, Expression[] args) {
        super(line);
        this.function = function;
        this.args = args;
    }

    public Value evaluate(Machine m) throws CalcException {
        FunctionValue f = function.evaluate(m).function();
        Value[] values = new Value[args.length];
        for (int i = 0; i < values.length; i++) values[i] = args[i].evaluate(m);
        return f.call(m, values);
    }

    public String toString() {
        return function + "(" + join(args) + ")";
    }
}
