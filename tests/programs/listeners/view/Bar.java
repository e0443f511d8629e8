package view;

public class Bar extends View {
    private final int width;
    private String shown = "";

    public Bar(int width) {
        this.width = width;
    }

    void refresh() {
        StringBuffer b = new StringBuffer();
        int n = Scale.scaled(last.after, width);
        for (int i = 0; i < width; i++) b.append(i < n ? '=' : '.');
        shown = b.toString();
    }

    public String toString() {
        return "[" + shown + "]";
    }
}
