package calc.run;

public final class TextValue extends Value {
    final String text;

    public TextValue(String text) {
        this.text = text;
    }

    String kind() {
        return "text";
    }

    public Value plus(Value v) {
        return new TextValue(text + v);
    }

    public int compare(Value v) throws CalcException {
        return v instanceof TextValue ? text.compareTo(((TextValue) v).text) : super.compare(v);
    }

    public boolean equals(Object o) {
        return o instanceof TextValue && text.equals(((TextValue) o).text);
    }

    public int hashCode() {
        return text.hashCode();
    }

    public String toString() {
        return text;
    }
}
