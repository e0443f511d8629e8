package calc.run;

public final class NumberValue extends Value {
    private final double d;

    public NumberValue(double d) {
        this.d = d;
    }

    String kind() {
        return "number";
    }

    public double number() {
        return d;
    }

    public Value plus(Value v) throws CalcException {
        return v instanceof NumberValue ? new NumberValue(d + ((NumberValue) v).d) : super.plus(v);
    }

    public int compare(Value v) throws CalcException {
        double e = v.number();
        return d < e ? -1 : d > e ? 1 : 0;
    }

    public boolean equals(Object o) {
        return o instanceof NumberValue && ((NumberValue) o).d == d;
    }

    public int hashCode() {
        return new Double(d).hashCode();
    }

    /** Whole numbers without a fraction. */
    public String toString() {
        return d == Math.rint(d) && Math.abs(d) < 1e15 ? String.valueOf((long) d) : String.valueOf(d);
    }
}
