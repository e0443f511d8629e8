package tabula.formula;

import tabula.util.Sequence;

/** Visits all parts of a formula, and does nothing with them. */
public abstract class Walker extends Adapter {
    public Object unary(Expression.Unary unary) {
        return unary.operand.accept(this);
    }

    public Object binary(Expression.Binary binary) {
        binary.left.accept(this);
        return binary.right.accept(this);
    }

    public Object call(Expression.Call call) {
        call.arguments.each(new Sequence.Action() {
            public void on(Object argument) {
                ((Expression) argument).accept(Walker.this);
            }
        });
        return null;
    }
}
