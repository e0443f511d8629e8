package calc.tree;

import calc.run.CalcException;
import calc.run.Machine;
import java.util.Vector;

public class Block extends Statement {
    final Statement[] statements;

    public Block(int line, Vector v) {
        super(line);
        statements = new Statement[v.size()];
        v.copyInto(statements);
    }

    protected boolean perform(Machine m) throws CalcException {
        m.enter();
        try {
            for (int i = 0; i < statements.length; i++) if (statements[i].execute(m) == RETURNED) return RETURNED;
            return DONE;
        } finally {
            m.leave();
        }
    }

    public int count() {
        int n = 0;
        for (int i = statements.length; --i >= 0; ) n += statements[i].count();
        return n;
    }

    public void accept(Visitor v) {
        v.visit(this);
    }
}
