package calc.tree;

import calc.run.CalcException;
import calc.run.ListValue;
import calc.run.Machine;

/** Over the elements that the list has at the start. */
public class For extends Statement {
    final String variable;
    final Expression list;
    final Block body;

    public For(int line, String variable, Expression list, Block body) {
        super(line);
        this.variable = variable;
        this.list = list;
        this.body = body;
    }

    protected boolean perform(Machine m) throws CalcException {
        ListValue items = list.evaluate(m).list();
        m.enter();
        try {
            for (int i = 0, n = items.size(); i < n; i++) {
                m.define(variable, items.get(i));
                if (body.execute(m) == RETURNED) return RETURNED;
            }
        } finally {
            m.leave();
        }
        return DONE;
    }

    public int count() {
        return 1 + body.count();
    }

    public void accept(Visitor v) {
        v.visit(this);
    }
}
