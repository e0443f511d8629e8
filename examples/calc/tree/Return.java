package calc.tree;

import calc.run.CalcException;
import calc.run.Machine;
import calc.run.Value;

public class Return extends Statement {
    /** Null if there is nothing to return. */
    final Expression value;

    public Return(int line, Expression value) {
        super(line);
        this.value = value;
    }

    protected boolean perform(Machine m) throws CalcException {
        m.putResult(value == null ? Value.NOTHING : value.evaluate(m));
        return RETURNED;
    }

    public void accept(Visitor v) {
        v.visit(this);
    }
}
