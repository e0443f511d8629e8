package tabula.formula;

import java.util.Enumeration;
import tabula.cell.Address;
import tabula.cell.Area;
import tabula.util.Sequence;
import tabula.util.SortedTable;

/** What a formula refers to. */
public class References {
    private final SortedTable addresses = new SortedTable(Address.READING);
    private final Sequence names = new Sequence();

    /** `source` says what the names mean. */
    public References(Expression formula, final Evaluator.Source source) {
        formula.accept(new Walker() {
            private void add(Address address) {
                addresses.put(address, address);
            }

            private void add(Area area) {
                for (Enumeration e = area.addresses(); e.hasMoreElements();) add((Address) e.nextElement());
            }

            public Object reference(Expression.Reference reference) {
                add(reference.address);
                return null;
            }

            public Object range(Expression.Range range) {
                add(range.area());
                return null;
            }

            public Object name(Expression.Name name) {
                if (names.indexOf(name.name) < 0) names.add(name.name);
                Area area = source.areaOf(name.name);
                if (area != null) add(area);
                return null;
            }
        });
    }

    /** The addresses of all cells, row by row. */
    public Enumeration addresses() {
        return addresses.keys();
    }

    public boolean hasName(String name) {
        return names.indexOf(name) >= 0;
    }
}
