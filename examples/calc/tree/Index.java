package calc.tree;

import calc.run.CalcException;
import calc.run.Machine;
import calc.run.Value;

public class Index extends Expression implements Assignable {
    private final Expression list, index;

    public Index(int line, Expression list, Expression index) {
        super(line);
        this.list = list;
        this.index = index;
    }

    public Value evaluate(Machine m) throws CalcException {
        return list.evaluate(m).list().get((int) index.evaluate(m).number());
    }

    public void assign(Machine m, Value v) throws CalcException {
        list.evaluate(m).list().set((int) index.evaluate(m).number(), v);
    }

    public String toString() {
        return list + "[" + index + "]";
    }
}
