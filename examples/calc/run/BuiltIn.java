package calc.run;

import java.util.StringTokenizer;
import java.util.Vector;

/** The functions that every program finds, by their place in the table. */
final class BuiltIn implements Callable {
    private static final String[] NAMES = { "size", "abs", "floor", "round", "list", "find", "sort", "split", "upper" };
    private static final byte[] PARAMETERS = { 1, 1, 1, 2, 2, 2, 1, 2, 1 };
    private final int index;

    private BuiltIn(int index) {
        this.index = index;
    }

    static void define(Machine m) {
        for (int i = 0; i < NAMES.length; i++) m.define(NAMES[i], new FunctionValue(NAMES[i], PARAMETERS[i], new BuiltIn(i)));
    }

    public Value call(Machine m, Value[] args) throws CalcException {
        switch (index) {
            case 0: return new NumberValue(args[0] instanceof TextValue ? args[0].toString().length() : args[0].list().size());
            case 1: return new NumberValue(Math.abs(args[0].number()));
            case 2: return new NumberValue(Math.floor(args[0].number()));
            case 3: return round(args[0].number(), (int) args[1].number());
            case 4: return list((int) args[0].number(), args[1]);
            case 5: return find(args[0].list(), args[1]);
            case 6: return args[0].list().sorted();
            case 7: return split(args[0].toString(), args[1].toString());
            case 8: return new TextValue(args[0].toString().toUpperCase());
        }
        throw new InternalError("function " + index);
    }

    private static Value round(double d, int digits) {
        double unit = Math.pow(10, digits);
        return new NumberValue(Math.rint(d * unit) / unit);
    }

    private static Value list(int n, Value v) throws CalcException {
        if (n < 0 || n > 1000000) throw new CalcException("no list of " + n);
        Value[] items = new Value[n];
        while (--n >= 0) items[n] = v;
        return new ListValue(items);
    }

    private static Value find(ListValue l, Value v) throws CalcException {
        int i = l.size();
        do i--; while (i >= 0 && !l.get(i).equals(v));
        return new NumberValue(i);
    }

    private static Value split(String text, String separators) {
        Vector parts = new Vector();
        for (StringTokenizer st = new StringTokenizer(text, separators); st.hasMoreTokens(); ) parts.addElement(new TextValue(st.nextToken()));
        Value[] items = new Value[parts.size()];
        parts.copyInto(items);
        return new ListValue(items);
    }
}
