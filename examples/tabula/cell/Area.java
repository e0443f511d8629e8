package tabula.cell;

import java.util.Enumeration;
import java.util.NoSuchElementException;

/** A rectangle of cells, by its first and last. */
public final class Area {
    public final Address first, last;

    public Area(Address a, Address b) {
        first = new Address(Math.min(a.row, b.row), Math.min(a.column, b.column));
        last = new Address(Math.max(a.row, b.row), Math.max(a.column, b.column));
    }

    /** An area such as B2:C5, or one cell; null if the text is neither. */
    public static Area parse(String text) {
        int colon = text.indexOf(':');
        Address from = Address.parse(colon < 0 ? text : text.substring(0, colon));
        Address to = colon < 0 ? from : Address.parse(text.substring(colon + 1));
        return from == null || to == null ? null : new Area(from, to);
    }

    public int rows() {
        return last.row - first.row + 1;
    }

    public int columns() {
        return last.column - first.column + 1;
    }

    public boolean contains(Address address) {
        return address.row >= first.row && address.row <= last.row && address.column >= first.column
            && address.column <= last.column;
    }

    /** The area so many rows and columns further, or null if it does not fit there. */
    public Area offset(int rows, int columns) {
        Address from = first.offset(rows, columns), to = last.offset(rows, columns);
        return from == null || to == null ? null : new Area(from, to);
    }

    /** The smallest area that holds this one and the address. */
    public Area with(Address address) {
        Area corner = new Area(first, address);
        return new Area(corner.first, new Area(last, address).last);
    }

    /** One row or column of the area, counted from 0. */
    public Area row(int index) {
        return new Area(first.offset(index, 0), new Address(first.row + index, last.column));
    }

    public Area column(int index) {
        return new Area(first.offset(0, index), new Address(last.row, first.column + index));
    }

    /** The addresses, row by row. */
    public Enumeration addresses() {
        return new Enumeration() {
            private int index;
            private final int count = rows() * columns();

            public boolean hasMoreElements() {
                return index < count;
            }

            public Object nextElement() {
                if (index == count) throw new NoSuchElementException();
                int at = index++;
                return first.offset(at / columns(), at % columns());
            }
        };
    }

    public boolean equals(Object other) {
        return other instanceof Area && toString().equals(other.toString());
    }

    public int hashCode() {
        return first.hashCode() ^ last.hashCode();
    }

    public String toString() {
        return first.equals(last) ? first.toString() : first + ":" + last;
    }
}
