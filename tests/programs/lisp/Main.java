import java.io.*;
import java.util.Hashtable;

class Pair {
    static final Pair NIL = new Pair(null, null);
    Object head, tail;

    Pair(Object head, Object tail) {
        this.head = head;
        this.tail = tail;
    }

    static Object list(Object[] items) {
        Object l = NIL;
        for (int i = items.length; i > 0; ) l = new Pair(items[--i], l);
        return l;
    }
}

final class Symbol {
    private static final Hashtable ALL = new Hashtable();
    final String name;

    private Symbol(String name) {
        this.name = name;
    }

    static Symbol of(String name) {
        Symbol s = (Symbol) ALL.get(name);
        if (s == null) ALL.put(name, s = new Symbol(name));
        return s;
    }

    public String toString() {
        return name;
    }
}

class LispException extends Exception {
    final Object value;

    LispException(String s) {
        this(s, s);
    }

    LispException(String s, Object value) {
        super(s);
        this.value = value;
    }
}

class Reader {
    private final PushbackReader in;

    Reader(String s) {
        in = new PushbackReader(new StringReader(s));
    }

    static final Object END = new Object(), CLOSE = new Object(), DOT = new Object();

    Object read() throws LispException {
        try {
            Object o = item();
            if (o == CLOSE) throw new LispException("unexpected )");
            return o;
        } catch (IOException e) {
            throw new LispException(e.toString());
        }
    }

    private Object item() throws IOException, LispException {
        int c;
        while ((c = in.read()) == ' ' || c == '\n' || c == ';') if (c == ';') while ((c = in.read()) != '\n' && c >= 0) ;
        switch (c) {
            case -1: return END;
            case '(': return rest();
            case ')': return CLOSE;
            case '\'': return new Pair(Symbol.of("quote"), new Pair(read(), Pair.NIL));
            case '"': {
                StringBuffer b = new StringBuffer();
                while ((c = in.read()) != '"') {
                    if (c < 0) throw new LispException("string without end");
                    b.append((char) (c == '\\' ? in.read() : c));
                }
                return b.toString();
            }
        }
        StringBuffer b = new StringBuffer();
        do b.append((char) c); while ((c = in.read()) >= 0 && " \n()';\"".indexOf((char) c) < 0);
        if (c >= 0) in.unread(c);
        String s = b.toString();
        if (s.equals(".")) return DOT;
        try {
            return new Long(Long.parseLong(s));
        } catch (NumberFormatException e) {
            return Symbol.of(s);
        }
    }

    private Object rest() throws IOException, LispException {
        Object o = item();
        if (o == CLOSE) return Pair.NIL;
        if (o == END) throw new LispException("list without end");
        if (o != DOT) return new Pair(o, rest());
        o = read();
        if (item() != CLOSE) throw new LispException(") expected");
        return o;
    }
}

class Scope {
    private final Hashtable values = new Hashtable();
    private final Scope outer;

    Scope(Scope outer) {
        this.outer = outer;
    }

    void define(Object name, Object value) {
        values.put(name, value);
    }

    private Scope holder(Object name) throws LispException {
        for (Scope s = this; s != null; s = s.outer) if (s.values.containsKey(name)) return s;
        throw new LispException("unbound " + name);
    }

    Object get(Object name) throws LispException {
        return holder(name).values.get(name);
    }

    void set(Object name, Object value) throws LispException {
        holder(name).values.put(name, value);
    }
}

interface Function {
    Object apply(Object[] args) throws LispException;
}

class Closure implements Function {
    final Object parameters, body;
    final Scope scope;

    Closure(Object parameters, Object body, Scope scope) {
        this.parameters = parameters;
        this.body = body;
        this.scope = scope;
    }

    Scope bind(Object[] args) throws LispException {
        Scope s = new Scope(scope);
        Object p = parameters;
        int i = 0;
        for (; p instanceof Pair && p != Pair.NIL; p = ((Pair) p).tail, i++) {
            if (i >= args.length) throw new LispException("too few arguments");
            s.define(((Pair) p).head, args[i]);
        }
        if (p instanceof Symbol) {
            Object[] more = new Object[args.length - i];
            System.arraycopy(args, i, more, 0, more.length);
            s.define(p, Pair.list(more));
        } else if (i < args.length) throw new LispException("too many arguments");
        return s;
    }

    public Object apply(Object[] args) throws LispException {
        return Lisp.sequence(body, bind(args));
    }
}

class BuiltIn implements Function {
    static final String[] NAMES = { "+", "-", "*", "quotient", "remainder", "=", "<", ">", "cons", "car", "cdr", "null?", "pair?", "eq?", "list", "not", "apply", "length",
        "symbol?", "number?", "raise", "append", "equal?" };
    private final int code;

    BuiltIn(int code) {
        this.code = code;
    }

    private static long number(Object o) throws LispException {
        if (!(o instanceof Long)) throw new LispException("no number: " + Lisp.show(o));
        return ((Long) o).longValue();
    }

    private static Pair pair(Object o) throws LispException {
        if (o == Pair.NIL || !(o instanceof Pair)) throw new LispException("no pair: " + Lisp.show(o));
        return (Pair) o;
    }

    private static Object flag(boolean b) {
        return b ? Boolean.TRUE : Boolean.FALSE;
    }

    public Object apply(Object[] a) throws LispException {
        try {
            long n;
            switch (code) {
                case 0: n = 0; for (int i = 0; i < a.length; i++) n += number(a[i]); return new Long(n);
                case 1: n = number(a[0]); if (a.length == 1) return new Long(-n); for (int i = 1; i < a.length; i++) n -= number(a[i]); return new Long(n);
                case 2: n = 1; for (int i = 0; i < a.length; n *= number(a[i++])) ; return new Long(n);
                case 3: return new Long(number(a[0]) / number(a[1]));
                case 4: return new Long(number(a[0]) % number(a[1]));
                case 5: return flag(number(a[0]) == number(a[1]));
                case 6: return flag(number(a[0]) < number(a[1]));
                case 7: return flag(number(a[0]) > number(a[1]));
                case 8: return new Pair(a[0], a[1]);
                case 9: return pair(a[0]).head;
                case 10: return pair(a[0]).tail;
                case 11: return flag(a[0] == Pair.NIL);
                case 12: return flag(a[0] != Pair.NIL && a[0] instanceof Pair);
                case 13: return flag(a[0] == a[1] || a[0] instanceof Long && a[0].equals(a[1]));
                case 14: return Pair.list(a);
                case 15: return flag(a[0] == Boolean.FALSE);
                case 16: return ((Function) a[0]).apply(Lisp.array(a[1]));
                case 17: return new Long(Lisp.array(a[0]).length);
                case 18: return flag(a[0] instanceof Symbol);
                case 19: return flag(a[0] instanceof Long);
                case 20: throw new LispException("raised " + Lisp.show(a[0]), a[0]);
                case 21: {
                    Object r = a[a.length - 1];
                    for (int i = a.length - 1; i-- > 0; ) {
                        Object[] items = Lisp.array(a[i]);
                        for (int k = items.length; --k >= 0; r = new Pair(items[k], r)) ;
                    }
                    return r;
                }
                case 22: return flag(Lisp.show(a[0]).equals(Lisp.show(a[1])));
            }
            throw new InternalError(NAMES[code]);
        } catch (ArrayIndexOutOfBoundsException e) {
            throw new LispException(NAMES[code] + " needs more arguments");
        } catch (ArithmeticException e) {
            throw new LispException("division by zero");
        } catch (ClassCastException e) {
            throw new LispException("no function: " + Lisp.show(a[0]));
        }
    }
}

class Lisp {
    private static final Symbol QUOTE = Symbol.of("quote"), IF = Symbol.of("if"), DEFINE = Symbol.of("define"), LAMBDA = Symbol.of("lambda"), SET = Symbol.of("set!"),
        LET = Symbol.of("let"), COND = Symbol.of("cond"), ELSE = Symbol.of("else"), BEGIN = Symbol.of("begin"), TRY = Symbol.of("try"), AND = Symbol.of("and"), OR = Symbol.of("or");
    static int steps;

    static Object[] array(Object list) throws LispException {
        int n = 0;
        for (Object o = list; o != Pair.NIL; n++)
            if (o instanceof Pair) o = ((Pair) o).tail;
            else throw new LispException("no list: " + show(list));
        Object[] a = new Object[n];
        for (int i = 0; i < n; i++, list = ((Pair) list).tail) a[i] = ((Pair) list).head;
        return a;
    }

    static Object sequence(Object body, Scope s) throws LispException {
        Object r = Pair.NIL;
        for (; body != Pair.NIL; body = ((Pair) body).tail) r = eval(((Pair) body).head, s);
        return r;
    }

    private static Object at(Object form, int i) throws LispException {
        try {
            for (; i > 0; i--) form = ((Pair) form).tail;
            if (form == Pair.NIL) throw new LispException("form too short");
            return ((Pair) form).head;
        } catch (NullPointerException e) {
            throw new LispException("form too short");
        }
    }

    /** Calls at the end of a body go round the loop, so that they need no depth. */
    static Object eval(Object x, Scope s) throws LispException {
        evaluation:
        for (;;) {
            steps++;
            if (x instanceof Symbol) return s.get(x);
            if (!(x instanceof Pair)) return x;
            if (x == Pair.NIL) throw new LispException("empty form");
            Object op = ((Pair) x).head;
            Object rest = ((Pair) x).tail;
            if (op == QUOTE) return at(x, 1);
            if (op == IF) {
                boolean yes = eval(at(x, 1), s) != Boolean.FALSE;
                if (!yes && ((Pair) ((Pair) rest).tail).tail == Pair.NIL) return Pair.NIL;
                x = at(x, yes ? 2 : 3);
                continue;
            }
            if (op == DEFINE) {
                Object name = at(x, 1);
                if (name instanceof Pair) s.define(((Pair) name).head, new Closure(((Pair) name).tail, ((Pair) rest).tail, s));
                else s.define(name, eval(at(x, 2), s));
                return name instanceof Pair ? ((Pair) name).head : name;
            }
            if (op == SET) {
                Object value = eval(at(x, 2), s);
                s.set(at(x, 1), value);
                return value;
            }
            if (op == LAMBDA) return new Closure(at(x, 1), ((Pair) rest).tail, s);
            if (op == BEGIN) return sequence(rest, s);
            if (op == LET) {
                Scope inner = new Scope(s);
                Object[] bindings = array(at(x, 1));
                for (int i = 0; i < bindings.length; i++) inner.define(at(bindings[i], 0), eval(at(bindings[i], 1), s));
                return sequence(((Pair) rest).tail, inner);
            }
            if (op == COND) {
                for (; rest != Pair.NIL; rest = ((Pair) rest).tail) {
                    Object clause = ((Pair) rest).head;
                    if (at(clause, 0) != ELSE && eval(at(clause, 0), s) == Boolean.FALSE) continue;
                    x = at(clause, 1);
                    continue evaluation;
                }
                return Pair.NIL;
            }
            if (op == AND || op == OR) {
                Object r = op == AND ? Boolean.TRUE : Boolean.FALSE;
                for (Object[] forms = array(rest), none = forms; ; ) {
                    for (int i = 0; i < forms.length; i++) {
                        r = eval(forms[i], s);
                        if (r == Boolean.FALSE == (op == AND)) return r;
                    }
                    return r;
                }
            }
            if (op == TRY) {
                try {
                    return eval(at(x, 1), s);
                } catch (LispException e) {
                    return ((Function) eval(at(x, 2), s)).apply(new Object[] { e.value });
                } finally {
                    steps += 1000;
                }
            }
            Object f = eval(op, s);
            Object[] args = array(rest);
            for (int i = 0; i < args.length; i++) args[i] = eval(args[i], s);
            if (!(f instanceof Function)) throw new LispException("no function: " + show(f));
            if (!(f instanceof Closure)) return ((Function) f).apply(args);
            Closure c = (Closure) f;
            s = c.bind(args);
            Object body = c.body;
            for (; ((Pair) body).tail != Pair.NIL; body = ((Pair) body).tail) eval(((Pair) body).head, s);
            x = ((Pair) body).head;
        }
    }

    static String show(Object o) {
        if (o instanceof Boolean) return o == Boolean.TRUE ? "#t" : "#f";
        if (o instanceof String) return '"' + (String) o + '"';
        if (o instanceof Function) return o instanceof Closure ? "<closure>" : "<built in>";
        if (!(o instanceof Pair)) return String.valueOf(o);
        StringBuffer b = new StringBuffer("(");
        for (String gap = ""; o != Pair.NIL; o = ((Pair) o).tail, gap = " ") {
            b.append(gap);
            if (!(o instanceof Pair)) {
                b.append(". ").append(show(o));
                break;
            }
            b.append(show(((Pair) o).head));
        }
        return b.append(')').toString();
    }
}

public class Main {
    public static void main(String[] args) {
        Scope global = new Scope(null);
        for (int i = 0; i < BuiltIn.NAMES.length; i++) global.define(Symbol.of(BuiltIn.NAMES[i]), new BuiltIn(i));
        global.define(Symbol.of("#t"), Boolean.TRUE);
        global.define(Symbol.of("#f"), Boolean.FALSE);
        String program = "(define (square x) (* x x)) (square 12) ; a comment\n (define (fact n) (if (< n 2) 1 (* n (fact (- n 1))))) (fact 20)"
            + "(define (map f l) (if (null? l) '() (cons (f (car l)) (map f (cdr l))))) (map square '(1 2 3 4)) (map (lambda (p) (car p)) '((a . 1) (b . 2)))"
            + "(define (loop n acc) (if (= n 0) acc (loop (- n 1) (+ acc n)))) (loop 20000 0)"
            + "(define (counter) (let ((n 0)) (lambda () (set! n (+ n 1)) n))) (define c (counter)) (c) (c) (list (c) ((counter)))"
            + "(define (fib n) (cond ((< n 2) n) (else (+ (fib (- n 1)) (fib (- n 2)))))) (fib 15)"
            + "(define (filter p l) (cond ((null? l) l) ((p (car l)) (cons (car l) (filter p (cdr l)))) (else (filter p (cdr l)))))"
            + "(define (sort l) (if (null? l) l (let ((h (car l)) (t (cdr l))) (append (sort (filter (lambda (x) (< x h)) t)) (list h) (sort (filter (lambda (x) (not (< x h))) t))))))"
            + "(sort '(3 1 4 1 5 9 2 6 5 3 5)) '(1 (2 \"three\" . 4) () . five) '(quote x) ''x (apply + 1 '(2 3)) (apply + '(1 2 3)) ((lambda (a . rest) (list a rest)) 1 2 3) ((lambda all all)) (length '(a b c))"
            + "(and 1 2 #f 3) (and) (or #f 7 8) (or) (if #f 1) (begin 1 2 3) (eq? 'a 'a) (equal? '(1 (2)) (list 1 (list 2))) (- 5) (- 10 1 2) (quotient -7 2) (remainder -7 2)"
            + "(try (raise '(my fault)) (lambda (e) (list 'caught e))) (try (car 5) (lambda (e) e)) (try (+ 1 2) 0) square car"
            + "(undefined) (car '()) (quotient 1 0) (1 2) (fact) (square 1 2) () (let ((x)) x) (+ 'a 1) (cons 1) (length '(1 . 2)) (apply 5 '())"
            + "(define (even n) (if (= n 0) #t (odd (- n 1)))) (define (odd n) (if (= n 0) #f (even (- n 1)))) (even 1001) (( (1 \"x";
        Reader r = new Reader(program);
        while (true) {
            try {
                Object form = r.read();
                if (form == Reader.END) break;
                System.out.println(Lisp.show(Lisp.eval(form, global)));
            } catch (LispException e) {
                System.out.println("fault: " + e.getMessage());
            }
        }
        System.out.println(Lisp.steps + " steps");
    }
}
