package tabula.file;

import java.util.Enumeration;
import java.util.StringTokenizer;
import tabula.cell.Address;
import tabula.cell.Area;
import tabula.cell.Value;
import tabula.edit.Editor;
import tabula.formula.FormulaException;
import tabula.model.Sheet;
import tabula.util.Sequence;

/** A way to write a sheet as text. */
public interface Format {
    String write(Sheet sheet);

    /** Puts what was written into the sheet of the editor, behind what is there. */
    void read(String text, Editor editor) throws FormatException;

    /** A text that is not of the format. */
    class FormatException extends Exception {
        public final int line;

        FormatException(int line, String reason) {
            super("line " + line + " of the file: " + reason);
            this.line = line;
        }
    }

    /** A format of lines that are read one by one. */
    abstract class OfLines implements Format {
        /** Writes lines. */
        protected static class Lines {
            private final StringBuffer text = new StringBuffer();

            public Lines add(String line) {
                text.append(line).append('\n');
                return this;
            }

            public String toString() {
                return text.toString();
            }
        }

        /** Reads the lines of one text. */
        protected abstract class Reader {
            protected int line;

            protected abstract void take(String text) throws FormatException, FormulaException;

            final void readAll(String text) throws FormatException {
                for (StringTokenizer lines = new StringTokenizer(text, "\n"); lines.hasMoreTokens();) {
                    line++;
                    try {
                        take(lines.nextToken());
                    } catch (FormulaException e) {
                        throw new FormatException(line, e.getMessage());
                    }
                }
            }
        }

        protected abstract Reader reader(Editor editor);

        public void read(String text, Editor editor) throws FormatException {
            reader(editor).readAll(text);
        }
    }

    /** A line for each name and each cell: nothing is lost. */
    Format NATIVE = new OfLines() {
        private final String NAME = "name ", CELL = "cell ";

        public String write(Sheet sheet) {
            Lines lines = new Lines();
            for (Enumeration e = sheet.names(); e.hasMoreElements();) {
                String name = (String) e.nextElement();
                lines.add(NAME + name + " " + sheet.area(name));
            }
            for (Enumeration e = sheet.filled(); e.hasMoreElements();) {
                Address address = (Address) e.nextElement();
                lines.add(CELL + address + " " + sheet.content(address).source());
            }
            return lines.toString();
        }

        protected Reader reader(final Editor editor) {
            return new Reader() {
                protected void take(String text) throws FormatException, FormulaException {
                    int space = text.indexOf(' ', NAME.length());
                    if (space < 0) throw new FormatException(line, "something is missing");
                    String subject = text.substring(NAME.length(), space), rest = text.substring(space + 1);
                    Area area = Area.parse(text.startsWith(NAME) ? rest : subject);
                    if (area == null) throw new FormatException(line, "there is no area");
                    if (text.startsWith(NAME))
                        editor.name(subject, area);
                    else if (text.startsWith(CELL))
                        editor.set(area.first, rest);
                    else
                        throw new FormatException(line, "neither a name nor a cell");
                }
            };
        }
    };

    /** The values only, separated by semicolons. */
    Format VALUES = new OfLines() {
        public String write(Sheet sheet) {
            Lines lines = new Lines();
            Area extent = sheet.extent();
            for (int row = 0; extent != null && row < extent.rows(); row++) lines.add(line(sheet, extent.row(row)));
            return lines.toString();
        }

        private String line(Sheet sheet, Area row) {
            Sequence fields = new Sequence();
            for (Enumeration e = row.addresses(); e.hasMoreElements();)
                fields.add(quoted(sheet.value((Address) e.nextElement())));
            return fields.join(";");
        }

        private String quoted(final Value value) {
            return (String) value.accept(new Value.Default() {
                public Object text(String text) {
                    return text.indexOf(';') >= 0 ? '"' + text + '"' : text;
                }

                public Object other() {
                    return value.toString();
                }
            });
        }

        protected Reader reader(final Editor editor) {
            return new Reader() {
                protected void take(String text) throws FormulaException {
                    int column = 0;
                    while (text != null) {
                        String field = field(text);
                        if (field.length() > 0) editor.set(new Address(line - 1, column), unquoted(field));
                        column++;
                        text = field.length() == text.length() ? null : text.substring(field.length() + 1);
                    }
                }

                /** The text up to the next semicolon that does not stand in quotes. */
                private String field(String text) {
                    boolean isQuoted = false;
                    for (int i = 0; i < text.length(); i++) {
                        if (text.charAt(i) == '"') isQuoted = !isQuoted;
                        if (text.charAt(i) == ';' && !isQuoted) return text.substring(0, i);
                    }
                    return text;
                }

                private String unquoted(String field) {
                    boolean isQuoted = field.length() > 1 && field.startsWith("\"") && field.endsWith("\"");
                    return isQuoted ? field.substring(1, field.length() - 1) : field;
                }
            };
        }
    };
}
