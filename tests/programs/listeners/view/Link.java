package view;

import model.*;

/** Keeps two models equal. */
public class Link implements ChangeListener {
    private final Model a, b;
    private boolean busy;

    public Link(Model a, Model b) {
        (this.a = a).addChangeListener(this);
        (this.b = b).addChangeListener(this);
        b.set(a.get());
    }

    public void changed(ChangeEvent e) {
        if (busy) return;
        try {
            busy = true;
            (e.getSource() == a ? b : a).set(e.after);
        } finally {
            busy = false;
        }
    }
}
