import java.io.*;
import java.util.StringTokenizer;

/**
 * A small text formatter. A line that begins with a dot is a command: .w N (width), .i N (indent), .c (centre the next
 * line), .j (justify), .l (left), .r (right), .p (paragraph), .b TEXT (a bullet), .t A|B (a table row).
 */
class Formatter {
    static final int LEFT = 0, RIGHT = LEFT + 1, CENTER = RIGHT + 1, JUSTIFY = CENTER + 1;
    private final PrintWriter out;
    private int width = 40, indent, mode = LEFT, hanging;
    private StringBuffer line = new StringBuffer();
    private int words;
    private boolean centerNext;

    Formatter(Writer w) {
        out = new PrintWriter(w);
    }

    void run(Reader r) throws IOException {
        BufferedReader in = new BufferedReader(r);
        String s;
        int number = 0;
        while ((s = in.readLine()) != null) {
            number++;
            try {
                if (s.length() > 0 && s.charAt(0) == '.') command(s.substring(1));
                else if (centerNext) {
                    emit(s.trim(), CENTER);
                    centerNext = false;
                } else text(s);
            } catch (NumberFormatException e) {
                flush(false);
                out.println("[line " + number + ": number expected]");
            } catch (IllegalArgumentException e) {
                flush(false);
                out.println("[line " + number + ": " + e.getMessage() + "]");
            }
        }
        flush(false);
        out.flush();
    }

    private void command(String s) {
        char c = s.length() == 0 ? ' ' : s.charAt(0);
        String rest = s.length() < 2 ? "" : s.substring(1).trim();
        if (c != 't' && c != 'w') flush(false);
        switch (c) {
            case 'w': { int w = Integer.parseInt(rest); if (w < 5 || w > 200) throw new IllegalArgumentException("width " + w); flush(false); width = w; break; }
            case 'i': indent = Integer.parseInt(rest); hanging = 0; break;
            case 'l': mode = LEFT; break;
            case 'r': mode = RIGHT; break;
            case 'j': mode = JUSTIFY; break;
            case 'c': centerNext = true; break;
            case 'p': out.println(); hanging = 0; break;
            case 'b': hanging = 2; line.append("* "); text(rest); break;
            case 't': flush(false); row(rest); break;
            default: throw new IllegalArgumentException("unknown command '" + c + '\'');
        }
    }

    private void text(String s) {
        for (StringTokenizer st = new StringTokenizer(s); st.hasMoreTokens(); ) {
            String word = st.nextToken();
            int room = width - indent - hanging;
            if (words > 0 && word.length() > room) flush(true);
            while (word.length() > room && line.length() == 0) {
                line.append(word.substring(0, room - 1)).append('-');
                word = word.substring(room - 1);
                words = 1;
                flush(true);
            }
            if (words > 0 && line.length() + 1 + word.length() > width - indent) flush(true);
            if (words++ == 0) { if (line.length() == 0) for (int i = 0; i < hanging; i++) line.append(' '); }
            else line.append(' ');
            line.append(word);
        }
    }

    /** Puts the line out; a full one may be stretched. */
    private void flush(boolean full) {
        if (line.length() == 0) return;
        String s = line.toString();
        line.setLength(0);
        int gaps = words - 1;
        words = 0;
        if (mode != JUSTIFY || !full || gaps == 0) {
            emit(s, mode == JUSTIFY ? LEFT : mode);
            return;
        }
        int missing = width - indent - s.length(), start = 0;
        while (start < s.length() && (s.charAt(start) == ' ' || s.charAt(start) == '*')) start++;
        StringBuffer b = new StringBuffer(s.substring(0, start));
        for (int i = start, gap = 0; i < s.length(); i++) {
            char c = s.charAt(i);
            b.append(c);
            if (c != ' ') continue;
            int extra = missing * (gap + 1) / gaps - missing * gap / gaps;
            gap++;
            while (extra-- > 0) b.append(' ');
        }
        emit(b.toString(), LEFT);
    }

    private void emit(String s, int how) {
        int room = width - indent - s.length(), before = how == RIGHT ? room : how == CENTER ? room / 2 : 0;
        for (int i = indent + before; i > 0; i--) out.print(' ');
        out.println(s);
    }

    private void row(String cells) {
        int columns = 1;
        for (int i = 0; i < cells.length(); i++) if (cells.charAt(i) == '|') columns++;
        int w = width / columns;
        StringBuffer b = new StringBuffer("|");
        for (StringTokenizer st = new StringTokenizer(cells, "|"); st.hasMoreElements(); ) {
            String cell = (String) st.nextElement();
            cell = cell.trim();
            boolean number = cell.length() > 0 && Character.isDigit(cell.charAt(0));
            if (cell.length() > w - 2) cell = cell.substring(0, w - 3) + "~";
            int pad = w - 1 - cell.length();
            if (number) for (; pad > 1; pad--) b.append(' ');
            b.append(cell);
            for (; pad > 0; pad--) b.append(' ');
            b.append('|');
        }
        out.println(b);
    }
}

public class Main {
    public static void main(String[] args) throws IOException {
        String text = "A short paragraph, set flush left, of words that do not mean very much but fill a few lines.\n.p\n.j\n"
            + "The same again, but justified, so that both edges of the text are straight except on the last line of it.\n.p\n.r\nflush right on\na narrow page it is\n"
            + ".c\nA Title\n.l\n.w 24\n.i 4\nindented and narrower text with averyveryverylongwordthathastobebroken inside\n.i 0\n.b first point that runs over its line\n.b second\n.j\n"
            + ".b third point is justified and runs over two lines or more\n.w 30\n.t name|price|left\n.t apples|12|300\n.t pomegranates|7|1\n.x\n.w wide\n.w 3\nlast\n.";
        StringWriter w = new StringWriter();
        new Formatter(w).run(new StringReader(text));
        String s = w.toString();
        for (StringTokenizer st = new StringTokenizer(s, "\n", true); st.hasMoreTokens(); ) {
            String t = st.nextToken();
            System.out.print(t.equals("\n") ? "<\n" : t);
        }
    }
}
