package view;

import model.ChangeEvent;

/** Rings when the limit is passed upwards. */
public class Alarm extends View {
    private final int limit;
    private int rings;

    public Alarm(int limit) {
        this.limit = limit;
    }

    public void changed(ChangeEvent e) {
        if (e.before <= limit && e.after > limit) super.changed(e);
    }

    void refresh() {
        rings++;
    }

    public int rings() {
        return rings;
    }
}
