package calc.tree;

import calc.run.CalcException;
import calc.run.Machine;
import calc.run.Value;

public class Variable extends Expression implements Assignable {
    private final String name;

    public Variable(int line, String name) {
        super(line);
        this.name = name;
    }

    public Value evaluate(Machine m) throws CalcException {
        return m.get(name);
    }

    public void assign(Machine m, Value v) throws CalcException {
        m.set(name, v);
    }

    public String toString() {
        return name;
    }
}
