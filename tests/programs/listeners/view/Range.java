package view;

import model.*;

public class Range implements Vetoer {
    private final int least, most;

    public Range(int least, int most) {
        this.least = least;
        this.most = most;
    }

    public void check(ChangeEvent e) throws VetoException {
        if (e.after < least || e.after > most) throw new VetoException(REASON, e);
    }
}
