package tabula.view;

import java.util.Enumeration;
import tabula.cell.Address;
import tabula.cell.Value;
import tabula.model.Sheet;

/** How a cell comes to its value: what it is made of, down to the cells without formulas, and why it is a fault. */
public class Explanation implements View {
    private final Sheet sheet;
    private final Address address;
    private final int deepest;

    public Explanation(Sheet sheet, Address address, int deepest) {
        this.sheet = sheet;
        this.address = address;
        this.deepest = deepest;
    }

    public void paint(final Canvas canvas) {
        class Level implements Canvas {
            private final int depth;

            Level(int depth) {
                this.depth = depth;
            }

            public void line(String text) {
                StringBuffer indented = new StringBuffer();
                for (int i = 0; i < depth; i++) indented.append("  ");
                canvas.line(indented.append(text).toString());
            }

            void explain(Address cell) {
                String source = sheet.content(cell).source();
                boolean isFormula = sheet.content(cell).formula() != null;
                line(cell + " is " + shown(cell) + (isFormula ? " by " + source : ""));
                if (!isFormula) return;
                if (depth == deepest) {
                    new Level(depth + 1).line("...");
                    return;
                }
                for (Enumeration e = sheet.used(cell); e.hasMoreElements();)
                    new Level(depth + 1).explain((Address) e.nextElement());
            }
        }
        new Level(0).explain(address);
    }

    private String shown(Address cell) {
        final Value value = sheet.value(cell);
        return (String) value.accept(new Value.Default() {
            public Object text(String text) {
                return '"' + text + '"';
            }

            public Object blank() {
                return "empty";
            }

            public Object fault(Value.Fault fault) {
                return fault + ", as " + fault.reason;
            }

            public Object other() {
                return value.toString();
            }
        });
    }
}
