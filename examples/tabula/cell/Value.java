package tabula.cell;

import tabula.util.Sequence;
import tabula.util.Text;

/** What a cell has come to: a number, a text, a truth value, a fault, or nothing. Values never change. */
public abstract class Value {
    /** Told what kind of value it is. */
    public interface Visitor {
        Object number(double number);

        Object text(String text);

        Object truth(boolean truth);

        Object fault(Fault fault);

        Object blank();
    }

    /** A visitor that has one answer for all that it is not asked about especially. */
    public static abstract class Default implements Visitor {
        public abstract Object other();

        public Object number(double number) {
            return other();
        }

        public Object text(String text) {
            return other();
        }

        public Object truth(boolean truth) {
            return other();
        }

        public Object fault(Fault fault) {
            return other();
        }

        public Object blank() {
            return other();
        }
    }

    private Value() {
    }

    public abstract Object accept(Visitor visitor);

    /** What the cell shows. */
    public abstract String toString();

    /** Where values of this kind stand among others, and in a cell. */
    abstract int rank();

    public Text.Side side() {
        return Text.LEFT;
    }

    public static final Value BLANK = new Value() {
        public Object accept(Visitor visitor) {
            return visitor.blank();
        }

        public String toString() {
            return "";
        }

        int rank() {
            return 4;
        }
    };

    private static final class Number extends Value {
        private final double number;

        Number(double number) {
            this.number = number;
        }

        public Object accept(Visitor visitor) {
            return visitor.number(number);
        }

        public String toString() {
            return Text.number(number);
        }

        public Text.Side side() {
            return Text.RIGHT;
        }

        int rank() {
            return 0;
        }
    }

    private static final class Words extends Value {
        private final String text;

        Words(String text) {
            this.text = text;
        }

        public Object accept(Visitor visitor) {
            return visitor.text(text);
        }

        public String toString() {
            return text;
        }

        int rank() {
            return 1;
        }
    }

    private static final class Truth extends Value {
        private final boolean truth;

        Truth(boolean truth) {
            this.truth = truth;
        }

        public Object accept(Visitor visitor) {
            return visitor.truth(truth);
        }

        public String toString() {
            return truth ? "TRUE" : "FALSE";
        }

        public Text.Side side() {
            return Text.MIDDLE;
        }

        int rank() {
            return 2;
        }
    }

    /** Why a formula has no value; each formula that needs it has the same fault. */
    public static final class Fault extends Value {
        private final String name;
        public final String reason;

        public Fault(String name, String reason) {
            this.name = name;
            this.reason = reason;
        }

        public Object accept(Visitor visitor) {
            return visitor.fault(this);
        }

        public String toString() {
            return "#" + name;
        }

        public Text.Side side() {
            return Text.MIDDLE;
        }

        int rank() {
            return 3;
        }
    }

    // ---- making values

    private static final Value YES = new Truth(true), NO = new Truth(false);

    public static Value of(double number) {
        return new Number(number);
    }

    public static Value of(String text) {
        return new Words(text);
    }

    public static Value of(boolean truth) {
        return truth ? YES : NO;
    }

    /** What the text means that somebody types: a number, TRUE, FALSE or a text; behind a ' always a text. */
    public static Value typed(String text) {
        if (text.length() == 0) return BLANK;
        if (text.charAt(0) == '\'') return of(text.substring(1));
        if (text.equalsIgnoreCase("true") || text.equalsIgnoreCase("false")) return of(text.equalsIgnoreCase("true"));
        return Text.isNumber(text) ? of(Double.valueOf(text).doubleValue()) : of(text);
    }

    // ---- comparing

    public boolean isBlank() {
        return this == BLANK;
    }

    public boolean equals(Object other) {
        return other instanceof Value && ORDER.compare(this, other) == 0;
    }

    public int hashCode() {
        return toString().toLowerCase().hashCode();
    }

    /** Numbers, then texts, truth values, faults, and what is blank last. Texts are compared in lower case. */
    public static final Sequence.Order ORDER = new Sequence.Order() {
        public int compare(Object a, Object b) {
            final Value one = (Value) a, other = (Value) b;
            if (one.rank() != other.rank()) return one.rank() - other.rank();
            Object result = one.accept(new Default() {
                public Object number(double number) {
                    double second = ((Number) other).number;
                    return new Integer(number < second ? -1 : number > second ? 1 : 0);
                }

                public Object other() {
                    return new Integer(one.toString().toLowerCase().compareTo(other.toString().toLowerCase()));
                }
            });
            return ((Integer) result).intValue();
        }
    };
}
