package tabula.formula;

import tabula.cell.Area;
import tabula.cell.Value;
import tabula.util.Sequence;

/** What a formula can call. */
public abstract class Function {
    /** The arguments of a call. Each is evaluated when somebody asks for it. */
    public interface Arguments {
        int count();

        Value value(int index);

        double number(int index);

        boolean truth(int index);

        String text(int index);

        /** The values of the arguments from the one to before the other: of an area all that are not blank. */
        Sequence values(int from, int to);

        /** The area that the argument is. */
        Area area(int index);

        /** The value of a cell. */
        Value at(Area area, int row, int column);
    }

    public final String name;
    private final int fewest, most;

    /** `most` is -1 if there may be any number. */
    protected Function(String name, int fewest, int most) {
        this.name = name;
        this.fewest = fewest;
        this.most = most;
    }

    public abstract Value call(Arguments arguments);

    public boolean takes(int count) {
        return count >= fewest && (most < 0 || count <= most);
    }

    /** How many arguments it takes, in words. */
    String counts() {
        if (most < 0) return "at least " + fewest;
        return fewest == most ? String.valueOf(fewest) : fewest + " to " + most;
    }

    public String toString() {
        return name;
    }
}
