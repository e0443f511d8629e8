package calc.syntax;

import java.util.Hashtable;

/** Cuts a text into tokens. After each call of `next` the fields tell about the current token. */
class Scanner implements Tokens {
    private static final Hashtable KEYWORDS = new Hashtable();

    static {
        for (int i = FIRST_KEYWORD; i <= LAST_KEYWORD; i++) KEYWORDS.put(SPELLING[i], new Integer(i));
    }

    private final String source;
    private int at;

    int kind;
    int line = 1;
    /** The name or the text. */
    String text;
    double number;

    Scanner(String source) throws SyntaxException {
        this.source = source;
        next();
    }

    private char peek() {
        return at < source.length() ? source.charAt(at) : '\0';
    }

    private void skipBlanks() {
        for (; at < source.length(); at++) {
            switch (source.charAt(at)) {
                case '\n':
                    line++;
                    break;
                case '#':
                    while (at + 1 < source.length() && source.charAt(at + 1) != '\n') at++;
                    break;
                case ' ': case '\t': case '\r':
                    break;
                default:
                    return;
            }
        }
    }

    void next() throws SyntaxException {
        skipBlanks();
        char c = peek();
        int start = at;
        if (c == '\0') kind = END;
        else if (Character.isLetter(c)) word(start);
        else if (Character.isDigit(c)) number(start);
        else if (c == '"') text();
        else operator(c);
    }

    private void word(int start) {
        while (Character.isLetterOrDigit(peek())) at++;
        text = source.substring(start, at);
        Integer keyword = (Integer) KEYWORDS.get(text);
        kind = keyword == null ? NAME : keyword.intValue();
    }

    private void number(int start) {
        while (Character.isDigit(peek())) at++;
        if (peek() == '.') do at++; while (Character.isDigit(peek()));
        number = Double.valueOf(source.substring(start, at)).doubleValue();
        kind = NUMBER;
    }

    private void text() throws SyntaxException {
        int end = source.indexOf('"', ++at);
        if (end < 0 || source.substring(at, end).indexOf('\n') >= 0) throw new SyntaxException("text without end", line);
        text = source.substring(at, end);
        at = end + 1;
        kind = TEXT;
    }

    /** The longest spelling that fits. */
    private void operator(char c) throws SyntaxException {
        kind = END;
        for (int k = LAST_KEYWORD + 1; k < SPELLING.length; k++)
            if (source.startsWith(SPELLING[k], at) && (kind == END || SPELLING[k].length() > SPELLING[kind].length())) kind = k;
        if (kind == END) throw new SyntaxException("unexpected character '" + c + "'", line);
        at += SPELLING[kind].length();
    }

    /** The current token as one would write it. */
    String describe() {
        switch (kind) {
            case NAME: return text;
            case NUMBER: return String.valueOf(number);
            case TEXT: return '"' + text + '"';
            default: return SPELLING[kind];
        }
    }
}
