package tabula.script;

import java.io.BufferedReader;
import java.io.IOException;
import java.io.PrintWriter;
import java.io.Reader;
import java.util.Enumeration;
import tabula.cell.Address;
import tabula.cell.Area;
import tabula.cell.Value;
import tabula.edit.Command;
import tabula.edit.Editor;
import tabula.file.Archive;
import tabula.file.Format;
import tabula.formula.FormulaException;
import tabula.formula.Functions;
import tabula.formula.Mover;
import tabula.model.Sheet;
import tabula.util.Sequence;
import tabula.util.SortedTable;
import tabula.view.Bars;
import tabula.view.Explanation;
import tabula.view.Grid;
import tabula.view.View;
import tabula.view.Watch;

/** Carries out command lines. Each is echoed behind a >, and what is wrong with it is told behind a !. */
public class Interpreter implements View.Canvas {
    private final PrintWriter out;
    private final Sheet sheet = new Sheet();
    private final Editor editor = new Editor(sheet);
    private final Archive archive = new Archive();
    private final Watch.Post post = new Watch.Post();
    private final SortedTable verbs = new SortedTable();
    private boolean isDone;
    private int faults;

    /** What a line can begin with. A verb enters itself into the table. */
    private abstract class Verb {
        private final String usage;

        Verb(String name, String usage) {
            this.usage = usage.length() == 0 ? name : name + " " + usage;
            verbs.put(name, this);
        }

        abstract void run(Words words) throws ScriptException, FormulaException;
    }

    public Interpreter(PrintWriter out) {
        this.out = out;
        defineEdits();
        defineHistory();
        defineViews();
        defineFiles();
        defineOthers();
    }

    public void line(String text) {
        out.println("  " + text);
    }

    /** Runs the lines up to the end or to `quit`. Returns how many of them failed. */
    public int run(Reader reader) throws IOException {
        BufferedReader lines = new BufferedReader(reader);
        for (String line = lines.readLine(); line != null && !isDone; line = lines.readLine()) {
            line = line.trim();
            if (line.length() == 0 || line.startsWith("#")) continue;
            out.println("> " + line);
            runLine(line);
        }
        archive.close();
        out.flush();
        return faults;
    }

    private void runLine(String line) {
        try {
            Words words = new Words(line);
            String name = words.word("command");
            Verb verb = (Verb) verbs.get(name);
            if (verb == null) throw new ScriptException("there is no command " + name);
            verb.run(words);
            words.end();
        } catch (ScriptException e) {
            complain(e.getMessage());
        } catch (FormulaException e) {
            complain("at " + e.place + ": " + e.getMessage());
        } catch (Mover.OffSheet e) {
            complain(e.getMessage());
        }
    }

    private void complain(String message) {
        faults++;
        out.println("! " + message);
    }

    // ---- edits

    private void defineEdits() {
        new Verb("set", "cell text") {
            void run(Words words) throws ScriptException, FormulaException {
                editor.set(words.address(), words.rest());
            }
        };
        new Verb("row", "cell text | text | ...") {
            void run(Words words) throws ScriptException, FormulaException {
                Address at = words.address();
                String rest = words.rest();
                editor.history.begin("row " + at);
                try {
                    for (int bar = 0; bar >= 0 && at != null; at = at.offset(0, 1)) {
                        bar = rest.indexOf('|');
                        editor.set(at, (bar < 0 ? rest : rest.substring(0, bar)).trim());
                        rest = rest.substring(bar + 1);
                    }
                } finally {
                    editor.history.end();
                }
            }
        };
        new Verb("clear", "[area]") {
            void run(Words words) throws ScriptException {
                if (words.hasMore())
                    editor.clear(words.area());
                else
                    editor.clearAll();
            }
        };
        new Verb("fill", "area text") {
            void run(Words words) throws ScriptException, FormulaException {
                editor.fill(words.area(), words.rest());
            }
        };
        new Verb("copy", "area cell") {
            void run(Words words) throws ScriptException {
                editor.copy(words.area(), words.address());
            }
        };
        new Verb("sort", "area column [down]") {
            void run(Words words) throws ScriptException {
                Area area = words.area();
                String name = words.word("column");
                Address top = Address.parse(name + (area.first.row + 1));
                if (top == null || !area.contains(top)) throw new ScriptException(name + " is no column of " + area);
                editor.sort(area, top.column - area.first.column, words.take("down"));
            }
        };
        new Verb("name", "name [area]") {
            void run(Words words) throws ScriptException {
                String name = words.word("name").toLowerCase();
                editor.name(name, words.hasMore() ? words.area() : null);
            }
        };
    }

    // ---- history

    /** A verb that steps through the history, as many steps as one wants. */
    private abstract class Stepping extends Verb {
        private final String done;

        Stepping(String name, String done) {
            super(name, "[steps]");
            this.done = done;
        }

        /** Null if there is nothing. */
        abstract Command step();

        void run(Words words) throws ScriptException {
            for (int steps = words.number(1); steps > 0; steps--) {
                Command command = step();
                if (command == null) throw new ScriptException("there is nothing to be " + done);
                line(done + ": " + command);
            }
        }
    }

    private void defineHistory() {
        new Stepping("undo", "taken back") {
            Command step() {
                return editor.history.undo();
            }
        };
        new Stepping("redo", "done again") {
            Command step() {
                return editor.history.redo();
            }
        };
        new Verb("begin", "title") {
            void run(Words words) {
                editor.history.begin(words.rest());
            }
        };
        new Verb("end", "") {
            void run(Words words) throws ScriptException {
                if (!editor.history.end()) throw new ScriptException("there is nothing to end");
            }
        };
        new Verb("cancel", "") {
            void run(Words words) {
                editor.history.cancel();
            }
        };
        new Verb("history", "") {
            void run(Words words) {
                for (Enumeration e = editor.history.done(); e.hasMoreElements();) line("done: " + e.nextElement());
                for (Enumeration e = editor.history.undone(); e.hasMoreElements();) line("undone: " + e.nextElement());
            }
        };
    }

    // ---- views

    /** A verb that shows an area, or all there is. */
    private abstract class Showing extends Verb {
        Showing(String name) {
            super(name, "[area]");
        }

        abstract View view(Area area);

        void run(Words words) throws ScriptException {
            Area area = words.hasMore() ? words.area() : sheet.extent();
            if (area == null)
                line("(empty)");
            else
                view(area).paint(Interpreter.this);
        }
    }

    private void defineViews() {
        new Showing("show") {
            View view(Area area) {
                return Grid.ofValues(sheet, area);
            }
        };
        new Showing("formulas") {
            View view(Area area) {
                return Grid.ofSources(sheet, area);
            }
        };
        new Showing("bars") {
            View view(Area area) {
                return new Bars(sheet, area);
            }
        };
        new Showing("report") {
            View view(Area area) {
                return new View.Stack()
                    .add(new View.Titled("values of " + area, Grid.ofValues(sheet, area)))
                    .add(new View.Titled("bars of " + area, new Bars(sheet, area)));
            }
        };
        new Verb("why", "cell [depth]") {
            void run(Words words) throws ScriptException {
                new Explanation(sheet, words.address(), words.number(9)).paint(Interpreter.this);
            }
        };
        new Verb("users", "cell") {
            void run(Words words) throws ScriptException {
                line(new Sequence().addAll(sheet.users(words.address())).toString());
            }
        };
        new Verb("watch", "area [silently]") {
            void run(Words words) throws ScriptException {
                Watch watch = new Watch(sheet, words.area(), Interpreter.this);
                if (words.take("silently")) watch.silence();
                post.add(watch);
            }
        };
        new Verb("unwatch", "area") {
            void run(Words words) throws ScriptException {
                final Area area = words.area();
                Sequence taken = post.take(area);
                if (taken.isEmpty()) throw new ScriptException("nobody watches " + area);
                taken.each(new Sequence.Action() {
                    public void on(Object watch) {
                        line(area + " had " + ((Watch) watch).end() + " changes");
                    }
                });
            }
        };
    }

    // ---- files

    private static Format format(Words words) throws ScriptException {
        return words.take("values") ? Format.VALUES : Format.NATIVE;
    }

    private String saved(String name) throws ScriptException {
        String text = archive.text(name);
        if (text == null) throw new ScriptException("nothing was saved as " + name);
        return text;
    }

    private void defineFiles() {
        final Sequence receipts = new Sequence();
        new Verb("save", "name [values]") {
            void run(Words words) throws ScriptException {
                String name = words.word("name");
                archive.save(name, sheet, format(words), new Archive.Receipt() {
                    public void kept(String kept, int lines) {
                        synchronized (receipts) {
                            receipts.add(kept + ": " + lines + " lines");
                        }
                    }
                });
            }
        };
        new Verb("saved", "") {
            void run(Words words) {
                archive.settle();
                synchronized (receipts) {
                    for (; !receipts.isEmpty(); receipts.removeAt(0)) line(receipts.at(0).toString());
                }
            }
        };
        new Verb("load", "name [values]") {
            void run(Words words) throws ScriptException {
                String name = words.word("name");
                String text = saved(name);
                Format format = format(words);
                editor.history.begin("load " + name);
                try {
                    editor.clearAll();
                    format.read(text, editor);
                } catch (Format.FormatException e) {
                    throw new ScriptException(e.getMessage());
                } finally {
                    editor.history.end();
                }
            }
        };
        new Verb("list", "name") {
            void run(Words words) throws ScriptException {
                String text = saved(words.word("name"));
                for (int end = text.indexOf('\n'); end >= 0; end = text.indexOf('\n')) {
                    line(text.substring(0, end));
                    text = text.substring(end + 1);
                }
            }
        };
    }

    // ---- others

    private void defineOthers() {
        new Verb("value", "cell") {
            void run(Words words) throws ScriptException {
                Value value = sheet.value(words.address());
                line(value.isBlank() ? "(empty)" : value.toString());
            }
        };
        new Verb("names", "") {
            void run(Words words) {
                for (Enumeration e = sheet.names(); e.hasMoreElements();) {
                    String name = (String) e.nextElement();
                    line(name + " = " + sheet.area(name));
                }
            }
        };
        new Verb("work", "") {
            private int before;

            void run(Words words) {
                line(sheet.evaluations() - before + " formulas evaluated");
                before = sheet.evaluations();
            }
        };
        new Verb("help", "[functions]") {
            void run(Words words) throws ScriptException {
                if (words.take("functions")) {
                    line(new Sequence().addAll(Functions.all()).join(" "));
                    return;
                }
                for (Enumeration e = verbs.values(); e.hasMoreElements();) line(((Verb) e.nextElement()).usage);
            }
        };
        new Verb("quit", "") {
            void run(Words words) {
                isDone = true;
            }
        };
    }
}
