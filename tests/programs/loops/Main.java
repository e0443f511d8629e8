/** Loops of every shape, with and without labels. */
public class Main {
    static StringBuffer out = new StringBuffer();

    static void flush(String label) {
        System.out.println(label + ": " + out);
        out = new StringBuffer();
    }

    static boolean say(String s, boolean b) {
        out.append(s);
        return b;
    }

    static void shapes() {
        int i = 0;
        while (i < 3) out.append(i++);
        while (i-- > 0) ;
        do out.append(i); while (++i < 2);
        do { } while (i++ < 5);
        do ; while (false);
        do { out.append('o'); if (i > 0) continue; out.append('x'); } while (false);
        do { out.append('p'); if (i++ < 9) continue; break; } while (true);
        flush("while and do");
        for (i = 0; i < 3; i++) out.append(i);
        for (; i < 5; ) out.append(i++);
        for (; ; ) { if (i++ > 6) break; }
        for (int a = 0, b = 10; a < b; a += 3, b--, out.append(' ')) out.append(a).append('/').append(b);
        for (i = 0, out.append('i'); i < 2; out.append('u'), ++i) out.append('b');
        for (int k = 3; k-- > 0; ) { int k2 = k * k; out.append(k2); }
        for (int k = 0; false || k < 2; k++) { int k2 = k + 5; out.append(k2); }
        for (String s = "a"; !s.equals("aaaa"); s += "a") out.append(s).append(',');
        for (long l = 1; l > 0; l *= 1000) out.append(l % 7);
        for (double d = 0; d < 1; d += 0.25) out.append(d).append(';');
        for (char c = 'a'; c <= 'e'; c++) out.append(c);
        for (byte b = 125; b > 0; b++) out.append(b);
        final int[] limits = { 2, 1 };
        for (int j = 0, n[] = limits, m = n.length; j < m; j++) out.append(n[j]);
        for (final int fixed = 3; i < 9; i += fixed) out.append('f');
        for (boolean go = true; go; go = !go) out.append(go);
        flush("for");
    }

    static void labels() {
        outer:
        for (int i = 0; ; i++) {
            inner:
            for (int j = 0; ; j++) {
                out.append(i).append(j).append(' ');
                if (j == i) continue outer;
                if (i == 3) break outer;
                if (j == 1) break inner;
                if (i + j < 3) continue inner;
                if (i == 9) break;
                continue;
            }
            out.append('|');
        }
        flush("for in for");
        int n = 0;
        a:
        while (n < 20) {
            n++;
            b:
            do {
                n++;
                if (n % 3 == 0) continue a;
                if (n % 5 == 0) continue b;
                if (n % 7 == 0) break b;
                if (n % 11 == 0) break a;
                out.append(n).append(' ');
            } while (say("c", n % 2 == 0));
            out.append('.');
        }
        out.append(n);
        flush("while and do");
        block: {
            if (n > 5) {
                out.append('1');
                if (n > 6) break block;
                out.append('2');
            }
            out.append('3');
        }
        once: if (n > 0) { if (n > 1) break once; out.append("never"); } else out.append("never");
        x: y: z: { if (n < 0) break x; if (n == 0) break y; if (n > 0) break z; out.append("never"); }
        void1: for (int i = 0; i < 2; i++) first: second: for (;;) { out.append(i); if (i == 0) continue void1; break first; }
        lone: ;
        n: n++;
        lone: out.append(n);
        flush("blocks");
    }

    static int search(int[][] grid, int wanted) {
        int steps = 0;
        search:
        for (int row = 0; row < grid.length; row++) {
            if (grid[row] == null) continue search;
            for (int column = 0; column < grid[row].length; column++) {
                steps++;
                if (grid[row][column] == wanted) return row * 100 + column;
                if (grid[row][column] < 0) continue search;
                if (grid[row][column] > 1000) break search;
            }
        }
        return -steps;
    }

    static int endless() {
        int i = 0;
        while (true) {
            if (i * i > 200) return i;
            i++;
        }
    }

    static int endlessFor(int i) {
        for (;;)
            if (i % 13 == 0) return i;
            else i++;
    }

    static int endlessDo(int i) {
        do {
            if (i > 50) return i;
            i += 7;
        } while (true);
    }

    static void scopes() {
        int total = 0;
        { int i = 1; total += i; }
        { int i = 2; total += i; }
        { long i = 3; total += i; }
        for (int i = 4; i < 5; i++) total += i;
        for (String i = "x"; i != null; i = null) total += i.length();
        if (total > 0) { int i = 100; total += i; } else { String i = "y"; total += i.length(); }
        String i = "end";
        System.out.println("scopes: " + total + i);
    }

    static String primes(int n) {
        boolean[] composite = new boolean[n + 1];
        StringBuffer s = new StringBuffer();
        candidates:
        for (int i = 2; i <= n; i++) {
            for (int d = 2; d * d <= i; d++)
                if (i % d == 0) { composite[i] = true; continue candidates; }
            s.append(s.length() == 0 ? "" : ",").append(i);
        }
        int count = 0;
        for (int i = 2; i <= n; ++i) if (!composite[i]) ++count;
        return s + " = " + count;
    }

    static int collatz(int n) {
        int steps = 0;
        for (; n != 1; steps++) if ((n & 1) == 0) n >>= 1; else n = 3 * n + 1;
        return steps;
    }

    static int gcd(int a, int b) {
        while (b != 0) { int t = a % b; a = b; b = t; }
        return a;
    }

    static String hanoi(int n, char from, char to, char over) {
        return n == 0 ? "" : hanoi(n - 1, from, over, to) + from + to + ' ' + hanoi(n - 1, over, to, from);
    }

    static int ackermann(int m, int n) {
        while (m != 0) {
            if (n == 0) n = 1;
            else n = ackermann(m, n - 1);
            m--;
        }
        return n + 1;
    }

    public static void main(String[] args) {
        shapes();
        labels();
        int[][] grid = { { 1, 2, 3 }, null, { 4, -1, 9 }, { 5, 2000, 6 }, { 7 } };
        System.out.println("search: " + search(grid, 3) + " " + search(grid, 9) + " " + search(grid, 5) + " " + search(grid, 7));
        System.out.println("endless: " + endless() + " " + endlessFor(40) + " " + endlessDo(3));
        scopes();
        System.out.println("primes: " + primes(50));
        System.out.println("others: " + collatz(27) + " " + gcd(1071, 462) + " " + ackermann(2, 3) + " " + hanoi(3, 'a', 'c', 'b'));
    }
}
