package tabula.util;

/** Texts of a certain width, and numbers as texts. */
public final class Text {
    private Text() {
    }

    /** Where a text stands in a field that is wider. */
    public static abstract class Side {
        abstract int before(int gap);

        public String fit(String text, int width) {
            int gap = width - text.length();
            if (gap <= 0) return text;
            int before = before(gap);
            return repeat(' ', before) + text + repeat(' ', gap - before);
        }
    }

    public static final Side LEFT = new Side() {
        int before(int gap) {
            return 0;
        }
    };
    public static final Side RIGHT = new Side() {
        int before(int gap) {
            return gap;
        }
    };
    public static final Side MIDDLE = new Side() {
        int before(int gap) {
            return gap / 2;
        }
    };

    public static String repeat(char c, int count) {
        StringBuffer text = new StringBuffer();
        while (text.length() < count) text.append(c);
        return text.toString();
    }

    /** The text without the spaces at its end. */
    public static String trimEnd(String text) {
        int end = text.length();
        while (end > 0 && text.charAt(end - 1) == ' ') end--;
        return text.substring(0, end);
    }

    private static final int DECIMALS = 4;
    private static final double SCALE = 10000, LARGEST = 1e14;

    /** The number with up to four decimals; large ones as Java writes them. */
    public static String number(double value) {
        if (!(Math.abs(value) < LARGEST)) return String.valueOf(value);
        long scaled = Math.round(Math.abs(value) * SCALE);
        StringBuffer text = new StringBuffer();
        if (value < 0 && scaled != 0) text.append('-');
        text.append(scaled / (long) SCALE);
        String decimals = String.valueOf(scaled % (long) SCALE);
        decimals = repeat('0', DECIMALS - decimals.length()) + decimals;
        int end = decimals.length();
        while (end > 0 && decimals.charAt(end - 1) == '0') end--;
        if (end > 0) text.append('.').append(decimals.substring(0, end));
        return text.toString();
    }

    public static boolean isNumber(String text) {
        try {
            Double.valueOf(text);
        } catch (NumberFormatException e) {
            return false;
        }
        char last = text.charAt(text.length() - 1);
        return last >= '0' && last <= '9' || last == '.'; // Java takes "1d" and "1f", too
    }
}
