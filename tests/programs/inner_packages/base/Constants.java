package base;

public interface Constants {
    int LIMIT = 12;
    String UNIT = "unit";
    Object MADE = new Object() {
        private int asked;

        public String toString() { return "made" + ++asked; }
    };
}
