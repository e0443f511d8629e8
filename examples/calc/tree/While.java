package calc.tree;

import calc.run.CalcException;
import calc.run.Machine;

public class While extends Statement {
    final Expression condition;
    final Block body;

    public While(int line, Expression condition, Block body) {
        super(line);
        this.condition = condition;
        this.body = body;
    }

    protected boolean perform(Machine m) throws CalcException {
        while (condition.evaluate(m).truth()) if (body.execute(m) == RETURNED) return RETURNED;
        return DONE;
    }

    public int count() {
        return 1 + body.count();
    }

    public void accept(Visitor v) {
        v.visit(this);
    }
}
