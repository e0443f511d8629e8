package calc.tree;

import calc.run.CalcException;
import calc.run.Machine;

/** An expression for its effect. */
public class Evaluate extends Statement {
    final Expression expression;

    public Evaluate(int line, Expression expression) {
        super(line);
        this.expression = expression;
    }

    protected boolean perform(Machine m) throws CalcException {
        expression.evaluate(m);
        return DONE;
    }

    public void accept(Visitor v) {
        v.visit(this);
    }
}
