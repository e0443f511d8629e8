package model;

public class VetoException extends Exception {
    private final ChangeEvent event;

    public VetoException(String message, ChangeEvent event) {
        super(message);
        this.event = event;
    }

    public ChangeEvent getEvent() {
        return event;
    }

    public String getMessage() {
        return super.getMessage() + " (" + event + ")";
    }
}
