package tabula.view;

import tabula.cell.Address;
import tabula.cell.Area;
import tabula.cell.Value;
import tabula.model.Sheet;
import tabula.model.SheetListener;
import tabula.util.Sequence;

/** Tells of each change of a value in an area, as it happens. */
public class Watch {
    private final Sheet sheet;
    public final Area area;
    private final View.Canvas canvas;
    private boolean isSilent;
    private int changes;

    private final SheetListener listener = new SheetListener.Deaf() {
        public void valueChanged(Sheet changed, Address address, Value before, Value now) {
            if (!area.contains(address)) return;
            changes++;
            if (!isSilent) canvas.line("* " + address + ": " + shown(before) + " -> " + shown(now));
        }

        private String shown(Value value) {
            return value.isBlank() ? "(empty)" : value.toString();
        }
    };

    public Watch(Sheet sheet, Area area, View.Canvas canvas) {
        this.sheet = sheet;
        this.area = area;
        this.canvas = canvas;
        sheet.addListener(listener);
    }

    /** Only counts from now on. */
    public void silence() {
        isSilent = true;
    }

    /** Ends it, and returns how many changes there were. */
    public int end() {
        sheet.removeListener(listener);
        return changes;
    }

    /** All watches that are at work. */
    public static class Post {
        private final Sequence watches = new Sequence();

        public void add(Watch watch) {
            watches.add(watch);
        }

        /** Takes out those of the area, and returns them. */
        public Sequence take(final Area area) {
            Sequence taken = watches.select(new Sequence.Filter() {
                public boolean accepts(Object watch) {
                    return ((Watch) watch).area.equals(area);
                }
            });
            taken.each(new Sequence.Action() {
                public void on(Object watch) {
                    watches.remove(watch);
                }
            });
            return taken;
        }
    }
}
