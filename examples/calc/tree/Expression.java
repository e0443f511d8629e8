package calc.tree;

import calc.run.CalcException;
import calc.run.Machine;
import calc.run.Value;

/** Something that has a value. Its text is written as a program would write it. */
public abstract class Expression extends Node {
    protected Expression(int line) {
        super(line);
    }

    public abstract Value evaluate(Machine m) throws CalcException;

    public void accept(Visitor v) {
        v.visit(this);
    }

    static String join(Expression[] items) {
        StringBuffer b = new StringBuffer();
        for (int i = 0; i < items.length; i++) b.append(i > 0 ? ", " : "").append(items[i]);
        return b.toString();
    }
}
