package tabula.model;

import tabula.cell.Address;
import tabula.cell.Area;
import tabula.cell.Value;

/** Whoever wants to know what happens in a sheet. */
public interface SheetListener {
    /** What a cell shows has changed. */
    void valueChanged(Sheet sheet, Address address, Value before, Value now);

    /** What somebody has put into a cell has changed. */
    void sourceChanged(Sheet sheet, Address address);

    /** A name means something else; null stands for nothing. */
    void nameChanged(Sheet sheet, String name, Area area);

    /** A listener that is interested in nothing. */
    class Deaf implements SheetListener {
        public void valueChanged(Sheet sheet, Address address, Value before, Value now) {
        }

        public void sourceChanged(Sheet sheet, Address address) {
        }

        public void nameChanged(Sheet sheet, String name, Area area) {
        }
    }
}
