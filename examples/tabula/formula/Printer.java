package tabula.formula;

import tabula.cell.Value;
import tabula.util.Sequence;

/** Writes a formula as one types it, with the parentheses that it needs and no others. */
class Printer implements Expression.Visitor {
    private static final int OPERAND = 9;

    private final StringBuffer text = new StringBuffer();
    /** Operators of a lower rank need parentheses here. */
    private int rank;

    static String print(Expression expression) {
        Printer printer = new Printer();
        expression.accept(printer);
        return printer.text.toString();
    }

    private void part(Expression expression, int rank) {
        int before = this.rank;
        this.rank = rank;
        expression.accept(this);
        this.rank = before;
    }

    public Object literal(Expression.Literal literal) {
        return literal.value.accept(new Value.Default() {
            public Object text(String content) {
                text.append('"');
                for (int i = 0; i < content.length(); i++) {
                    if (content.charAt(i) == '"') text.append('"');
                    text.append(content.charAt(i));
                }
                return text.append('"');
            }

            public Object number(double number) {
                return text.append(Convert.show(number));
            }

            public Object truth(boolean truth) {
                return text.append(Value.of(truth));
            }

            public Object other() {
                throw new IllegalStateException("no literal");
            }
        });
    }

    public Object reference(Expression.Reference reference) {
        String name = reference.address.toString();
        int digits = 0;
        while (!Character.isDigit(name.charAt(digits))) digits++;
        if (reference.isColumnFixed) text.append('$');
        text.append(name.substring(0, digits));
        if (reference.isRowFixed) text.append('$');
        return text.append(name.substring(digits));
    }

    public Object range(Expression.Range range) {
        reference(range.from);
        text.append(':');
        return reference(range.to);
    }

    public Object name(Expression.Name name) {
        return text.append(name.name);
    }

    public Object unary(Expression.Unary unary) {
        boolean isMinus = unary.sign == '-';
        if (isMinus) text.append('-');
        part(unary.operand, OPERAND);
        return isMinus ? text : text.append(unary.sign);
    }

    public Object binary(Expression.Binary binary) {
        int own = binary.operator.rank;
        boolean fromRight = binary.operator == Operator.POWER;
        boolean isInner = own < rank;
        if (isInner) text.append('(');
        part(binary.left, fromRight ? own + 1 : own);
        text.append(binary.operator.symbol);
        part(binary.right, fromRight ? own : own + 1);
        return isInner ? text.append(')') : text;
    }

    public Object call(Expression.Call call) {
        text.append(call.function).append('(');
        call.arguments.each(new Sequence.Action() {
            private String separator = "";

            public void on(Object argument) {
                text.append(separator);
                separator = ", ";
                part((Expression) argument, 0);
            }
        });
        return text.append(')');
    }
}
