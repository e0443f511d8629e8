import java.util.Hashtable;

/** A formula as a tree that can be evaluated, printed, differentiated and simplified. */
abstract class Node {
    abstract double value(Hashtable variables);

    abstract Node derivative(String by);

    Node simplify() {
        return this;
    }

    /** How tightly it binds: 1 sums, 2 products, 3 powers, 4 the rest. */
    int level() {
        return 4;
    }

    String inside(int level) {
        return level() < level ? "(" + this + ")" : toString();
    }

    boolean is(double d) {
        return false;
    }
}

class Num extends Node {
    static final Num ZERO = new Num(0), ONE = new Num(1);
    final double d;

    Num(double d) {
        this.d = d;
    }

    double value(Hashtable variables) {
        return d;
    }

    Node derivative(String by) {
        return ZERO;
    }

    boolean is(double d) {
        return this.d == d;
    }

    public String toString() {
        return d == (long) d ? Long.toString((long) d) : Double.toString(d);
    }
}

class Var extends Node {
    final String name;

    Var(String name) {
        this.name = name;
    }

    double value(Hashtable variables) {
        Double d = (Double) variables.get(name);
        if (d == null) throw new ArithmeticException("no value for " + name);
        return d.doubleValue();
    }

    Node derivative(String by) {
        return by.equals(name) ? Num.ONE : Num.ZERO;
    }

    public String toString() {
        return name;
    }
}

class Op extends Node {
    final char op;
    final Node l, r;

    Op(Node l, char op, Node r) {
        this.l = l;
        this.op = op;
        this.r = r;
    }

    int level() {
        return op == '+' || op == '-' ? 1 : op == '^' ? 3 : 2;
    }

    double value(Hashtable variables) {
        double a = l.value(variables), b = r.value(variables);
        switch (op) {
            case '+': return a + b;
            case '-': return a - b;
            case '*': return a * b;
            case '/':
                if (b == 0) throw new ArithmeticException("division by zero in " + this);
                return a / b;
            case '%': return a % b;
            case '^': return Math.pow(a, b);
        }
        throw new Error("operator " + op);
    }

    Node derivative(String by) {
        Node dl = l.derivative(by), dr = r.derivative(by);
        switch (op) {
            case '+': case '-': return new Op(dl, op, dr);
            case '*': return new Op(new Op(dl, '*', r), '+', new Op(l, '*', dr));
            case '/': return new Op(new Op(new Op(dl, '*', r), '-', new Op(l, '*', dr)), '/', new Op(r, '^', new Num(2)));
            case '^':
                if (r instanceof Num) return new Op(new Op(r, '*', new Op(l, '^', new Num(((Num) r).d - 1))), '*', dl);
            default: throw new ArithmeticException("no derivative of " + this);
        }
    }

    Node simplify() {
        Node a = l.simplify(), b = r.simplify();
        if (a instanceof Num && b instanceof Num && !(op == '/' && b.is(0))) return new Num(new Op(a, op, b).value(null));
        switch (op) {
            case '+': if (a.is(0)) return b; if (b.is(0)) return a; break;
            case '-': if (b.is(0)) return a; break;
            case '*': if (a.is(0) || b.is(0)) return Num.ZERO; if (a.is(1)) return b; if (b.is(1)) return a; break;
            case '/': if (b.is(1)) return a; if (a.is(0)) return Num.ZERO; break;
            case '^': if (b.is(1)) return a; if (b.is(0)) return Num.ONE;
        }
        return new Op(a, op, b);
    }

    public String toString() {
        int n = level();
        boolean rightAssociative = op == '^';
        return l.inside(rightAssociative ? n + 1 : n) + (n == 3 ? "" + op : " " + op + " ") + r.inside(rightAssociative ? n : n + 1);
    }
}

class Call extends Node {
    static final String[] NAMES = { "sqrt", "abs", "max", "sum", "if" };
    final int function;
    final Node[] args;

    Call(int function, Node[] args) {
        this.function = function;
        this.args = args;
    }

    double value(Hashtable v) {
        double result = 0;
        switch (function) {
            case 0: return Math.sqrt(args[0].value(v));
            case 1: return (result = args[0].value(v)) < 0 ? -result : result;
            case 2: result = Double.NEGATIVE_INFINITY;
            case 3:
                for (int i = 0; i < args.length; i++)
                    if (function == 3) result += args[i].value(v);
                    else result = Math.max(result, args[i].value(v));
                return result;
            case 4: return args[args[0].value(v) != 0 ? 1 : 2].value(v);
        }
        return result;
    }

    Node derivative(String by) {
        if (function == 3) {
            Node[] ds = new Node[args.length];
            for (int i = 0; i < ds.length; i++) ds[i] = args[i].derivative(by);
            return new Call(3, ds);
        }
        throw new ArithmeticException("no derivative of " + this);
    }

    public String toString() {
        String s = NAMES[function] + "(";
        for (int i = 0; i < args.length; i++) s += (i > 0 ? ", " : "") + args[i];
        return s + ")";
    }
}

class SyntaxFault extends Exception {
    final int at;

    SyntaxFault(String text, int at) {
        super(text + " at " + at);
        this.at = at;
    }
}

/** Recursive descent over the characters. */
class Parser {
    private final String text;
    private int at;

    Parser(String text) {
        this.text = text;
    }

    private char peek() {
        while (at < text.length() && text.charAt(at) == ' ') at++;
        return at < text.length() ? text.charAt(at) : '\0';
    }

    private boolean accept(char c) {
        if (peek() != c) return false;
        at++;
        return true;
    }

    private void expect(char c) throws SyntaxFault {
        if (!accept(c)) throw new SyntaxFault("'" + c + "' expected", at);
    }

    Node whole() throws SyntaxFault {
        Node n = sum();
        if (peek() != '\0') throw new SyntaxFault("unexpected '" + peek() + "'", at);
        return n;
    }

    private Node sum() throws SyntaxFault {
        Node n = product();
        for (;;) {
            if (accept('+')) n = new Op(n, '+', product());
            else if (accept('-')) n = new Op(n, '-', product());
            else return n;
        }
    }

    private Node product() throws SyntaxFault {
        Node n = power();
        char c;
        while ((c = peek()) == '*' || c == '/' || c == '%') {
            at++;
            n = new Op(n, c, power());
        }
        return n;
    }

    private Node power() throws SyntaxFault {
        Node n = atom();
        return accept('^') ? new Op(n, '^', power()) : n;
    }

    private Node atom() throws SyntaxFault {
        char c = peek();
        int start = at;
        if (accept('(')) {
            Node n = sum();
            expect(')');
            return n;
        }
        if (accept('-')) return new Op(Num.ZERO, '-', power());
        if (Character.isDigit(c)) {
            do at++; while (at < text.length() && (Character.isDigit(text.charAt(at)) || text.charAt(at) == '.'));
            return new Num(Double.valueOf(text.substring(start, at)).doubleValue());
        }
        if (Character.isLetter(c)) {
            while (at < text.length() && Character.isLetterOrDigit(text.charAt(at))) at++;
            String name = text.substring(start, at);
            if (!accept('(')) return new Var(name);
            int f = 0;
            while (f < Call.NAMES.length && !Call.NAMES[f].equals(name)) f++;
            if (f == Call.NAMES.length) throw new SyntaxFault("no function " + name, start);
            Node[] args = new Node[0];
            if (!accept(')')) {
                do {
                    Node[] more = new Node[args.length + 1];
                    System.arraycopy(args, 0, more, 0, args.length);
                    more[args.length] = sum();
                    args = more;
                } while (accept(','));
                expect(')');
            }
            return new Call(f, args);
        }
        throw new SyntaxFault(c == '\0' ? "unexpected end" : "unexpected '" + c + "'", at);
    }
}

public class Main {
    static Hashtable variables = new Hashtable();

    static void evaluate(String text) {
        try {
            Node n = new Parser(text).whole();
            System.out.println(n + " = " + n.value(variables));
        } catch (SyntaxFault e) {
            System.out.println(text + ": " + e.getMessage());
        } catch (ArithmeticException e) {
            System.out.println(text + ": " + e.getMessage());
        }
    }

    static void derive(String text) throws SyntaxFault {
        Node n = new Parser(text).whole();
        try {
            Node d = n.derivative("x");
            System.out.println("(" + n + ")' = " + d.simplify() + " = " + d.value(variables) + " = " + d.simplify().value(variables));
        } catch (ArithmeticException e) {
            System.out.println(e.getMessage());
        }
    }

    public static void main(String[] args) throws SyntaxFault {
        variables.put("x", new Double(3));
        variables.put("y", new Double(-0.5));
        String[] formulas = { "1 + 2 * 3", "(1 + 2) * 3", "2^3^2", "(2^3)^2", "10 - 4 - 3", "10 - (4 - 3)", "8 / 4 / 2", "8 / (4 / 2)", "7 % 4 * 2", "-x^2",
            "x * y + 1", "max(1, x, y) - sum() + sum(1, 2, 3)", "if(x - 3, 1 / 0, sqrt(16))", "abs(y) * -2", "1.25e", "2 *", "(1", "f(x)", "1 / (x - 3)", "z", "3 $ 4", "" };
        for (int i = 0; i < formulas.length; i++) evaluate(formulas[i]);
        derive("x^3 + 2 * x^2 - 5 * x + 7");
        derive("(x + 1) * (x - 1)");
        derive("1 / x");
        derive("sum(x, x * x, y)");
        derive("x % 2");
        derive("max(x, 1)");
    }
}
