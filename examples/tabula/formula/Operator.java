package tabula.formula;

import tabula.cell.Value;

/** What stands between two operands. */
public abstract class Operator {
    public final String symbol;
    /** Higher binds closer. */
    public final int rank;

    private Operator(String symbol, int rank) {
        this.symbol = symbol;
        this.rank = rank;
    }

    public abstract Value apply(Value left, Value right);

    private static abstract class OfNumbers extends Operator {
        OfNumbers(String symbol, int rank) {
            super(symbol, rank);
        }

        abstract double compute(double left, double right);

        public Value apply(Value left, Value right) {
            return Value.of(compute(Convert.toNumber(left), Convert.toNumber(right)));
        }
    }

    private static abstract class Comparison extends Operator {
        Comparison(String symbol) {
            super(symbol, 1);
        }

        abstract boolean holds(int order);

        public Value apply(Value left, Value right) {
            return Value.of(holds(Value.ORDER.compare(Convert.faultless(left), Convert.faultless(right))));
        }
    }

    static final Operator POWER = new OfNumbers("^", 5) {
        double compute(double left, double right) {
            double power = Math.pow(left, right);
            if (power != power) throw new Failure("NUMBER", "there is no such power of " + Convert.show(left));
            return power;
        }
    };

    private static final Operator[] ALL = {
        new Comparison("=") {
            boolean holds(int order) {
                return order == 0;
            }
        },
        new Comparison("<>") {
            boolean holds(int order) {
                return order != 0;
            }
        },
        new Comparison("<") {
            boolean holds(int order) {
                return order < 0;
            }
        },
        new Comparison("<=") {
            boolean holds(int order) {
                return order <= 0;
            }
        },
        new Comparison(">") {
            boolean holds(int order) {
                return order > 0;
            }
        },
        new Comparison(">=") {
            boolean holds(int order) {
                return order >= 0;
            }
        },
        new Operator("&", 2) {
            public Value apply(Value left, Value right) {
                return Value.of(Convert.faultless(left).toString() + Convert.faultless(right));
            }
        },
        new OfNumbers("+", 3) {
            double compute(double left, double right) {
                return left + right;
            }
        },
        new OfNumbers("-", 3) {
            double compute(double left, double right) {
                return left - right;
            }
        },
        new OfNumbers("*", 4) {
            double compute(double left, double right) {
                return left * right;
            }
        },
        new OfNumbers("/", 4) {
            double compute(double left, double right) {
                if (right == 0) throw new Failure("DIVISION", Convert.show(left) + " is divided by zero");
                return left / right;
            }
        },
        POWER
    };

    /** The operator with that symbol, or null. */
    static Operator find(String symbol) {
        for (int i = 0; i < ALL.length; i++)
            if (ALL[i].symbol.equals(symbol)) return ALL[i];
        return null;
    }
}
