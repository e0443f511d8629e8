package calc.tree;

import calc.run.CalcException;
import calc.run.Machine;
import calc.run.NumberValue;
import calc.run.TruthValue;
import calc.run.Value;
import calc.syntax.Tokens;

public class Unary extends Expression {
    private final int operator;
    private final Expression operand;

    public Unary(int line, int operator, Expression operand) {
        super(line);
        this.operator = operator;
        this.operand = operand;
    }

    public Value evaluate(Machine m) throws CalcException {
        Value v = operand.evaluate(m);
        return operator == Tokens.NOT ? (Value) TruthValue.of(!v.truth()) : new NumberValue(-v.number());
    }

    public String toString() {
        return Tokens.SPELLING[operator] + (operator == Tokens.NOT ? " " : "") + operand;
    }
}
