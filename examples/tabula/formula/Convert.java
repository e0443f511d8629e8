package tabula.formula;

import tabula.cell.Value;
import tabula.util.Text;

/** What a value counts for where a certain kind is wanted. */
final class Convert {
    private Convert() {
    }

    /** Refuses what it is not told to take. */
    private static class Strict implements Value.Visitor {
        private final String wanted;

        Strict(String wanted) {
            this.wanted = wanted;
        }

        private Object refuse(String what) {
            throw new Failure("TYPE", what + " is no " + wanted);
        }

        public Object number(double number) {
            return refuse(Text.number(number));
        }

        public Object text(String text) {
            return refuse('"' + text + '"');
        }

        public Object truth(boolean truth) {
            return refuse(truth ? "TRUE" : "FALSE");
        }

        public Object fault(Value.Fault fault) {
            throw new Failure(fault);
        }

        public Object blank() {
            return refuse("an empty cell");
        }
    }

    private static final Value.Visitor NUMBER = new Strict("number") {
        public Object number(double number) {
            return new Double(number);
        }

        public Object blank() {
            return new Double(0);
        }
    };

    private static final Value.Visitor TRUTH = new Strict("truth value") {
        public Object truth(boolean truth) {
            return new Boolean(truth);
        }

        public Object number(double number) {
            return new Boolean(number != 0);
        }

        public Object blank() {
            return Boolean.FALSE;
        }
    };

    static double toNumber(Value value) {
        return ((Double) value.accept(NUMBER)).doubleValue();
    }

    static boolean toTruth(Value value) {
        return ((Boolean) value.accept(TRUTH)).booleanValue();
    }

    /** The value, unless it is a fault. */
    static Value faultless(final Value value) {
        return (Value) value.accept(new Value.Default() {
            public Object other() {
                return value;
            }

            public Object fault(Value.Fault fault) {
                throw new Failure(fault);
            }
        });
    }

    static String show(double number) {
        return Text.number(number);
    }
}
