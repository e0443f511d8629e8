package model;

import java.util.Vector;

/** A value with listeners. Subclasses name it. */
public abstract class Model {
    private int value;
    private final Vector listeners = new Vector();
    private Vetoer[] vetoers = {};

    public synchronized void addChangeListener(ChangeListener l) {
        listeners.addElement(l);
    }

    public synchronized void removeChangeListener(ChangeListener l) {
        listeners.removeElement(l);
    }

    public void addVetoer(Vetoer v) {
        Vetoer[] more = new Vetoer[vetoers.length + 1];
        System.arraycopy(vetoers, 0, more, 0, vetoers.length);
        more[vetoers.length] = v;
        vetoers = more;
    }

    public int get() {
        return value;
    }

    public boolean set(int after) {
        if (after == value) return false;
        ChangeEvent e = new ChangeEvent(this, value, after);
        try {
            for (int i = 0; i < vetoers.length; i++) vetoers[i].check(e);
        } catch (VetoException x) {
            refused(x);
            return false;
        }
        value = after;
        Vector targets;
        synchronized (this) {
            targets = (Vector) listeners.clone();
        }
        for (int i = 0; i < targets.size(); i++) ((ChangeListener) targets.elementAt(i)).changed(e);
        return true;
    }

    protected void refused(VetoException x) {
        System.out.println("refused: " + x.getMessage());
    }

    protected abstract String unit();
}
