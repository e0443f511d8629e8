package model;

public interface ChangeListener {
    void changed(ChangeEvent e);
}
