package calc.tree;

import calc.run.CalcException;
import calc.run.Machine;

public class If extends Statement {
    final Expression condition;
    final Block then;
    /** A block, another `If`, or null. */
    final Statement otherwise;

    public If(int line, Expression condition, Block then, Statement otherwise) {
        super(line);
        this.condition = condition;
        this.then = then;
        this.otherwise = otherwise;
    }

    protected boolean perform(Machine m) throws CalcException {
        if (condition.evaluate(m).truth()) return then.execute(m);
        return otherwise == null ? DONE : otherwise.execute(m);
    }

    public int count() {
        return 1 + then.count() + (otherwise == null ? 0 : otherwise.count());
    }

    public void accept(Visitor v) {
        v.visit(this);
    }
}
