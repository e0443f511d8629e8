package calc.tree;

import calc.run.CalcException;
import calc.run.Machine;

public class Program extends Node {
    final Block body;

    public Program(Block body) {
        super(1);
        this.body = body;
    }

    public void run(Machine m) throws CalcException {
        if (body.execute(m) == Statement.RETURNED) throw new CalcException("return outside of a function");
    }

    public int statements() {
        return body.count();
    }

    public void accept(Visitor v) {
        v.visit(this);
    }
}
