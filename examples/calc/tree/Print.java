package calc.tree;

import calc.run.CalcException;
import calc.run.Machine;

public class Print extends Statement {
    final Expression[] items;

    public Print(int line, Expression[] items) {
        super(line);
        this.items = items;
    }

    protected boolean perform(Machine m) throws CalcException {
        StringBuffer b = new StringBuffer();
        for (int i = 0; i < items.length; i++) b.append(i > 0 ? " " : "").append(items[i].evaluate(m));
        m.print(b.toString());
        return DONE;
    }

    public void accept(Visitor v) {
        v.visit(this);
    }
}
