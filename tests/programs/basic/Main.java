import java.util.*;

/** A line-numbered BASIC: LET, PRINT, IF, GOTO, GOSUB, RETURN, FOR, NEXT, DIM, DATA, READ, REM, END. */
class Basic {
    private final Vector lines = new Vector();
    private final Hashtable numbers = new Hashtable(), strings = new Hashtable(), arrays = new Hashtable();
    private final Stack calls = new Stack(), loops = new Stack();
    private Vector data = new Vector();
    private int dataAt, pc, column, steps;
    private String line;
    private int at;
    private StringBuffer out = new StringBuffer();

    private static final int MOST_STEPS = 20000;

    void load(String[] source) {
        for (int i = 0; i < source.length; i++) {
            Line l = new Line(source[i]);
            int k = lines.size();
            while (k > 0 && ((Line) lines.elementAt(k - 1)).number >= l.number) k--;
            if (k < lines.size() && ((Line) lines.elementAt(k)).number == l.number) lines.setElementAt(l, k);
            else lines.insertElementAt(l, k);
        }
        for (int i = 0; i < lines.size(); i++) {
            String t = ((Line) lines.elementAt(i)).text;
            if (t.startsWith("DATA"))
                for (StringTokenizer st = new StringTokenizer(t.substring(4), ", "); st.hasMoreTokens(); ) data.addElement(st.nextToken());
        }
    }

    String run() {
        try {
            while (pc < lines.size()) {
                Line l = (Line) lines.elementAt(pc++);
                if (++steps > MOST_STEPS) throw new BasicFault("too many steps");
                line = l.text;
                at = 0;
                if (!statement()) break;
            }
        } catch (BasicFault e) {
            out.append("? ").append(e.getMessage()).append(" in ").append(((Line) lines.elementAt(pc - 1)).number).append('\n');
        }
        return out.toString();
    }

    private void jump(int number) throws BasicFault {
        for (int i = 0; i < lines.size(); i++) {
            if (((Line) lines.elementAt(i)).number == number) {
                pc = i;
                return;
            }
        }
        throw new BasicFault("no line " + number);
    }

    private void blanks() {
        while (at < line.length() && line.charAt(at) == ' ') at++;
    }

    private boolean accept(String s) {
        blanks();
        if (!line.startsWith(s, at)) return false;
        at += s.length();
        return true;
    }

    private void expect(String s) throws BasicFault {
        if (!accept(s)) throw new BasicFault(s + " expected");
    }

    private String name() throws BasicFault {
        blanks();
        int from = at;
        while (at < line.length() && Character.isUpperCase(line.charAt(at))) at++;
        if (from == at) throw new BasicFault("name expected");
        if (at < line.length() && line.charAt(at) == '$') ++at;
        return line.substring(from, at);
    }

    /** False at the end of the program. */
    private boolean statement() throws BasicFault {
        do {
            if (accept("REM") || accept("DATA")) return true;
            if (accept("PRINT")) print();
            else if (accept("IF")) {
                boolean c = expression() != 0;
                expect("THEN");
                if (!c) return true;
                blanks();
                if (at < line.length() && Character.isDigit(line.charAt(at))) {
                    jump((int) expression());
                    return true;
                }
                at--;
                line = line.substring(0, at) + ":" + line.substring(at + 1);
            } else if (accept("GOTO")) {
                jump((int) expression());
                return true;
            } else if (accept("GOSUB")) {
                int to = (int) expression();
                if (calls.size() > 50) throw new BasicFault("too many calls");
                calls.push(new int[] { pc });
                jump(to);
                return true;
            } else if (accept("RETURN")) {
                if (calls.empty()) throw new BasicFault("RETURN without GOSUB");
                pc = ((int[]) calls.pop())[0];
                return true;
            } else if (accept("FOR")) {
                Loop l = new Loop(name());
                expect("=");
                numbers.put(l.variable, new Double(expression()));
                expect("TO");
                l.limit = expression();
                l.step = accept("STEP") ? expression() : 1;
                l.pc = pc;
                l.line = line;
                l.at = at;
                loops.push(l);
            } else if (accept("NEXT")) {
                String v = name();
                for (; ; loops.pop()) {
                    if (loops.empty()) throw new BasicFault("NEXT without FOR");
                    if (((Loop) loops.peek()).variable.equals(v)) break;
                }
                Loop l = (Loop) loops.peek();
                double value = number(v) + l.step;
                numbers.put(v, new Double(value));
                if (l.step < 0 ? value >= l.limit : value <= l.limit) {
                    pc = l.pc;
                    line = l.line;
                    at = l.at;
                } else loops.pop();
            } else if (accept("DIM")) {
                do {
                    String v = name();
                    expect("(");
                    int size = (int) expression();
                    expect(")");
                    if (size < 0) throw new BasicFault("size " + size);
                    arrays.put(v, new double[size + 1]);
                } while (accept(","));
            } else if (accept("READ")) {
                if (dataAt >= data.size()) throw new BasicFault("out of data");
                assign(name(), (String) data.elementAt(dataAt++));
            } else if (accept("END")) return false;
            else {
                accept("LET");
                String v = name();
                if (v.endsWith("$")) {
                    expect("=");
                    strings.put(v, text());
                } else if (accept("(")) {
                    int i = (int) expression();
                    expect(")");
                    expect("=");
                    double value = expression();
                    element(v, i, value, true);
                } else {
                    expect("=");
                    numbers.put(v, new Double(expression()));
                }
            }
        } while (accept(":"));
        blanks();
        if (at < line.length()) throw new BasicFault("'" + line.substring(at) + "' not understood");
        return true;
    }

    private void assign(String v, String value) throws BasicFault {
        if (v.endsWith("$")) strings.put(v, value);
        else
            try {
                numbers.put(v, Double.valueOf(value));
            } catch (NumberFormatException e) {
                throw new BasicFault(value + " is no number");
            }
    }

    private double element(String v, int i, double value, boolean store) throws BasicFault {
        double[] a = (double[]) arrays.get(v);
        try {
            return store ? (a[i] = value) : a[i];
        } catch (NullPointerException e) {
            throw new BasicFault(v + " has no size");
        } catch (ArrayIndexOutOfBoundsException e) {
            throw new BasicFault(v + "(" + i + ") of " + (a.length - 1));
        }
    }

    private void print() throws BasicFault {
        boolean lineEnd = true;
        for (;;) {
            blanks();
            if (at >= line.length() || line.charAt(at) == ':') break;
            lineEnd = true;
            if (accept(";")) lineEnd = false;
            else if (accept(",")) {
                do out.append(' '); while (++column % 8 != 0);
                lineEnd = false;
            } else {
                String s = isText() ? text() : show(expression());
                out.append(s);
                column += s.length();
            }
        }
        if (lineEnd) {
            out.append('\n');
            column = 0;
        }
    }

    static String show(double d) {
        return d == Math.floor(d) && Math.abs(d) < 1e9 ? String.valueOf((long) d) : String.valueOf(d);
    }

    private boolean isText() {
        blanks();
        if (line.charAt(at) == '"' || line.startsWith("LEFT$", at) || line.startsWith("STR$", at)) return true;
        int i = at;
        while (i < line.length() && Character.isUpperCase(line.charAt(i))) i++;
        return i > at && i < line.length() && line.charAt(i) == '$';
    }

    private String text() throws BasicFault {
        String s = "";
        do {
            if (accept("\"")) {
                int end = line.indexOf('"', at);
                if (end < 0) throw new BasicFault("quote");
                s += line.substring(at, end);
                at = end + 1;
            } else if (accept("LEFT$(")) {
                String t = text();
                expect(",");
                s += t.substring(0, Math.min(t.length(), (int) expression()));
                expect(")");
            } else if (accept("STR$(")) {
                s += show(expression());
                expect(")");
            } else {
                Object t = strings.get(name());
                if (t != null) s += t;
            }
        } while (accept("+"));
        return s;
    }

    private double expression() throws BasicFault {
        double d = relation();
        for (;;)
            if (accept("AND")) d = relation() != 0 & d != 0 ? -1 : 0;
            else if (accept("OR")) d = relation() != 0 | d != 0 ? -1 : 0;
            else return d;
    }

    private double relation() throws BasicFault {
        if (isText()) {
            String a = text();
            boolean not = accept("<>");
            if (!not) expect("=");
            return a.equals(text()) != not ? -1 : 0;
        }
        double a = sum();
        boolean less = accept("<"), greater = accept(">"), equal = accept("=");
        if (!(less | greater | equal)) return a;
        double b = sum();
        return less && a < b || greater && a > b || equal && a == b ? -1 : 0;
    }

    private double sum() throws BasicFault {
        double d = product();
        while (true) {
            if (accept("+")) d += product();
            else if (accept("-")) d -= product();
            else break;
        }
        return d;
    }

    private double product() throws BasicFault {
        double d = atom();
        while (true)
            if (accept("*")) d *= atom();
            else if (accept("/")) {
                double by = atom();
                if (by == 0) throw new BasicFault("division by zero");
                d /= by;
            } else return d;
    }

    private double number(String v) {
        Double d = (Double) numbers.get(v);
        return d == null ? 0 : d.doubleValue();
    }

    private double atom() throws BasicFault {
        double d;
        if (accept("(")) {
            d = expression();
            expect(")");
            return d;
        }
        if (accept("-")) return -atom();
        if (accept("NOT")) return atom() == 0 ? -1 : 0;
        blanks();
        int from = at;
        while (at < line.length() && (Character.isDigit(line.charAt(at)) || line.charAt(at) == '.')) at++;
        if (at > from) return Double.valueOf(line.substring(from, at)).doubleValue();
        String v = name();
        if (!accept("(")) return number(v);
        if (v.equals("LEN")) d = text().length();
        else {
            d = expression();
            if (v.equals("INT")) d = Math.floor(d);
            else if (v.equals("SQR")) d = Math.sqrt(d);
            else if (v.equals("ABS")) d = Math.abs(d);
            else if (v.equals("SGN")) d = d > 0 ? 1 : d < 0 ? -1 : 0;
            else d = element(v, (int) d, 0, false);
        }
        expect(")");
        return d;
    }
}

class BasicFault extends Exception {
    BasicFault(String s) {
        super(s);
    }
}

class Loop {
    final String variable;
    double limit, step;
    int pc, at;
    String line;

    Loop(String variable) {
        this.variable = variable;
    }
}

class Line {
    final int number;
    final String text;

    Line(String s) {
        int blank = s.indexOf(' ');
        number = Integer.parseInt(s.substring(0, blank));
        text = s.substring(blank + 1);
    }
}

public class Main {
    static void run(String title, String[] program) {
        Basic b = new Basic();
        b.load(program);
        System.out.println("RUN " + title);
        System.out.print(b.run());
    }

    public static void main(String[] args) {
        run("squares", new String[] { "10 FOR I = 1 TO 5", "20 PRINT I; \" squared is \"; I * I", "30 NEXT I" });
        run("sieve", new String[] { "10 DIM P(50)", "20 FOR I = 2 TO 50", "30 IF P(I) THEN 80", "40 PRINT I; \" \"; : IF I > 25 THEN 80", "50 FOR J = I + I TO 50 STEP I", "60 P(J) = 1", "70 NEXT J",
            "80 NEXT I", "90 PRINT" });
        run("gcd by subroutine", new String[] { "10 READ A : READ B", "20 IF A = 0 AND B = 0 THEN END", "30 PRINT \"gcd of \"; A; \" and \"; B; \" is \";", "40 GOSUB 100", "50 PRINT A", "60 GOTO 10",
            "100 IF A = B THEN RETURN", "110 IF A > B THEN A = A - B", "120 IF B > A THEN B = B - A", "130 GOTO 100", "200 DATA 1071, 462, 17, 5", "210 DATA 12, 18, 0, 0" });
        run("strings", new String[] { "10 LET N$ = \"WORLD\"", "20 PRINT \"HELLO, \" + N$ + \"!\", LEN(N$)", "30 FOR I = LEN(N$) TO 1 STEP -1 : PRINT LEFT$(N$, I); \"-\"; : NEXT I", "40 PRINT",
            "50 IF N$ = \"WORLD\" THEN PRINT \"SAME\" : PRINT STR$(1.5) + \"X\"", "60 IF N$ <> \"WORLD\" THEN PRINT \"OTHER\"" });
        run("nested loops", new String[] { "10 FOR I = 1 TO 3", "20 FOR J = I TO 1 STEP -1", "30 PRINT I * J,", "40 NEXT J", "50 PRINT", "60 NEXT I" });
        run("numbers", new String[] { "10 PRINT 1 / 4; \" \"; INT(-2.5); \" \"; SQR(2) * SQR(2) > 2; \" \"; ABS(-3) + SGN(-7); \" \"; 2 + 3 * 4 - (6 - 1) / 2; \" \"; NOT 0; \" \"; 3 >= 3" });
        run("lines in any order", new String[] { "30 PRINT \"three\"", "10 PRINT \"ten\"", "20 GOTO 40", "40 PRINT \"four\"", "10 PRINT \"one\"" });
        run("endless", new String[] { "10 X = X + 1", "20 GOTO 10" });
        run("deep", new String[] { "10 GOSUB 10" });
        run("faults", new String[] { "10 PRINT 1 / (X - X)" });
        run("faults", new String[] { "10 GOTO 15" });
        run("faults", new String[] { "10 DIM A(3)", "20 A(4) = 1" });
        run("faults", new String[] { "10 PRINT B(1)" });
        run("faults", new String[] { "10 NEXT I" });
        run("faults", new String[] { "10 RETURN" });
        run("faults", new String[] { "10 X = 5 %" });
        run("faults", new String[] { "10 READ X" });
    }
}
