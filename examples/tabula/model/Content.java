package tabula.model;

import tabula.cell.Value;
import tabula.formula.Evaluator;
import tabula.formula.Expression;
import tabula.formula.FormulaException;
import tabula.formula.Mover;
import tabula.formula.Parser;
import tabula.formula.References;

/** What somebody has put into a cell: a value or a formula. Contents never change. */
public abstract class Content {
    private Content() {
    }

    /** What one types to get it. */
    public abstract String source();

    abstract Value value(Evaluator evaluator);

    /** What it becomes in a cell so far away. */
    public abstract Content moved(int rows, int columns);

    /** Null for a value. */
    public abstract Expression formula();

    References references(Evaluator.Source source) {
        return formula() == null ? null : new References(formula(), source);
    }

    public String toString() {
        return source();
    }

    public static final Content NONE = plain("");

    /** A text that begins with = is a formula, all other is a value. */
    public static Content typed(String text) throws FormulaException {
        if (text.length() == 0) return NONE;
        return text.startsWith("=") ? computed(Parser.parse(text.substring(1))) : plain(text);
    }

    private static Content plain(final String text) {
        final Value value = Value.typed(text);
        return new Content() {
            public String source() {
                return text;
            }

            Value value(Evaluator evaluator) {
                return value;
            }

            public Content moved(int rows, int columns) {
                return this;
            }

            public Expression formula() {
                return null;
            }
        };
    }

    private static Content computed(final Expression expression) {
        return new Content() {
            public String source() {
                return "=" + expression;
            }

            Value value(Evaluator evaluator) {
                return evaluator.evaluate(expression);
            }

            public Content moved(int rows, int columns) {
                return computed(new Mover(rows, columns).move(expression));
            }

            public Expression formula() {
                return expression;
            }
        };
    }
}
