package tabula.edit;

/** Something that was done and can be taken back. */
public abstract class Command {
    private final String title;

    protected Command(String title) {
        this.title = title;
    }

    /** Does it, for the first time or again. */
    protected abstract void run();

    /** Makes all as it was before `run`. */
    protected abstract void back();

    public String toString() {
        return title;
    }
}
