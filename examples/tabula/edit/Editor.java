package tabula.edit;

import java.util.Enumeration;
import tabula.cell.Address;
import tabula.cell.Area;
import tabula.cell.Value;
import tabula.formula.FormulaException;
import tabula.formula.Mover;
import tabula.model.Content;
import tabula.model.Sheet;
import tabula.util.Sequence;

/** What one can do to a sheet. All of it goes through the history. */
public class Editor {
    public final Sheet sheet;
    public final History history = new History();

    public Editor(Sheet sheet) {
        this.sheet = sheet;
    }

    /** Puts something into one cell. */
    private class Put extends Command {
        private final Address address;
        private final Content content;
        private Content before;

        Put(Address address, Content content) {
            super("set " + address);
            this.address = address;
            this.content = content;
        }

        protected void run() {
            before = sheet.put(address, content);
        }

        protected void back() {
            sheet.put(address, before);
        }
    }

    private void put(Address address, Content content) {
        history.run(new Put(address, content));
    }

    /** Something that is done to many cells and taken back as one. What fails half-way leaves nothing behind. */
    private abstract class Edit {
        private final String title;

        Edit(String title) {
            this.title = title;
        }

        abstract void run();

        void perform() {
            boolean isDone = false;
            history.begin(title);
            try {
                run();
                isDone = true;
            } finally {
                if (!isDone) history.cancel();
                history.end();
            }
        }
    }

    public void set(Address address, String text) throws FormulaException {
        put(address, Content.typed(text));
    }

    public void clear(final Area area) {
        new Edit("clear " + area) {
            void run() {
                for (Enumeration e = area.addresses(); e.hasMoreElements();) {
                    Address address = (Address) e.nextElement();
                    if (sheet.content(address) != Content.NONE) put(address, Content.NONE);
                }
            }
        }.perform();
    }

    /** Puts the text into the first cell, and what it becomes by moving into the others. */
    public void fill(final Area area, String text) throws FormulaException {
        final Content content = Content.typed(text);
        new Edit("fill " + area) {
            void run() {
                for (Enumeration e = area.addresses(); e.hasMoreElements();) {
                    Address to = (Address) e.nextElement();
                    put(to, content.moved(to.row - area.first.row, to.column - area.first.column));
                }
            }
        }.perform();
    }

    /** Copies the area to where `target` is its first cell. */
    public void copy(final Area from, final Address target) throws Mover.OffSheet {
        final int rows = target.row - from.first.row, columns = target.column - from.first.column;
        new Edit("copy " + from + " to " + target) {
            // All is read before anything is written, since the areas may share cells.
            void run() {
                final Sequence writes = new Sequence();

                class Write implements Runnable {
                    private final Address to;
                    private final Content content;

                    Write(Address address) {
                        to = address.offset(rows, columns);
                        content = sheet.content(address).moved(rows, columns);
                        writes.add(this);
                    }

                    public void run() {
                        if (to != null) put(to, content);
                    }
                }

                for (Enumeration e = from.addresses(); e.hasMoreElements();) new Write((Address) e.nextElement());
                for (Enumeration e = writes.elements(); e.hasMoreElements();) ((Runnable) e.nextElement()).run();
            }
        }.perform();
    }

    /** Sorts the rows of the area by what stands in one of its columns. Formulas move along with their rows. */
    public void sort(final Area area, final int column, final boolean isDown) {
        class Row {
            final int index;
            final Value key;
            final Content[] contents = new Content[area.columns()];

            Row(int index) {
                this.index = index;
                key = sheet.value(area.first.offset(index, column));
                for (int i = 0; i < contents.length; i++) contents[i] = sheet.content(area.first.offset(index, i));
            }

            void putAt(int newIndex) {
                for (int i = 0; i < contents.length; i++)
                    put(area.first.offset(newIndex, i), contents[i].moved(newIndex - index, 0));
            }
        }

        final Sequence.Order byKey = new Sequence.Order() {
            public int compare(Object a, Object b) {
                return Value.ORDER.compare(((Row) a).key, ((Row) b).key);
            }
        };
        new Edit("sort " + area) {
            void run() {
                Sequence rows = new Sequence();
                for (int i = 0; i < area.rows(); i++) rows.add(new Row(i));
                rows.sorted(isDown ? Sequence.reverse(byKey) : byKey).each(new Sequence.Action() {
                    private int next;

                    public void on(Object row) {
                        ((Row) row).putAt(next++);
                    }
                });
            }
        }.perform();
    }

    /** Gives the area a name; null takes the name away. */
    public void name(final String name, final Area area) {
        history.run(new Command("name " + name) {
            private Area before;

            protected void run() {
                before = sheet.name(name, area);
            }

            protected void back() {
                sheet.name(name, before);
            }
        });
    }

    /** Empties the sheet. */
    public void clearAll() {
        new Edit("clear all") {
            void run() {
                Sequence names = new Sequence().addAll(sheet.names());
                for (Enumeration e = names.elements(); e.hasMoreElements();) name((String) e.nextElement(), null);
                Area extent = sheet.extent();
                if (extent != null) clear(extent);
            }
        }.perform();
    }
}
