package calc.run;

public final class TruthValue extends Value {
    public static final TruthValue TRUE = new TruthValue(), FALSE = new TruthValue();

    private TruthValue() {
    }

    public static TruthValue of(boolean b) {
        return b ? TRUE : FALSE;
    }

    String kind() {
        return "truth value";
    }

    public boolean truth() {
        return this == TRUE;
    }

    public String toString() {
        return truth() ? "true" : "false";
    }
}
