package calc.run;

import java.util.Hashtable;

/** The variables of a block, within those of the block around it. */
class Scope {
    final Scope outer;
    private final Hashtable values = new Hashtable(7);

    Scope(Scope outer) {
        this.outer = outer;
    }

    void define(String name, Value v) {
        values.put(name, v);
    }

    Value get(String name) {
        return (Value) values.get(name);
    }

    /** The scope that has the variable, this one or one around it. */
    Scope holder(String name) throws CalcException {
        for (Scope s = this; s != null; s = s.outer) if (s.values.containsKey(name)) return s;
        throw new CalcException("no variable " + name);
    }
}
