package model;

public class Thermometer extends Model {
    private final String place;

    public Thermometer(String place) {
        this.place = place;
    }

    protected String unit() {
        return "C";
    }

    public String toString() {
        return place + " thermometer at " + get() + unit();
    }
}
