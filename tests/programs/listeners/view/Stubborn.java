package view;

import model.*;

/** Refuses odd values, by an exception of its own. */
public class Stubborn implements Vetoer {
    public void check(ChangeEvent e) throws OddException {
        if ((e.after & 1) != 0) throw new OddException(e);
    }
}

class OddException extends VetoException {
    OddException(ChangeEvent e) {
        super(e.after + " is odd", e);
    }
}
