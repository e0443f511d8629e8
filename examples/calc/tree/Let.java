package calc.tree;

import calc.run.CalcException;
import calc.run.Machine;

public class Let extends Statement {
    final String name;
    final Expression value;

    public Let(int line, String name, Expression value) {
        super(line);
        this.name = name;
        this.value = value;
    }

    protected boolean perform(Machine m) throws CalcException {
        m.define(name, value.evaluate(m));
        return DONE;
    }

    public void accept(Visitor v) {
        v.visit(this);
    }
}
