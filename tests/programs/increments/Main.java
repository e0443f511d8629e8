/** ++ and -- on variables of every type and kind, from `generate`, and in crowded expressions. */
public class Main {
    static int steps, rounds;

    static int next() {
        steps++;
        return 2;
    }

    /** True two times out of three. */
    static boolean step() {
        return ++rounds % 3 != 0;
    }

    /** Says once what each kind of variable gives. */
    static void same(String[] notes) {
        for (int i = 1; i < notes.length; i++)
            if (!notes[i].equals(notes[0])) System.out.println("BUT " + notes[i]);
        System.out.println(notes[0]);
    }

    static String text(int i) {
        return "" + i;
    }

    static String text(long l) {
        return l + "L";
    }

    static String text(float f) {
        return Integer.toHexString(Float.floatToIntBits(f));
    }

    static String text(double d) {
        return Long.toHexString(Double.doubleToLongBits(d));
    }

    int count;
    static long total = Long.MAX_VALUE;
    char letter = 'x';

    int bump() {
        return this.count++ + ++this.count;
    }

    static void crowded() {
        int i = 0;
        int[] a = new int[6];
        a[i++] = i++;
        a[i] = i++ + i++;
        a[++i] = i--;
        a[i--] += a[i++]++;
        System.out.println(a[0] + " " + a[1] + " " + a[2] + " " + a[3] + " " + a[4] + " " + a[5] + " i = " + i);
        i = i++;
        i = ++i + i++ * --i - i--;
        System.out.println("i = " + i);
        long l = 5;
        long[] ls = { l++, l, --l, l--, -l, - --l, ~l++ };
        for (int k = 0; k < ls.length; k++) System.out.print(ls[k] + " ");
        System.out.println(l);
        Main m = new Main();
        System.out.println(m.bump() + " " + m.bump() + " " + m.count + " " + total++ + " " + total + " " + --total);
        System.out.println(m.letter++ + "" + m.letter-- + --m.letter + (char) (m.letter + 1) + (m.letter++ + 1));
        byte b = 127;
        byte c = b++;
        System.out.println(c + " " + b + " " + b-- + " " + b + " " + (b++ + b++) + " " + b);
        int n = 3, sum = 0;
        while (n-- > 0) sum = sum * 10 + n;
        System.out.println(sum + " " + n);
        do sum++; while (++n < 3);
        System.out.println(sum + " " + n);
        for (int x = 0, y = 10; x < y; x++, --y) sum += x * y;
        System.out.println(sum);
        boolean even = (i++ & 1) == 0 && i++ > 100 || i-- < 0;
        System.out.println(even + " " + i);
        double[][] grid = new double[2][2];
        int row = 0;
        grid[row++][row--]++;
        --grid[row][++row];
        ++grid[row][row];
        System.out.println(grid[0][0] + " " + grid[0][1] + " " + grid[1][0] + " " + grid[1][1]++ + " " + grid[1][1]);
        int shift = 1;
        System.out.println((shift++ << shift++) + " " + (shift++ >> 1) + " " + shift + " " + (shift-- - --shift) + " " + - -shift + " " + -(-shift));
    }

    public static void main(String[] args) {
        new OnByte().all((byte) 127);
        new OnByte().all((byte) -128);
        new OnShort().all((short) 32767);
        new OnShort().all((short) -32768);
        new OnChar().all('\uffff');
        new OnChar().all('\0');
        new OnInt().all(Integer.MAX_VALUE);
        new OnInt().all(Integer.MIN_VALUE);
        new OnLong().all(Long.MAX_VALUE);
        new OnLong().all(0xFFFFFFFFL);
        new OnFloat().all(16777215f);
        new OnFloat().all(-0.5f);
        new OnDouble().all(1e15);
        new OnDouble().all(-0.0);
        System.out.println("targets evaluated " + steps + " times, " + rounds + " rounds");
        crowded();
    }
}
