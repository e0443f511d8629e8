package tabula.formula;

import tabula.util.Sequence;

/** Makes the formula that one becomes when it is copied somewhere else. */
public class Mover implements Expression.Visitor {
    /** A reference would leave the sheet. */
    public static class OffSheet extends RuntimeException {
        OffSheet(Expression reference) {
            super(reference + " would leave the sheet");
        }
    }

    private final int rows, columns;

    public Mover(int rows, int columns) {
        this.rows = rows;
        this.columns = columns;
    }

    public Expression move(Expression expression) {
        return (Expression) expression.accept(this);
    }

    public Object literal(Expression.Literal literal) {
        return literal;
    }

    public Object reference(Expression.Reference reference) {
        Expression.Reference moved = reference.moved(rows, columns);
        if (moved == null) throw new OffSheet(reference);
        return moved;
    }

    public Object range(Expression.Range range) {
        return new Expression.Range((Expression.Reference) move(range.from), (Expression.Reference) move(range.to));
    }

    public Object name(Expression.Name name) {
        return name;
    }

    public Object unary(Expression.Unary unary) {
        return new Expression.Unary(unary.sign, move(unary.operand));
    }

    public Object binary(Expression.Binary binary) {
        return new Expression.Binary(binary.operator, move(binary.left), move(binary.right));
    }

    public Object call(Expression.Call call) {
        return new Expression.Call(call.function, call.arguments.change(new Sequence.Change() {
            public Object of(Object argument) {
                return move((Expression) argument);
            }
        }));
    }
}
