package view;

import java.io.PrintStream;

public class Log extends View {
    protected final PrintStream out;
    private final String prefix;

    public Log(PrintStream out, String prefix) {
        this.out = out;
        this.prefix = prefix;
    }

    void refresh() {
        out.println(prefix + last.before + " -> " + last.after);
    }
}
