package tabula.model;

import java.util.Enumeration;
import tabula.cell.Address;
import tabula.cell.Area;
import tabula.cell.Value;
import tabula.formula.Evaluator;
import tabula.formula.References;
import tabula.util.Sequence;
import tabula.util.SortedTable;

/**
 * A sheet of cells. Each change is followed by the values of all cells that depend on it, and then the listeners are
 * told, cell by cell in reading order.
 */
public class Sheet {
    private final SortedTable cells = new SortedTable(Address.READING);
    private final SortedTable names = new SortedTable();
    private final Sequence listeners = new Sequence();
    private int evaluations;

    /** A cell that holds something, or that another cell refers to. */
    private class Cell {
        final Address address;
        private Content content = Content.NONE;
        private References references;
        /** The cells with formulas that refer to this one, by address. */
        private final SortedTable users = new SortedTable(Address.READING);
        private Value value = Value.BLANK;
        private boolean isCurrent = true, isInWork;

        Cell(Address address) {
            this.address = address;
        }

        void set(Content newContent) {
            unlink();
            content = newContent;
            link();
        }

        private void link() {
            references = content.references(source);
            if (references == null) return;
            for (Enumeration e = references.addresses(); e.hasMoreElements();)
                cell((Address) e.nextElement()).users.put(address, this);
        }

        private void unlink() {
            if (references == null) return;
            for (Enumeration e = references.addresses(); e.hasMoreElements();)
                cell((Address) e.nextElement()).users.remove(address);
        }

        /** Its names mean something else. */
        void relink() {
            unlink();
            link();
        }

        Value value() {
            if (isInWork) return new Value.Fault("LOOP", address + " depends on itself");
            if (isCurrent) return value;
            isInWork = true;
            value = content.value(evaluator);
            if (content.formula() != null) evaluations++;
            isInWork = false;
            isCurrent = true;
            return value;
        }
    }

    /** The cells that a change makes uncertain, with the values that they had. */
    private class Wave {
        private final SortedTable before = new SortedTable(Address.READING);

        /** Goes through the cell and all that depend on it. */
        Wave from(Cell cell) {
            if (before.get(cell.address) != null) return this;
            before.put(cell.address, cell.value);
            cell.isCurrent = false;
            for (Enumeration e = cell.users.values(); e.hasMoreElements();) from((Cell) e.nextElement());
            return this;
        }

        void settle() {
            for (Enumeration e = before.keys(); e.hasMoreElements();) cell((Address) e.nextElement()).value();
            for (Enumeration e = before.entries(); e.hasMoreElements();) {
                SortedTable.Entry entry = (SortedTable.Entry) e.nextElement();
                tell((Address) entry.key(), (Value) entry.value());
            }
        }

        private void tell(final Address address, final Value old) {
            final Value now = cell(address).value;
            if (now.equals(old)) return;
            tellAll(new Telling() {
                void to(SheetListener listener) {
                    listener.valueChanged(Sheet.this, address, old, now);
                }
            });
        }
    }

    private final Evaluator.Source source = new Evaluator.Source() {
        public Value valueOf(Address address) {
            return cell(address).value();
        }

        public Area areaOf(String name) {
            return area(name);
        }
    };

    private final Evaluator evaluator = new Evaluator(source);

    private Cell cell(Address address) {
        Cell cell = (Cell) cells.get(address);
        if (cell == null) cells.put(address, cell = new Cell(address));
        return cell;
    }

    // ---- cells

    public Value value(Address address) {
        Cell cell = (Cell) cells.get(address);
        return cell == null ? Value.BLANK : cell.value();
    }

    public Content content(Address address) {
        Cell cell = (Cell) cells.get(address);
        return cell == null ? Content.NONE : cell.content;
    }

    /** Returns what was there before. */
    public Content put(final Address address, Content content) {
        Cell cell = cell(address);
        Content before = cell.content;
        cell.set(content);
        tellAll(new Telling() {
            void to(SheetListener listener) {
                listener.sourceChanged(Sheet.this, address);
            }
        });
        new Wave().from(cell).settle();
        return before;
    }

    /** The addresses of the cells that hold something, row by row. */
    public Enumeration filled() {
        Sequence filled = new Sequence();
        for (Enumeration e = cells.values(); e.hasMoreElements();) {
            Cell cell = (Cell) e.nextElement();
            if (cell.content != Content.NONE) filled.add(cell.address);
        }
        return filled.elements();
    }

    /** The smallest area from A1 that holds all that is filled; null if nothing is. */
    public Area extent() {
        Area extent = null;
        for (Enumeration e = filled(); e.hasMoreElements();) {
            Address address = (Address) e.nextElement();
            extent = extent == null ? new Area(new Address(0, 0), address) : extent.with(address);
        }
        return extent;
    }

    /** The cells whose formulas refer to that one, row by row. */
    public Enumeration users(Address address) {
        return cell(address).users.keys();
    }

    /** The cells that the formula in that one refers to; none if it holds no formula. */
    public Enumeration used(Address address) {
        References references = cell(address).references;
        return references == null ? new Sequence().elements() : references.addresses();
    }

    /** How many formulas were evaluated until now. */
    public int evaluations() {
        return evaluations;
    }

    // ---- names

    /** Null if the name means nothing. */
    public Area area(String name) {
        return (Area) names.get(name);
    }

    public Enumeration names() {
        return names.keys();
    }

    /** Gives the name a meaning; null takes it away. Returns the meaning that it had. */
    public Area name(final String name, final Area area) {
        Area before = area(name);
        if (area == null)
            names.remove(name);
        else
            names.put(name, area);
        tellAll(new Telling() {
            void to(SheetListener listener) {
                listener.nameChanged(Sheet.this, name, area);
            }
        });
        Wave wave = new Wave();
        for (Enumeration e = filled(); e.hasMoreElements();) {
            Cell cell = cell((Address) e.nextElement());
            if (cell.references == null || !cell.references.hasName(name)) continue;
            cell.relink();
            wave.from(cell);
        }
        wave.settle();
        return before;
    }

    // ---- listeners

    private static abstract class Telling implements Sequence.Action {
        abstract void to(SheetListener listener);

        public void on(Object listener) {
            to((SheetListener) listener);
        }
    }

    private void tellAll(Telling telling) {
        new Sequence().addAll(listeners.elements()).each(telling); // who is told may come and go
    }

    public void addListener(SheetListener listener) {
        listeners.add(listener);
    }

    public void removeListener(SheetListener listener) {
        listeners.remove(listener);
    }
}
