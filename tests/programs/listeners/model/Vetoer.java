package model;

public interface Vetoer {
    String REASON = "out of range";

    void check(ChangeEvent e) throws VetoException;
}
