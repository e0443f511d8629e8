package calc.tree;

import calc.run.CalcException;
import calc.run.Machine;
import calc.run.NumberValue;
import calc.run.TruthValue;
import calc.run.Value;
import calc.syntax.Tokens;

public class Binary extends Expression implements Tokens {
    private final int operator;
    private final Expression left, right;

    public Binary(int line, int operator, Expression left, Expression right) {
        super(line);
        this.operator = operator;
        this.left = left;
        this.right = right;
    }

    public Value evaluate(Machine m) throws CalcException {
        Value l = left.evaluate(m);
        switch (operator) {
            case AND: return l.truth() ? right.evaluate(m) : l;
            case OR: return l.truth() ? l : right.evaluate(m);
        }
        Value r = right.evaluate(m);
        switch (operator) {
            case PLUS: return l.plus(r);
            case EQUAL: return TruthValue.of(l.equals(r));
            case UNEQUAL: return TruthValue.of(!l.equals(r));
            case LESS: return TruthValue.of(l.compare(r) < 0);
            case LESS_EQUAL: return TruthValue.of(l.compare(r) <= 0);
            case GREATER: return TruthValue.of(l.compare(r) > 0);
            case GREATER_EQUAL: return TruthValue.of(l.compare(r) >= 0);
        }
        return new NumberValue(arithmetic(l.number(), r.number()));
    }

    private double arithmetic(double a, double b) throws CalcException {
        switch (operator) {
            case MINUS: return a - b;
            case STAR: return a * b;
        }
        if (b == 0) throw new CalcException("division by zero").at(line);
        return operator == SLASH ? a / b : a % b;
    }

    public String toString() {
        return "(" + left + " " + SPELLING[operator] + " " + right + ")";
    }
}
