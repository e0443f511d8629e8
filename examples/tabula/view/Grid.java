package tabula.view;

import tabula.cell.Address;
import tabula.cell.Area;
import tabula.cell.Value;
import tabula.model.Sheet;
import tabula.util.Text;

/** Cells in rows and columns, with their names at the edges. */
public abstract class Grid implements View {
    private static final int NARROWEST = 3;

    protected final Sheet sheet;
    private final Area area;
    private final int edge;

    protected Grid(Sheet sheet, Area area) {
        this.sheet = sheet;
        this.area = area;
        edge = String.valueOf(area.last.row + 1).length();
    }

    abstract String text(Address address);

    abstract Text.Side side(Address address);

    /** What each cell shows. */
    public static Grid ofValues(Sheet sheet, Area area) {
        return new Grid(sheet, area) {
            String text(Address address) {
                return value(address).toString();
            }

            Text.Side side(Address address) {
                return value(address).side();
            }

            private Value value(Address address) {
                return sheet.value(address);
            }
        };
    }

    /** What was put into each cell. */
    public static Grid ofSources(Sheet sheet, Area area) {
        return new Grid(sheet, area) {
            String text(Address address) {
                return sheet.content(address).source();
            }

            Text.Side side(Address address) {
                return Text.LEFT;
            }
        };
    }

    private class Column {
        final int index;
        int width = NARROWEST;

        Column(int index) {
            this.index = index;
            for (int row = 0; row < area.rows(); row++)
                width = Math.max(width, text(area.first.offset(row, index)).length());
        }

        String name() {
            return Text.MIDDLE.fit(Address.columnName(area.first.column + index), width);
        }

        String cell(int row) {
            Address address = area.first.offset(row, index);
            return side(address).fit(text(address), width);
        }
    }

    /** A line of the grid, made of the edge and a part for each column. */
    private abstract class Line {
        abstract String part(Column column);

        void paint(Canvas canvas, String atEdge, String separator) {
            StringBuffer text = new StringBuffer(Text.RIGHT.fit(atEdge, edge));
            for (int i = 0; i < columns.length; i++) text.append(separator).append(part(columns[i]));
            canvas.line(Text.trimEnd(text.toString()));
        }
    }

    private Column[] columns;

    public void paint(Canvas canvas) {
        columns = new Column[area.columns()];
        for (int i = 0; i < columns.length; i++) columns[i] = new Column(i);
        new Line() {
            String part(Column column) {
                return column.name();
            }
        }.paint(canvas, "", " | ");
        new Line() {
            String part(Column column) {
                return Text.repeat('-', column.width);
            }
        }.paint(canvas, Text.repeat('-', edge), "-+-");
        for (int i = 0; i < area.rows(); i++) {
            final int row = i;
            new Line() {
                String part(Column column) {
                    return column.cell(row);
                }
            }.paint(canvas, String.valueOf(area.first.row + row + 1), " | ");
        }
    }
}
