package tabula.cell;

import tabula.util.Sequence;

/** The place of a cell; row and column count from 0. Its name has letters for the column, and rows from 1. */
public final class Address {
    /** Row by row, as one reads. */
    public static final Sequence.Order READING = new Sequence.Order() {
        public int compare(Object a, Object b) {
            Address one = (Address) a, other = (Address) b;
            return one.row != other.row ? one.row - other.row : one.column - other.column;
        }
    };

    public static final int ROWS = 999, COLUMNS = 26 * 27;

    public final int row, column;

    public Address(int row, int column) {
        this.row = row;
        this.column = column;
    }

    /** The address of that name, or null if it is none. */
    public static Address parse(String name) {
        int at = 0, column = 0, row = 0;
        for (; at < name.length() && isLetter(name.charAt(at)); at++) column = column * 26 + letter(name.charAt(at));
        int letters = at;
        for (; at < name.length() && isDigit(name.charAt(at)); at++) row = row * 10 + name.charAt(at) - '0';
        int digits = at - letters;
        boolean isColumn = letters >= 1 && letters <= 2, isRow = digits >= 1 && digits <= 3 && row >= 1;
        return isColumn && isRow && at == name.length() ? new Address(row - 1, column - 1) : null;
    }

    private static boolean isLetter(char c) {
        return Character.toUpperCase(c) >= 'A' && Character.toUpperCase(c) <= 'Z';
    }

    private static boolean isDigit(char c) {
        return c >= '0' && c <= '9';
    }

    private static int letter(char c) {
        return Character.toUpperCase(c) - 'A' + 1;
    }

    public static String columnName(int column) {
        String last = String.valueOf((char) ('A' + column % 26));
        return column < 26 ? last : columnName(column / 26 - 1) + last;
    }

    /** The address so many rows and columns further, or null if that is off the sheet. */
    public Address offset(int rows, int columns) {
        int newRow = row + rows, newColumn = column + columns;
        boolean isThere = newRow >= 0 && newRow < ROWS && newColumn >= 0 && newColumn < COLUMNS;
        return isThere ? new Address(newRow, newColumn) : null;
    }

    public boolean equals(Object other) {
        if (!(other instanceof Address)) return false;
        Address address = (Address) other;
        return row == address.row && column == address.column;
    }

    public int hashCode() {
        return row * 1031 + column;
    }

    public String toString() {
        return columnName(column) + (row + 1);
    }
}
