package tabula.edit;

import java.util.Enumeration;
import tabula.util.Chain;
import tabula.util.Sequence;

/** The commands that were run, in order, and those that were taken back and can be run again. */
public class History {
    private final Chain chain = new Chain();
    private Group open;

    /** Commands that are taken back as one. Groups can stand in groups. */
    private class Group extends Command {
        private final Sequence parts = new Sequence();
        private final Group around = open;

        Group(String title) {
            super(title);
        }

        void add(Command part) {
            parts.add(part);
        }

        protected void run() {
            parts.each(new Sequence.Action() {
                public void on(Object part) {
                    ((Command) part).run();
                }
            });
        }

        protected void back() {
            for (Enumeration e = parts.backwards(); e.hasMoreElements();) ((Command) e.nextElement()).back();
        }

        public String toString() {
            return super.toString() + " (" + parts.size() + ")";
        }
    }

    public void run(Command command) {
        command.run();
        keep(command);
    }

    private void keep(Command command) {
        if (open != null)
            open.add(command);
        else
            chain.add(command);
    }

    /** What follows belongs together, until `end`. */
    public void begin(String title) {
        open = new Group(title);
    }

    /** Returns whether there was something to end. */
    public boolean end() {
        if (open == null) return false;
        Group done = open;
        open = done.around;
        if (!done.parts.isEmpty()) keep(done);
        return true;
    }

    /** Takes back all of the open groups. */
    public void cancel() {
        for (; open != null; open = open.around) open.back();
    }

    public boolean isOpen() {
        return open != null;
    }

    /** The command that was taken back, or null if there is none. */
    public Command undo() {
        if (isOpen() || !chain.canGoBack()) return null;
        Command command = (Command) chain.back();
        command.back();
        return command;
    }

    /** The command that was run again, or null if there is none. */
    public Command redo() {
        if (isOpen() || !chain.canGoOn()) return null;
        Command command = (Command) chain.on();
        command.run();
        return command;
    }

    /** What can be taken back, the last first. */
    public Enumeration done() {
        return chain.before();
    }

    /** What can be done again, the first first. */
    public Enumeration undone() {
        return chain.behind();
    }

    public void forget() {
        open = null;
        chain.clear();
    }
}
