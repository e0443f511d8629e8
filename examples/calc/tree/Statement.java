package calc.tree;

import calc.run.CalcException;
import calc.run.Machine;

/** Something that is done. */
public abstract class Statement extends Node {
    /** How a statement ended. */
    static final boolean RETURNED = true, DONE = !RETURNED;

    protected Statement(int line) {
        super(line);
    }

    /** Does it, after counting a step. */
    public final boolean execute(Machine m) throws CalcException {
        try {
            m.step();
            return perform(m);
        } catch (CalcException e) {
            throw located(e);
        }
    }

    protected abstract boolean perform(Machine m) throws CalcException;

    /** The number of statements in it, itself included. */
    public int count() {
        return 1;
    }
}
