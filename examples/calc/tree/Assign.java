package calc.tree;

import calc.run.CalcException;
import calc.run.Machine;

public class Assign extends Statement {
    final Assignable target;
    final Expression value;

    public Assign(int line, Assignable target, Expression value) {
        super(line);
        this.target = target;
        this.value = value;
    }

    protected boolean perform(Machine m) throws CalcException {
        target.assign(m, value.evaluate(m));
        return DONE;
    }

    public void accept(Visitor v) {
        v.visit(this);
    }
}
