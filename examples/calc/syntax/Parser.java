package calc.syntax;

import calc.tree.*;
import java.util.Vector;

/** Builds the tree of a program by recursive descent. */
public class Parser implements Tokens {
    /** How tightly the operators bind, from `or` to the multiplying ones; by kind of token, 0 for no operator. */
    private static final int[] LEVELS = new int[SPELLING.length];
    private static final int MOST = 5;

    static {
        LEVELS[OR] = 1;
        LEVELS[AND] = 2;
        for (int k = EQUAL; k <= GREATER_EQUAL; k++) LEVELS[k] = 3;
        LEVELS[PLUS] = LEVELS[MINUS] = 4;
        LEVELS[STAR] = LEVELS[SLASH] = LEVELS[PERCENT] = MOST;
    }

    private final Scanner scanner;

    public Parser(String source) throws SyntaxException {
        scanner = new Scanner(source);
    }

    private boolean accept(int kind) throws SyntaxException {
        if (scanner.kind != kind) return false;
        scanner.next();
        return true;
    }

    private void expect(int kind) throws SyntaxException {
        if (!accept(kind)) throw new SyntaxException(SPELLING[kind] + " expected, but found " + scanner.describe(), scanner.line);
    }

    private String name() throws SyntaxException {
        String name = scanner.text;
        expect(NAME);
        return name;
    }

    public Program program() throws SyntaxException {
        Vector statements = new Vector();
        while (scanner.kind != END) statements.addElement(statement());
        return new Program(new Block(1, statements));
    }

    private Block block() throws SyntaxException {
        int line = scanner.line;
        Vector statements = new Vector();
        expect(OPEN_BRACE);
        while (!accept(CLOSE_BRACE)) {
            if (scanner.kind == END) throw new SyntaxException("the block of line " + line + " has no end", scanner.line);
            statements.addElement(statement());
        }
        return new Block(line, statements);
    }

    private Statement statement() throws SyntaxException {
        int line = scanner.line, kind = scanner.kind;
        switch (kind) {
            case IF: {
                scanner.next();
                Expression condition = expression();
                Block then = block();
                Statement otherwise = null;
                if (accept(ELSE)) otherwise = scanner.kind == IF ? statement() : block();
                return new If(line, condition, then, otherwise);
            }
            case WHILE: {
                scanner.next();
                Expression condition = expression();
                return new While(line, condition, block());
            }
            case FOR: {
                scanner.next();
                String variable = name();
                expect(IN);
                Expression list = expression();
                return new For(line, variable, list, block());
            }
            case FUNCTION: {
                scanner.next();
                String name = name();
                Vector parameters = new Vector();
                expect(OPEN);
                if (!accept(CLOSE)) {
                    do parameters.addElement(name()); while (accept(COMMA));
                    expect(CLOSE);
                }
                String[] names = new String[parameters.size()];
                parameters.copyInto(names);
                return new Function(line, name, names, block());
            }
            case OPEN_BRACE:
                return block();
        }
        Statement s = simple(line, kind);
        expect(SEMICOLON);
        return s;
    }

    /** A statement that ends with a semicolon. */
    private Statement simple(int line, int kind) throws SyntaxException {
        switch (kind) {
            case LET: {
                scanner.next();
                String name = name();
                expect(ASSIGN);
                return new Let(line, name, expression());
            }
            case RETURN:
                scanner.next();
                return new Return(line, scanner.kind == SEMICOLON ? null : expression());
            case PRINT:
                scanner.next();
                return new Print(line, list(SEMICOLON));
        }
        Expression target = expression();
        if (!accept(ASSIGN)) return new Evaluate(line, target);
        if (!(target instanceof Assignable)) throw new SyntaxException("cannot be assigned to", line);
        return new Assign(line, (Assignable) target, expression());
    }

    /** Expressions with commas between them, up to but not including the end token. */
    private Expression[] list(int end) throws SyntaxException {
        Vector items = new Vector();
        if (scanner.kind != end) do items.addElement(expression()); while (accept(COMMA));
        Expression[] all = new Expression[items.size()];
        items.copyInto(all);
        return all;
    }

    private Expression expression() throws SyntaxException {
        return binary(1);
    }

    private Expression binary(int level) throws SyntaxException {
        if (level > MOST) return unary();
        Expression left = binary(level + 1);
        while (LEVELS[scanner.kind] == level) {
            int operator = scanner.kind, line = scanner.line;
            scanner.next();
            left = new Binary(line, operator, left, binary(level + 1));
        }
        return left;
    }

    private Expression unary() throws SyntaxException {
        int line = scanner.line, kind = scanner.kind;
        if (kind != MINUS && kind != NOT) return postfix();
        scanner.next();
        return new Unary(line, kind, unary());
    }

    private Expression postfix() throws SyntaxException {
        Expression e = primary();
        for (;;) {
            int line = scanner.line;
            if (accept(OPEN_BRACKET)) {
                e = new Index(line, e, expression());
                expect(CLOSE_BRACKET);
            } else if (accept(OPEN)) {
                e = new Call(line, e, list(CLOSE));
                expect(CLOSE);
            } else return e;
        }
    }

    private Expression primary() throws SyntaxException {
        int line = scanner.line;
        Expression e;
        switch (scanner.kind) {
            case NUMBER: e = Literal.number(line, scanner.number); break;
            case TEXT: e = Literal.text(line, scanner.text); break;
            case TRUE: case FALSE: e = Literal.truth(line, scanner.kind == TRUE); break;
            case NAME: e = new Variable(line, scanner.text); break;
            case OPEN:
                scanner.next();
                e = expression();
                expect(CLOSE);
                return e;
            case OPEN_BRACKET:
                scanner.next();
                e = new ListOf(line, list(CLOSE_BRACKET));
                expect(CLOSE_BRACKET);
                return e;
            default:
                throw new SyntaxException("unexpected " + scanner.describe(), line);
        }
        scanner.next();
        return e;
    }
}
