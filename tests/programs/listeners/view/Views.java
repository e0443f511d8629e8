package view;

import model.ChangeEvent;
import model.ChangeListener;
import model.Model;

/** Hears changes and remembers the last one. */
abstract class View implements ChangeListener {
    protected ChangeEvent last;

    public void changed(ChangeEvent e) {
        last = e;
        refresh();
    }

    abstract void refresh();
}

/** In a file of its package only, and used by the classes beside it. */
class Scale {
    static int scaled(int value, int width) {
        return Math.max(0, Math.min(width, value * width / 50));
    }
}
