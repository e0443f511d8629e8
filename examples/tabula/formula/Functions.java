package tabula.formula;

import java.util.Enumeration;
import tabula.cell.Area;
import tabula.cell.Value;
import tabula.util.Sequence;
import tabula.util.SortedTable;

/** The functions by name. */
public final class Functions {
    private static final SortedTable BY_NAME = new SortedTable();

    private Functions() {
    }

    /** The function of that name, in whatever case; null if there is none. */
    public static Function find(String name) {
        return (Function) BY_NAME.get(name.toUpperCase());
    }

    public static Enumeration all() {
        return BY_NAME.values();
    }

    private static void define(Function function) {
        BY_NAME.put(function.name, function);
    }

    // ---- kinds of functions

    /** A function of all the numbers among its arguments; texts and truth values do not count. */
    private static abstract class OfNumbers extends Function {
        OfNumbers(String name) {
            super(name, 1, -1);
        }

        /** Told of each number. */
        protected abstract class Fold extends Value.Default {
            int count;

            abstract void take(double number);

            abstract double result();

            public Object number(double number) {
                count++;
                take(number);
                return null;
            }

            public Object fault(Value.Fault fault) {
                throw new Failure(fault);
            }

            public Object other() {
                return null;
            }
        }

        abstract Fold start();

        public Value call(Arguments arguments) {
            final Fold fold = start();
            arguments.values(0, arguments.count()).each(new Sequence.Action() {
                public void on(Object value) {
                    ((Value) value).accept(fold);
                }
            });
            return Value.of(fold.result());
        }
    }

    private static abstract class Extreme extends OfNumbers {
        Extreme(String name) {
            super(name);
        }

        abstract boolean isBetter(double number, double best);

        Fold start() {
            return new Fold() {
                private double best;

                void take(double number) {
                    if (count == 1 || isBetter(number, best)) best = number;
                }

                double result() {
                    return best;
                }
            };
        }
    }

    private static abstract class OfNumber extends Function {
        OfNumber(String name) {
            super(name, 1, 1);
        }

        abstract double compute(double x);

        public Value call(Arguments arguments) {
            return Value.of(compute(arguments.number(0)));
        }
    }

    private static abstract class OfText extends Function {
        OfText(String name) {
            super(name, 1, 1);
        }

        abstract Value compute(String text);

        public Value call(Arguments arguments) {
            return compute(arguments.text(0));
        }
    }

    /** AND and OR: the first argument with that value decides, and no further one is looked at. */
    private static final class Decision extends Function {
        private final boolean decisive;

        Decision(String name, boolean decisive) {
            super(name, 1, -1);
            this.decisive = decisive;
        }

        public Value call(Arguments arguments) {
            for (int i = 0; i < arguments.count(); i++)
                if (arguments.truth(i) == decisive) return Value.of(decisive);
            return Value.of(!decisive);
        }
    }

    // ---- numbers

    static {
        define(new OfNumbers("SUM") {
            Fold start() {
                return new Fold() {
                    private double sum;

                    void take(double number) {
                        sum += number;
                    }

                    double result() {
                        return sum;
                    }
                };
            }
        });
        define(new OfNumbers("AVERAGE") {
            Fold start() {
                return new Fold() {
                    private double sum;

                    void take(double number) {
                        sum += number;
                    }

                    double result() {
                        if (count == 0) throw new Failure("DIVISION", "there is no number to average");
                        return sum / count;
                    }
                };
            }
        });
        define(new OfNumbers("PRODUCT") {
            Fold start() {
                return new Fold() {
                    private double product = 1;

                    void take(double number) {
                        product *= number;
                    }

                    double result() {
                        return product;
                    }
                };
            }
        });
        define(new OfNumbers("COUNT") {
            Fold start() {
                return new Fold() {
                    void take(double number) {
                    }

                    double result() {
                        return count;
                    }
                };
            }
        });
        define(new OfNumbers("MEDIAN") {
            Fold start() {
                return new Fold() {
                    private final Sequence numbers = new Sequence();

                    void take(double number) {
                        numbers.add(Value.of(number));
                    }

                    double result() {
                        if (count == 0) throw new Failure("NUMBER", "there is no number in the middle");
                        Sequence sorted = numbers.sorted(Value.ORDER);
                        double upper = Convert.toNumber((Value) sorted.at(count / 2));
                        double lower = Convert.toNumber((Value) sorted.at((count - 1) / 2));
                        return (lower + upper) / 2;
                    }
                };
            }
        });
        define(new Extreme("MIN") {
            boolean isBetter(double number, double best) {
                return number < best;
            }
        });
        define(new Extreme("MAX") {
            boolean isBetter(double number, double best) {
                return number > best;
            }
        });
        define(new OfNumber("ABS") {
            double compute(double x) {
                return Math.abs(x);
            }
        });
        define(new OfNumber("INT") {
            double compute(double x) {
                return Math.floor(x);
            }
        });
        define(new OfNumber("SQRT") {
            double compute(double x) {
                if (x < 0) throw new Failure("NUMBER", Convert.show(x) + " has no root");
                return Math.sqrt(x);
            }
        });
        define(new Function("MOD", 2, 2) {
            public Value call(Arguments arguments) {
                double x = arguments.number(0), y = arguments.number(1);
                if (y == 0) throw new Failure("DIVISION", Convert.show(x) + " is divided by zero");
                return Value.of(x - y * Math.floor(x / y));
            }
        });
        define(new Function("ROUND", 1, 2) {
            public Value call(Arguments arguments) {
                double scale = arguments.count() == 1 ? 1 : Math.pow(10, arguments.number(1));
                return Value.of(Math.floor(arguments.number(0) * scale + 0.5) / scale);
            }
        });
    }

    // ---- texts

    static {
        define(new OfText("LENGTH") {
            Value compute(String text) {
                return Value.of(text.length());
            }
        });
        define(new OfText("UPPER") {
            Value compute(String text) {
                return Value.of(text.toUpperCase());
            }
        });
        define(new OfText("LOWER") {
            Value compute(String text) {
                return Value.of(text.toLowerCase());
            }
        });
        define(new OfText("REVERSE") {
            Value compute(String text) {
                return Value.of(new StringBuffer(text).reverse().toString());
            }
        });
        define(new Function("PART", 3, 3) {
            public Value call(Arguments arguments) {
                String text = arguments.text(0);
                int from = Math.max(0, Math.min((int) arguments.number(1) - 1, text.length()));
                int to = Math.max(from, Math.min(from + (int) arguments.number(2), text.length()));
                return Value.of(text.substring(from, to));
            }
        });
        define(new Function("JOIN", 1, -1) {
            public Value call(Arguments arguments) {
                return Value.of(arguments.values(1, arguments.count()).join(arguments.text(0)));
            }
        });
    }

    // ---- decisions

    static {
        define(new Decision("AND", false));
        define(new Decision("OR", true));
        define(new Function("NOT", 1, 1) {
            public Value call(Arguments arguments) {
                return Value.of(!arguments.truth(0));
            }
        });
        define(new Function("IF", 2, 3) {
            public Value call(Arguments arguments) {
                if (arguments.truth(0)) return arguments.value(1);
                return arguments.count() == 3 ? arguments.value(2) : Value.of(false);
            }
        });
        define(new Function("CHOOSE", 2, -1) {
            public Value call(Arguments arguments) {
                int choice = (int) arguments.number(0);
                if (choice < 1 || choice >= arguments.count())
                    throw new Failure("NUMBER", "there is no choice " + choice);
                return arguments.value(choice);
            }
        });
        define(new Function("FAULTY", 1, 1) {
            public Value call(Arguments arguments) {
                return (Value) arguments.value(0).accept(new Value.Default() {
                    public Object fault(Value.Fault fault) {
                        return Value.of(true);
                    }

                    public Object other() {
                        return Value.of(false);
                    }
                });
            }
        });
    }

    // ---- areas

    static {
        define(new Function("COUNTIF", 2, 2) {
            public Value call(Arguments arguments) {
                final Value wanted = arguments.value(1);
                return Value.of(arguments.values(0, 1).select(new Sequence.Filter() {
                    public boolean accepts(Object value) {
                        return value.equals(wanted);
                    }
                }).size());
            }
        });
        define(new Function("LOOKUP", 3, 3) {
            public Value call(Arguments arguments) {
                Value key = Convert.faultless(arguments.value(0));
                Area area = arguments.area(1);
                int column = (int) arguments.number(2) - 1;
                if (column < 0 || column >= area.columns())
                    throw new Failure("REFERENCE", area + " has no column " + (column + 1));
                for (int row = 0; row < area.rows(); row++)
                    if (arguments.at(area, row, 0).equals(key)) return arguments.at(area, row, column);
                throw new Failure("MISSING", key + " is not in " + area.column(0));
            }
        });
        define(new Function("ROWS", 1, 1) {
            public Value call(Arguments arguments) {
                return Value.of(arguments.area(0).rows());
            }
        });
    }
}
