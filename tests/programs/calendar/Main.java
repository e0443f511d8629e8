/** A day, counted from 1 January of the year 1, with the Gregorian rules. */
final class Day {
    static final int SUNDAY = 0, MONDAY = 1, SATURDAY = 6;
    static final String[] NAMES = { "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday" };
    static final String[] MONTHS = { "January", "February", "March", "April", "May", "June", "July", "August", "September", "October", "November", "December" };
    private static final byte[] LENGTHS = { 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31 };
    final int year;
    final byte month, day;

    Day(int year, int month, int day) {
        if (month < 1 || month > 12 || day < 1 || day > length(year, month)) throw new IllegalArgumentException(year + "-" + month + "-" + day);
        this.year = year;
        this.month = (byte) month;
        this.day = (byte) day;
    }

    Day(long number) {
        int y = (int) (number / 366) + 1;
        while (first(y + 1) <= number) y++;
        int rest = (int) (number - first(y)), m = 1;
        for (int n; rest >= (n = length(y, m)); m++) rest -= n;
        year = y;
        month = (byte) m;
        day = (byte) ++rest;
    }

    static boolean leap(int y) {
        return y % 4 == 0 && y % 100 != 0 || y % 400 == 0;
    }

    static int length(int y, int m) {
        return m == 2 && leap(y) ? 29 : LENGTHS[m - 1];
    }

    private static long first(int y) {
        y--;
        return y * 365L + y / 4 - y / 100 + y / 400;
    }

    long number() {
        long n = first(year);
        switch (month) {
            case 12: n += 30;
            case 11: n += 31;
            case 10: n += 30;
            case 9: n += 31;
            case 8: n += 31;
            case 7: n += 30;
            case 6: n += 31;
            case 5: n += 30;
            case 4: n += 31;
            case 3: n += leap(year) ? 29 : 28;
            case 2: n += 31;
        }
        return n + day - 1;
    }

    int weekday() {
        return (int) ((number() + 1) % 7);
    }

    Day plus(int days) {
        return new Day(number() + days);
    }

    /** The same day of a later month, or its last one if that is shorter. */
    Day plusMonths(int n) {
        int m = year * 12 + month - 1 + n, y = m / 12;
        m = m % 12 + 1;
        return new Day(y, m, Math.min(day, length(y, m)));
    }

    int dayOfYear() {
        return (int) (number() - first(year)) + 1;
    }

    int week() {
        Day thursday = plus(3 - (weekday() + 6) % 7);
        return (thursday.dayOfYear() - 1) / 7 + 1;
    }

    static Day easter(int y) {
        int a = y % 19, b = y / 100, c = y % 100, d = b / 4, e = b % 4, f = (b + 8) / 25, g = (b - f + 1) / 3, h = (19 * a + b - d - g + 15) % 30,
            i = c / 4, k = c % 4, l = (32 + 2 * e + 2 * i - h - k) % 7, m = (a + 11 * h + 22 * l) / 451, x = h + l - 7 * m + 114;
        return new Day(y, x / 31, x % 31 + 1);
    }

    static Day parse(String s) {
        int[] part = new int[3];
        int n = 0;
        for (int i = 0; i < s.length(); i++) {
            char c = s.charAt(i);
            if (c == '-') {
                if (++n == 3) break;
            } else if (c < '0' || '9' < c) throw new NumberFormatException(s);
            else part[n] = part[n] * 10 + c - '0';
        }
        if (n != 2) throw new IllegalArgumentException("parts of " + s);
        return new Day(part[0], part[1], part[2]);
    }

    public boolean equals(Object o) {
        return o instanceof Day && ((Day) o).number() == number();
    }

    public int hashCode() {
        return (int) number();
    }

    public String toString() {
        return year + (month < 10 ? "-0" : "-") + month + (day < 10 ? "-0" : "-") + day;
    }
}

interface Calendar {
    String show(Day d);
}

class Roman implements Calendar {
    static String number(int n) {
        final int[] values = { 1000, 900, 500, 400, 100, 90, 50, 40, 10, 9, 5, 4, 1 };
        final String digits = "M CMD CDC XCL XLX IXV IVI ";
        StringBuffer b = new StringBuffer();
        for (int i = 0; n > 0; )
            if (n >= values[i]) {
                n -= values[i];
                b.append(digits.substring(i * 2, i * 2 + 2).trim());
            } else i++;
        return b.toString();
    }

    public String show(Day d) {
        return number(d.day) + "." + number(d.month) + "." + number(d.year);
    }
}

class Julian implements Calendar {
    public String show(Day d) {
        long n = d.number() + 1721426L + 32082;
        long e = (4 * n + 3) / 1461, f = n - 1461 * e / 4, m = (5 * f + 2) / 153;
        return f - (153 * m + 2) / 5 + 1 + " " + Day.MONTHS[(int) (m + 3 - 12 * (m / 10)) - 1] + " " + (e - 4800 + m / 10) + " old style";
    }
}

class Words implements Calendar {
    public String show(Day d) {
        String suffix;
        switch (d.day) {
            case 1: case 21: case 31: suffix = "st"; break;
            case 2: case 22: suffix = "nd"; break;
            case 3: case 23: suffix = "rd"; break;
            default: suffix = "th";
        }
        return Day.NAMES[d.weekday()] + ", the " + d.day + suffix + " of " + Day.MONTHS[d.month - 1] + " " + d.year + ", day " + d.dayOfYear() + ", week " + d.week();
    }
}

public class Main {
    static String page(int year, int month) {
        StringBuffer b = new StringBuffer();
        String title = Day.MONTHS[month - 1] + " " + year;
        for (int i = (20 - title.length()) / 2; i > 0; i--) b.append(' ');
        b.append(title).append("\nMo Tu We Th Fr Sa Su\n");
        int column = (new Day(year, month, 1).weekday() + 6) % 7, last = Day.length(year, month);
        for (int i = 0; i < column; i++) b.append("   ");
        for (int d = 1; ; b.append(column == 0 ? '\n' : ' ')) {
            if (d < 10) b.append(' ');
            b.append(d);
            if (d++ == last) break;
            column = ++column % 7;
        }
        return b.append('\n').toString();
    }

    public static void main(String[] args) {
        Calendar[] calendars = { new Words(), new Roman(), new Julian() };
        String[] days = { "1996-02-29", "1970-01-01", "2000-12-29", "1582-10-15", "1900-03-01", "1997-01-01", "1917-11-07", "0001-01-01", "1998-12-29" };
        for (int i = 0; i < days.length; i++) {
            Day d = Day.parse(days[i]);
            System.out.print(d);
            for (int k = 0; k < calendars.length; k++) System.out.print((k == 0 ? ": " : "; ") + calendars[k].show(d));
            System.out.println();
        }
        int wrong = 0;
        Day d = new Day(1995, 12, 25);
        for (long n = d.number(); d.year < 2001; d = d.plus(1), n++) if (d.number() != n || !new Day(n).equals(d) || d.weekday() != (int) (n + 1) % 7) wrong++;
        System.out.println("wrong: " + wrong);
        for (int y = 1995; y <= 2005; y++) System.out.print(Day.easter(y) + (y == 2005 ? "\n" : " "));
        System.out.print(page(1996, 2) + page(1998, 6));
        Day end = new Day(1996, 1, 31);
        System.out.println(end.plusMonths(1) + " " + end.plusMonths(13) + " " + end.plusMonths(11) + " " + end.plusMonths(-2) + " " + end.plus(-31) + " " + end.plus(366));
        System.out.println(new Day(2000, 1, 1).number() - Day.parse("1900-01-01").number() + " days in a century");
        String[] bad = { "1997-02-29", "1996-13-01", "1996-1", "1996-x-1", "1996-04-31" };
        for (int i = 0; i < bad.length; i++) {
            try {
                System.out.println(Day.parse(bad[i]));
            } catch (NumberFormatException e) {
                System.out.println("no number in " + e.getMessage());
            } catch (IllegalArgumentException e) {
                System.out.println("no day: " + e.getMessage());
            }
        }
        int thirteenths = 0;
        for (int y = 1901; y <= 2000; y++) for (byte m = 1; m <= 12; m++) if (new Day(y, m, 13).weekday() == 5) thirteenths++;
        System.out.println(thirteenths + " Fridays the thirteenth in the century");
    }
}
