package calc.tree;

import calc.run.CalcException;
import calc.run.Callable;
import calc.run.FunctionValue;
import calc.run.Machine;
import calc.run.Value;

/** A definition is a statement; what it defines is a value that runs the body. */
public class Function extends Statement implements Callable {
    final String name;
    final String[] parameters;
    final Block body;

    public Function(int line, String name, String[] parameters, Block body) {
        super(line);
        this.name = name;
        this.parameters = parameters;
        this.body = body;
    }

    protected boolean perform(Machine m) {
        m.define(name, new FunctionValue(name, parameters.length, this));
        return DONE;
    }

    public Value call(Machine m, Value[] args) throws CalcException {
        m.call();
        try {
            for (int i = 0; i < args.length; i++) m.define(parameters[i], args[i]);
            return body.execute(m) == RETURNED ? m.takeResult() : Value.NOTHING;
        } finally {
            m.finish();
        }
    }

    public int count() {
        return 1 + body.count();
    }

    public void accept(Visitor v) {
        v.visit(this);
    }
}
