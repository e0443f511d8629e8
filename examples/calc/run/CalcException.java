package calc.run;

/** A program that cannot go on. The innermost place that is told stays. */
public class CalcException extends Exception {
    private int line;

    public CalcException(String message) {
        super(message);
    }

    public CalcException at(int line) {
        if (this.line == 0) this.line = line;
        return this;
    }

    public String getMessage() {
        return (line == 0 ? "" : "line " + line + ": ") + super.getMessage();
    }
}
