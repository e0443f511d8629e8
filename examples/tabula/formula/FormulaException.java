package tabula.formula;

/** A formula that cannot be understood, with the place in it, counted from 1. */
public class FormulaException extends Exception {
    public final int place;

    public FormulaException(String message, int place) {
        super(message);
        this.place = place;
    }
}
