package calc.tree;

import calc.run.CalcException;

/** A part of a program, with the line where it begins. */
public abstract class Node {
    protected final int line;

    protected Node(int line) {
        this.line = line;
    }

    /** Calls the visitor's operation for this kind of node. */
    public abstract void accept(Visitor v);

    /** Says of a failure where it happened, unless that is known. */
    protected final CalcException located(CalcException e) {
        return e.at(line);
    }
}
