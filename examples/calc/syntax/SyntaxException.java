package calc.syntax;

/** A program that is not well formed, with the place where it was noticed. */
public class SyntaxException extends Exception {
    private final int line;

    public SyntaxException(String message, int line) {
        super(message);
        this.line = line;
    }

    public int line() {
        return line;
    }

    public String getMessage() {
        return "line " + line + ": " + super.getMessage();
    }
}
