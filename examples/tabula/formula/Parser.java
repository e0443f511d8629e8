package tabula.formula;

import tabula.cell.Address;
import tabula.cell.Value;
import tabula.util.Sequence;

/**
 * Understands formulas, without the = in front:
 *
 * <pre>
 *   formula = operand { operator operand }             operators by rank, ^ from the right
 *   operand = "-" operand | primary { "%" }
 *   primary = number | "text" | TRUE | FALSE | cell [ ":" cell ] | name | function "(" [ formulas ] ")"
 *           | "(" formula ")"
 * </pre>
 */
public final class Parser {
    private final Scanner scanner;

    private Parser(String source) throws FormulaException {
        scanner = new Scanner(source);
    }

    public static Expression parse(String source) throws FormulaException {
        Parser parser = new Parser(source);
        Expression formula = parser.formula(0);
        if (parser.scanner.kind != Scanner.Kind.END) throw parser.scanner.unexpected("operator");
        return formula;
    }

    /** A formula whose operators outside of parentheses have at least that rank. */
    private Expression formula(int rank) throws FormulaException {
        Expression left = operand();
        for (;;) {
            Operator operator = scanner.kind == Scanner.Kind.SYMBOL ? Operator.find(scanner.text) : null;
            if (operator == null || operator.rank < rank) return left;
            scanner.step();
            boolean fromRight = operator == Operator.POWER;
            left = new Expression.Binary(operator, left, formula(fromRight ? operator.rank : operator.rank + 1));
        }
    }

    private Expression operand() throws FormulaException {
        if (scanner.take("-")) return new Expression.Unary('-', operand());
        Expression operand = primary();
        while (scanner.take("%")) operand = new Expression.Unary('%', operand);
        return operand;
    }

    private Expression primary() throws FormulaException {
        String text = scanner.text;
        int place = scanner.place;
        switch (scanner.kind) {
        case Scanner.Kind.NUMBER:
            scanner.step();
            return number(text, place);
        case Scanner.Kind.TEXT:
            scanner.step();
            return new Expression.Literal(Value.of(text));
        case Scanner.Kind.NAME:
            scanner.step();
            return named(text, place);
        default:
            if (!scanner.take("(")) throw scanner.unexpected("operand");
            Expression inner = formula(0);
            if (!scanner.take(")")) throw scanner.unexpected(")");
            return inner;
        }
    }

    private static Expression number(String text, int place) throws FormulaException {
        try {
            return new Expression.Literal(Value.of(Double.valueOf(text).doubleValue()));
        } catch (NumberFormatException e) {
            throw new FormulaException(text + " is no number", place);
        }
    }

    private Expression named(String text, int place) throws FormulaException {
        if (scanner.take("(")) return call(text, place);
        if (text.equalsIgnoreCase("true")) return new Expression.Literal(Value.of(true));
        if (text.equalsIgnoreCase("false")) return new Expression.Literal(Value.of(false));
        Expression.Reference reference = reference(text);
        if (reference == null) {
            if (text.indexOf('$') >= 0) throw new FormulaException(text + " is no cell", place);
            return new Expression.Name(text.toLowerCase());
        }
        if (!scanner.take(":")) return reference;
        Expression.Reference to = scanner.kind == Scanner.Kind.NAME ? reference(scanner.text) : null;
        if (to == null) throw scanner.unexpected("cell");
        scanner.step();
        return new Expression.Range(reference, to);
    }

    /** A cell such as B2, $B2, B$2 or $B$2; null if the text is none. */
    private static Expression.Reference reference(String text) {
        boolean isColumnFixed = text.startsWith("$");
        String rest = isColumnFixed ? text.substring(1) : text;
        int dollar = rest.indexOf('$');
        if (dollar == 0 || dollar == rest.length() - 1) return null;
        if (dollar > 0 && !Character.isDigit(rest.charAt(dollar + 1))) return null;
        if (dollar > 0) rest = rest.substring(0, dollar) + rest.substring(dollar + 1);
        if (dollar > 0 && Character.isDigit(rest.charAt(dollar - 1))) return null;
        Address address = Address.parse(rest);
        return address == null ? null : new Expression.Reference(address, dollar > 0, isColumnFixed);
    }

    private Expression call(String name, int place) throws FormulaException {
        Function function = Functions.find(name);
        if (function == null) throw new FormulaException("there is no function " + name, place);
        Sequence arguments = new Sequence();
        if (!scanner.isSymbol(")")) {
            do arguments.add(formula(0));
            while (scanner.take(","));
        }
        if (!scanner.take(")")) throw scanner.unexpected(")");
        if (!function.takes(arguments.size()))
            throw new FormulaException(name + " takes " + function.counts() + ", not " + arguments.size(), place);
        return new Expression.Call(function, arguments);
    }
}
