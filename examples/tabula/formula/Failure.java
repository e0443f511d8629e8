package tabula.formula;

import tabula.cell.Value;

/** Ends the evaluation of a formula with a fault for its value. */
public class Failure extends RuntimeException {
    public final Value.Fault fault;

    public Failure(Value.Fault fault) {
        super(fault.reason);
        this.fault = fault;
    }

    public Failure(String name, String reason) {
        this(new Value.Fault(name, reason));
    }
}
