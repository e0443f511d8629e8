package tabula.view;

import java.util.Enumeration;
import tabula.cell.Address;
import tabula.cell.Area;
import tabula.cell.Value;
import tabula.model.Sheet;
import tabula.util.Sequence;
import tabula.util.Text;

/** A bar for each row of an area: the first column has the names, the last the numbers. */
public class Bars implements View {
    private static final int LONGEST = 20;

    private final Sheet sheet;
    private final Area area;

    public Bars(Sheet sheet, Area area) {
        this.sheet = sheet;
        this.area = area;
    }

    private static class Bar {
        final String name;
        final double size;

        Bar(String name, double size) {
            this.name = name;
            this.size = size;
        }
    }

    /** Finds the bars, and how long and wide they are. */
    private class Scale {
        final Sequence bars = new Sequence();
        private double largest;
        private int widest;

        Scale() {
            Area names = area.column(0), numbers = area.column(area.columns() - 1);
            Enumeration name = names.addresses(), number = numbers.addresses();
            while (name.hasMoreElements()) add((Address) name.nextElement(), (Address) number.nextElement());
        }

        private void add(Address nameAt, Address numberAt) {
            final String name = sheet.value(nameAt).toString();
            sheet.value(numberAt).accept(new Value.Default() {
                public Object number(double number) {
                    bars.add(new Bar(name, number));
                    largest = Math.max(largest, number);
                    widest = Math.max(widest, name.length());
                    return null;
                }

                public Object other() {
                    return null;
                }
            });
        }

        int length(Bar bar) {
            return bar.size <= 0 ? 0 : (int) Math.round(bar.size / largest * LONGEST);
        }
    }

    public void paint(final Canvas canvas) {
        final Scale scale = new Scale();
        scale.bars.each(new Sequence.Action() {
            public void on(Object element) {
                Bar bar = (Bar) element;
                String line = Text.LEFT.fit(bar.name, scale.widest) + " " + Text.repeat('*', scale.length(bar));
                canvas.line(line + (scale.length(bar) > 0 ? " " : "") + Text.number(bar.size));
            }
        });
    }
}
