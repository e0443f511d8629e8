package tabula.formula;

/** Takes a formula apart. The token at hand is described by the fields. */
class Scanner {
    /** Kinds of tokens. */
    interface Kind {
        int NUMBER = 0, TEXT = 1, NAME = 2, SYMBOL = 3, END = 4;
    }

    private static final String TWO_CHARACTERS = "<> <= >=";

    private final String source;
    private int next;
    int kind, place;
    String text;

    Scanner(String source) throws FormulaException {
        this.source = source;
        step();
    }

    /** Characters of one sort, which make up a token. */
    private abstract class Run {
        abstract boolean has(char c);

        String read() {
            int start = next;
            while (next < source.length() && has(source.charAt(next))) next++;
            return source.substring(start, next);
        }
    }

    private final Run spaces = new Run() {
        boolean has(char c) {
            return c == ' ';
        }
    };
    private final Run digits = new Run() {
        boolean has(char c) {
            return c >= '0' && c <= '9' || c == '.';
        }
    };
    private final Run name = new Run() {
        boolean has(char c) {
            return Character.isLetterOrDigit(c) || c == '_' || c == '$';
        }
    };

    void step() throws FormulaException {
        spaces.read();
        place = next + 1;
        if (next == source.length()) {
            found(Kind.END, "end of formula");
            return;
        }
        char c = source.charAt(next);
        if (digits.has(c))
            found(Kind.NUMBER, digits.read());
        else if (name.has(c))
            found(Kind.NAME, name.read());
        else if (c == '"')
            found(Kind.TEXT, quoted());
        else
            found(Kind.SYMBOL, symbol());
    }

    private void found(int kind, String text) {
        this.kind = kind;
        this.text = text;
    }

    private String quoted() throws FormulaException {
        StringBuffer read = new StringBuffer();
        for (next++; next < source.length(); next++) {
            boolean isQuote = source.charAt(next) == '"';
            boolean isDouble = isQuote && source.startsWith("\"\"", next);
            if (isQuote && !isDouble) {
                next++;
                return read.toString();
            }
            if (isDouble) next++;
            read.append(source.charAt(next));
        }
        throw new FormulaException("text without an end", place);
    }

    private String symbol() {
        int length = 1;
        if (next + 2 <= source.length() && TWO_CHARACTERS.indexOf(source.substring(next, next + 2)) >= 0) length = 2;
        next += length;
        return source.substring(next - length, next);
    }

    boolean isSymbol(String symbol) {
        return kind == Kind.SYMBOL && text.equals(symbol);
    }

    /** Steps over the symbol if it is there. */
    boolean take(String symbol) throws FormulaException {
        if (!isSymbol(symbol)) return false;
        step();
        return true;
    }

    FormulaException unexpected(String wanted) {
        return new FormulaException(wanted + " expected instead of " + text, place);
    }
}
