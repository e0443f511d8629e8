import java.util.Enumeration;
import java.util.Vector;

class CellFault extends RuntimeException {
    CellFault(String s) {
        super(s);
    }
}

/** What a cell holds: text, or a formula with the cells it needs and those that need it. */
class Cell {
    static final byte EMPTY = 0, TEXT = 1, VALUE = 2, FAULT = 3;
    final int row, column;
    String source = "";
    byte state;
    double value;
    String shown = "";
    final Vector uses = new Vector(), usedBy = new Vector();
    transient int mark;

    Cell(int row, int column) {
        this.row = row;
        this.column = column;
    }

    String name() {
        return (char) ('A' + column) + String.valueOf(row + 1);
    }
}

class Sheet {
    final Cell[][] cells;
    private int pass, recalculations;

    Sheet(int rows, int columns) {
        cells = new Cell[rows][columns];
        for (int r = 0; r < rows; r++) for (int c = 0; c < columns; c++) cells[r][c] = new Cell(r, c);
    }

    Cell at(String name) {
        int column = name.charAt(0) - 'A', row = Integer.parseInt(name.substring(1)) - 1;
        if (column >= 0 & column < cells[0].length & row >= 0 & row < cells.length) return cells[row][column];
        throw new CellFault("no cell " + name);
    }

    void set(String name, String source) {
        Cell cell = at(name);
        for (Enumeration e = cell.uses.elements(); e.hasMoreElements(); ) ((Cell) e.nextElement()).usedBy.removeElement(cell);
        cell.uses.removeAllElements();
        cell.source = source;
        if (source.startsWith("=")) new Formula(this, cell).references();
        recalculate(cell);
    }

    /** The cell and everything that depends on it, each once, in an order in which all that is used comes first. */
    void recalculate(Cell from) {
        Vector order = new Vector();
        pass++;
        boolean cycle = visit(from, order);
        for (int i = order.size(); --i >= 0; ) {
            Cell c = (Cell) order.elementAt(i);
            recalculations++;
            if (cycle && reaches(c, c, new Vector())) fault(c, "#CYCLE");
            else compute(c);
        }
    }

    private boolean visit(Cell c, Vector order) {
        if (c.mark == -pass) return true;
        if (c.mark == pass) return false;
        c.mark = -pass;
        boolean cycle = false;
        for (int i = 0, n = c.usedBy.size(); i < n; i++) cycle |= visit((Cell) c.usedBy.elementAt(i), order);
        c.mark = pass;
        order.addElement(c);
        return cycle;
    }

    private static boolean reaches(Cell from, Cell to, Vector seen) {
        for (int i = 0; i < from.uses.size(); i++) {
            Object next = from.uses.elementAt(i);
            if (next == to) return true;
            if (seen.contains(next)) continue;
            seen.addElement(next);
            if (reaches((Cell) next, to, seen)) return true;
        }
        return false;
    }

    private static void fault(Cell c, String s) {
        c.state = Cell.FAULT;
        c.shown = s;
    }

    private void compute(Cell c) {
        String s = c.source;
        if (s.length() == 0) {
            c.state = Cell.EMPTY;
            c.value = 0;
            c.shown = "";
            return;
        }
        try {
            c.value = s.charAt(0) == '=' ? new Formula(this, c).value() : Double.valueOf(s).doubleValue();
            c.state = Cell.VALUE;
            long hundredths = Math.round(c.value * 100);
            c.shown = hundredths % 100 == 0 ? "" + hundredths / 100 : hundredths / 100.0 + "";
        } catch (NumberFormatException e) {
            c.state = Cell.TEXT;
            c.value = 0;
            c.shown = s;
        } catch (CellFault e) {
            fault(c, "#" + e.getMessage());
        }
    }

    int recalculations() {
        try {
            return recalculations;
        } finally {
            recalculations = 0;
        }
    }

    public String toString() {
        StringBuffer b = new StringBuffer("     ");
        for (int c = 0; c < cells[0].length; c++) b.append(pad("" + (char) ('A' + c), 9));
        b.append('\n');
        for (int r = 0; r < cells.length; r++) {
            b.append(pad("" + (r + 1), 4)).append('|');
            for (int c = 0; c < cells[r].length; c++) b.append(pad(cells[r][c].shown, 9));
            b.append("|\n");
        }
        return b.toString();
    }

    private static String pad(String s, int n) {
        while (s.length() < n) s = " " + s;
        return s;
    }
}

/** Reads a formula: = 1 + A1 * SUM(B1:B3) and the like. */
class Formula {
    private final Sheet sheet;
    private final Cell cell;
    private final String s;
    private int at = 1;
    private boolean collecting;

    Formula(Sheet sheet, Cell cell) {
        this.sheet = sheet;
        this.cell = cell;
        s = cell.source;
    }

    void references() {
        collecting = true;
        try {
            sum();
        } catch (CellFault e) {
            // shown when it is computed
        }
    }

    double value() {
        double d = sum();
        if (peek() != 0) throw new CellFault("SYNTAX");
        return d;
    }

    private char peek() {
        while (at < s.length() && s.charAt(at) == ' ') at++;
        return at < s.length() ? s.charAt(at) : 0;
    }

    private double sum() {
        double d = product();
        for (char c; (c = peek()) == '+' || c == '-'; ) {
            at++;
            if (c == '+') d += product();
            else d -= product();
        }
        return d;
    }

    private double product() {
        double d = atom();
        for (;;)
            switch (peek()) {
                case '*': at++; d *= atom(); continue;
                case '/': {
                    at++;
                    double by = atom();
                    if (by == 0 && !collecting) throw new CellFault("DIV/0");
                    d /= by;
                    break;
                }
                default: return d;
            }
    }

    private double atom() {
        char c = peek();
        int from = at;
        if (c == '(') {
            at++;
            double d = sum();
            close();
            return d;
        }
        if (c == '-') {
            at++;
            return -atom();
        }
        while (at < s.length() && (Character.isLetterOrDigit(s.charAt(at)) || s.charAt(at) == '.')) at++;
        String word = s.substring(from, at);
        if (word.length() == 0) throw new CellFault("SYNTAX");
        if (c >= '0' && c <= '9') return Double.valueOf(word).doubleValue();
        return peek() == '(' ? function(word) : value(sheet.at(word));
    }

    private void close() {
        if (peek() != ')') throw new CellFault("SYNTAX");
        at++;
    }

    private double value(Cell c) {
        if (collecting) {
            if (!cell.uses.contains(c)) {
                cell.uses.addElement(c);
                c.usedBy.addElement(cell);
            }
            return 1;
        }
        switch (c.state) {
            case Cell.FAULT: throw new CellFault("REF " + c.name());
            case Cell.TEXT: throw new CellFault("TEXT");
        }
        return c.value;
    }

    private double function(String name) {
        at++;
        double sum = 0, most = 0;
        int n = 0;
        do {
            peek();
            int colon = s.indexOf(':', at), end = s.indexOf(')', at), comma = s.indexOf(',', at);
            if (end < 0) throw new CellFault("SYNTAX");
            if (comma >= 0 && comma < end) end = comma;
            if (colon >= 0 && colon < end) {
                Cell a = sheet.at(s.substring(at, colon).trim()), b = sheet.at(s.substring(colon + 1, end).trim());
                for (int r = a.row; r <= b.row; r++)
                    for (int c = a.column; c <= b.column; c++) {
                        Cell x = sheet.cells[r][c];
                        double v = !collecting && x.state == Cell.TEXT ? 0 : value(x);
                        sum += v;
                        if (n++ == 0 || v > most) most = v;
                    }
                at = end;
            } else {
                double v = sum();
                sum += v;
                if (n++ == 0 || v > most) most = v;
            }
        } while (peek() == ',' && at++ > 0);
        close();
        if (name.equals("SUM")) return sum;
        if (name.equals("AVG")) return sum / n;
        if (name.equals("MAX")) return most;
        if (name.equals("COUNT")) return n;
        throw new CellFault("NAME");
    }
}

public class Main {
    public static void main(String[] args) {
        Sheet s = new Sheet(6, 4);
        String[][] input = { { "A1", "item" }, { "B1", "price" }, { "C1", "pieces" }, { "D1", "total" }, { "A2", "pen" }, { "B2", "1.25" }, { "C2", "4" }, { "D2", "= B2 * C2" },
            { "A3", "ink" }, { "B3", "7" }, { "C3", "3" }, { "D3", "=B3*C3" }, { "A4", "paper" }, { "B4", "=AVG(B2:B3)" }, { "C4", "= -(C3 - 5)" }, { "D4", "=B4*C4" },
            { "A6", "sum" }, { "D6", "=SUM(D2:D5)" }, { "C6", "=MAX(C2:C4, 2)" } };
        for (int i = 0; i < input.length; i++) s.set(input[i][0], input[i][1]);
        System.out.print(s);
        s.recalculations();
        s.set("B2", "2");
        System.out.println("B2 = 2: " + s.recalculations() + " cells");
        System.out.print(s);
        s.set("C3", "=C6/0");
        System.out.println("C3 = C6 / 0, which uses C3: " + s.recalculations() + " cells");
        System.out.print(s);
        s.set("C3", "two");
        System.out.print(s);
        s.set("C3", "5");
        s.set("A5", "=D6/(C3-5)");
        s.set("B5", "=A5+1");
        s.set("C5", "=Q9");
        s.set("D5", "=FOO(1)+");
        System.out.print(s);
        s.set("A5", "");
        s.set("B5", "=COUNT(A1:D4) * 1.5");
        s.set("C5", "=(1 + 2) * 3 - 4 / 8");
        s.set("D5", "=");
        System.out.print(s);
    }
}
