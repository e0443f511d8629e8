package calc.tree;

import calc.run.CalcException;
import calc.run.Machine;
import calc.run.Value;

/** An expression that can stand on the left of an assignment. */
public interface Assignable {
    void assign(Machine m, Value v) throws CalcException;
}
