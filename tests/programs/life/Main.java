import java.util.*;

/** Cells that live by their neighbours' number. */
interface Rule {
    boolean lives(boolean alive, int neighbours);
}

class Conway implements Rule {
    public boolean lives(boolean alive, int neighbours) {
        return neighbours == 3 || alive && neighbours == 2;
    }
}

/** Born on and surviving on any numbers, as in "B36/S23". */
class Notation implements Rule {
    private int born, survives;

    Notation(String s) {
        boolean second = false;
        for (int i = 0; i < s.length(); i++) {
            char c = s.charAt(i);
            if (c == 'S') second = true;
            else if (c >= '0' & c <= '8')
                if (second) survives |= 1 << c - '0';
                else born |= 1 << c - '0';
        }
    }

    public boolean lives(boolean alive, int n) {
        return ((alive ? survives : born) >> n & 1) != 0;
    }
}

abstract class World {
    protected Rule rule = new Conway();
    int generation;

    abstract boolean get(int x, int y);

    abstract void set(int x, int y);

    abstract void step();

    abstract int population();

    void put(String[] pattern, int x0, int y0) {
        for (int y = 0; y < pattern.length; y++)
            for (int x = pattern[y].length(); x-- != 0; ) if (pattern[y].charAt(x) == '*') set(x + x0, y + y0);
    }

    final void run(int generations) {
        while (generations --> 0) step();
    }

    String show(int x0, int y0, int x1, int y1) {
        StringBuffer b = new StringBuffer();
        for (int y = y0; y < y1; y++) {
            for (int x = x0; x < x1; x++) b.append(get(x, y) ? '*' : '.');
            b.append(y == y1 - 1 ? ' ' : '/');
        }
        return b.toString();
    }
}

/** Rows of 64 cells whose edges meet. */
class Torus extends World {
    private long[] rows, next;

    Torus(int height) {
        rows = new long[height];
        next = new long[height];
    }

    boolean get(int x, int y) {
        return (rows[(y + rows.length) % rows.length] >>> x & 1L) != 0;
    }

    void set(int x, int y) {
        rows[y] |= 1L << x;
    }

    void step() {
        int h = rows.length;
        for (int y = 0; y < h; y++) {
            long line = 0;
            for (int x = 0; x < 64; x++) {
                int n = 0;
                for (int d = -1; d <= 1; d++) {
                    long row = rows[(y + d + h) % h];
                    n += (int) (row >>> x - 1 & 1) + (int) (row >>> x + 1 & 1);
                    if (d != 0) n += (int) (row >>> x & 1);
                }
                if (rule.lives((rows[y] & 1L << x) != 0, n)) line |= 1L << x;
            }
            next[y] = line;
        }
        long[] t = rows;
        rows = next;
        next = t;
        generation++;
    }

    int population() {
        int n = 0;
        for (int y = 0; y < rows.length; y++) for (long r = rows[y]; r != 0; r &= r - 1) n++;
        return n;
    }
}

final class Point {
    final int x, y;

    Point(int x, int y) {
        this.x = x;
        this.y = y;
    }

    public int hashCode() {
        return x * 31 ^ y;
    }

    public boolean equals(Object o) {
        if (!(o instanceof Point)) return false;
        Point p = (Point) o;
        return p.x == x && p.y == y;
    }
}

/** Without edges: only the living cells are kept. */
class Plane extends World {
    private Hashtable cells = new Hashtable();

    boolean get(int x, int y) {
        return cells.containsKey(new Point(x, y));
    }

    void set(int x, int y) {
        cells.put(new Point(x, y), Boolean.TRUE);
    }

    void step() {
        Hashtable counts = new Hashtable();
        for (Enumeration e = cells.keys(); e.hasMoreElements(); ) {
            Point p = (Point) e.nextElement();
            for (int dy = -1; dy < 2; ++dy)
                for (int dx = -1; dx < 2; ++dx) {
                    Point q = new Point(p.x + dx, p.y + dy);
                    int[] n = (int[]) counts.get(q);
                    if (n == null) counts.put(q, n = new int[1]);
                    if ((dx | dy) != 0) n[0]++;
                }
        }
        Hashtable born = new Hashtable();
        for (Enumeration e = counts.keys(); e.hasMoreElements(); ) {
            Object p = e.nextElement();
            if (rule.lives(cells.containsKey(p), ((int[]) counts.get(p))[0])) born.put(p, Boolean.TRUE);
        }
        cells = born;
        generation += 1;
    }

    int population() {
        return cells.size();
    }
}

public class Main {
    static final String[] GLIDER = { ".*.", "..*", "***" }, BLINKER = { "***" }, ACORN = { ".*.....", "...*...", "**..***" },
        GUN = { "........................*...........", "......................*.*...........", "............**......**............**", "...........*...*....**............**",
            "**........*.....*...**..............", "**........*...*.**....*.*...........", "..........*.....*.......*...........", "...........*...*....................", "............**......................" };

    public static void main(String[] args) {
        World[] worlds = { new Torus(64), new Plane() };
        for (int i = 0; i < worlds.length; i++) {
            World w = worlds[i];
            w.put(BLINKER, 1, 2);
            System.out.print(w.show(0, 0, 5, 5));
            w.run(1);
            System.out.print(w.show(0, 0, 5, 5));
            w.run(1);
            System.out.println(w.show(0, 0, 5, 5) + w.population());
            w.put(GLIDER, 10, 10);
            w.run(40);
            System.out.println(w.show(19, 19, 25, 25) + w.population() + " in " + w.generation);
            w.put(GUN, 20, 40);
            w.run(60);
            System.out.println(w.population() + " in " + w.generation);
        }
        World acorn = new Plane();
        acorn.put(ACORN, 0, 0);
        for (int i = 0; i < 5; i++) {
            acorn.run(20);
            System.out.print(acorn.population() + " ");
        }
        System.out.println();
        World high = new Plane();
        high.rule = new Notation("B36/S23");
        high.put(new String[] { "..***", ".*..*", "*...*", "*..*.", "***.." }, 0, 0);
        high.run(12);
        System.out.println("a replicator: " + high.population());
        World torus = new Torus(3);
        torus.put(GLIDER, 61, 0);
        torus.run(5);
        System.out.println(torus.population());
    }
}
