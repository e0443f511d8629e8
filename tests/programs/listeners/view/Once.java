package view;

import model.*;

/** Passes one event on and leaves. */
public class Once implements ChangeListener {
    private final Model model;
    private ChangeListener target;

    public Once(Model model, ChangeListener target) {
        this.model = model;
        this.target = target;
    }

    public void changed(ChangeEvent e) {
        model.removeChangeListener(this);
        if (target == null) throw new Error("twice");
        target.changed(e);
        target = null;
    }
}
