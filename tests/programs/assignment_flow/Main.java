/** Variables that get their value on every path, by the rules of definite assignment. */
public class Main {
    static int calls;

    static int f(int i) {
        calls++;
        return i;
    }

    static int branches(int n) {
        int x;
        if (n > 0) x = 1;
        else if (n == 0) x = 2;
        else { x = 3; }
        int y;
        if (n > 5) y = 10; else throw new IllegalArgumentException("small");
        final int z;
        if (x == 1) { z = 100; } else { z = 200; }
        return x + y + z;
    }

    static int conditions(int a, int b) {
        int x, y, z, w;
        if (a > 0 && (x = f(b)) > 0) return x;
        if (a < 0 || (y = f(b)) < 0) y = -1; else y += 100;
        if (!(a > 0 && (z = b) > 0)) z = 5; else z *= 2;
        boolean p;
        if ((p = a == b) && p) w = 1; else w = p ? 2 : 3;
        int k;
        if (a == 0 ? (k = 1) > 0 : (k = b) < 0) return k + y;
        return y + z * 1000 + w * 100000 + k;
    }

    static int logical(boolean a, boolean b) {
        int x;
        if (a && b && (x = 3) > 0 && x < 5) return x;
        if (!a || !b || (x = 4) == 4) x = 6;
        int y;
        boolean r = a & (y = 7) > 0 | b;
        int z;
        while (!(a || (z = 8) > 9)) { return x + y + z; }
        return r ? x * 10 + y : 0;
    }

    static int loops(int n) {
        int x;
        while (true) {
            if (n > 10) { x = n; break; }
            n += 3;
        }
        int y;
        for (;;) {
            y = n * 2;
            if (y > 20) break;
            n++;
        }
        int z;
        do { z = n--; } while (z > 5);
        int u;
        for (u = 0; u < 3; u++) ;
        int v;
        for (int i = 0; ; i++) { if (i == 4) { v = i; break; } }
        int w;
        boolean more = true;
        while (more && (w = n++) < 8) more = w < 6;
        return x * 10000 + y * 100 + z * 10 + u + v;
    }

    static int switched(int n) {
        int x;
        switch (n) {
            case 0: x = 1; break;
            case 1: x = 2;
            case 2: x = 3; break;
            case 3: return -1;
            default: x = 9;
        }
        int y;
        block: {
            if (x > 2) { y = x; break block; }
            y = 20;
        }
        return x * 100 + y;
    }

    static int tried(int n) {
        int x;
        try {
            x = 10 / n;
        } catch (ArithmeticException e) {
            x = -10;
        }
        int y;
        try { f(n); } finally { y = x + 1; }
        int z;
        try {
            if (n == 1) throw new RuntimeException();
            z = 1;
        } catch (RuntimeException e) {
            z = 2;
        } finally {
            y++;
        }
        int w;
        synchronized (Main.class) { w = y + z; }
        int v;
        try { v = w; } finally { calls++; }
        return v * 10 + z;
    }

    static int inDeclaration() {
        int x = (x = 2) * x + x;
        int a, b = a = 5, c = b++ + a--;
        int[] list = { a, a = 9, a }, more = list;
        final int last;
        last = list[1] + more[2];
        return x * 1000 + a + b + c + last;
    }

    static int constantConditions() {
        int x;
        if (true) x = 1;
        int y;
        while (true) { y = x + 1; if (y > 0) break; }
        final boolean debug = false;
        int z = y;
        if (debug) z = 1000;
        if (debug && z > 0) z++;
        if (!debug || z < 0) z += 2;
        for (; !debug; ) { z++; break; }
        return x + y * 10 + z * 100;
    }

    static int noReturnNeeded(int n) {
        while (true) {
            if (n > 100) return n;
            n *= 3;
        }
    }

    static int throwsAlways(int n) {
        try {
            if (n > 0) return n;
            throw new IllegalStateException();
        } catch (IllegalStateException e) {
            return -1;
        } finally {
            calls += 10;
        }
    }

    static int lateFinals(String[] names) {
        int total = 0;
        for (int i = 0; i < names.length; i++) {
            final int length;
            if (names[i] == null) length = 0;
            else length = names[i].length();
            final String label = "#" + length;
            total += length + label.length();
        }
        return total;
    }

    static int scopes(int n) {
        { int a = 1; n += a; }
        { final String a = "aa"; n += a.length(); }
        for (int a = 0; a < 2; a++) { int b = a; n += b; }
        for (long a = 5, b = 6; a < b; a++) n += (int) (a * b);
        try { int a = 3; n += a; } finally { char a = 'a'; n += a; }
        switch (n) { default: double a = 0.5; n += (int) (a * 4); }
        int a = 1000;
        return a + n;
    }

    final int blank, other;
    final int[] box;
    static final Object SHARED;

    static {
        Object o = null;
        try {
            o = new int[2];
        } finally {
            calls = 0;
        }
        SHARED = o;
    }

    Main(int n) {
        if (n > 0) {
            blank = n;
            other = blank + 1;
        } else {
            this.blank = -n;
            this.other = n - this.blank;
        }
        box = new int[] { blank, other };
        box[0]++;
    }

    Main() {
        this(41);
        box[1] = 0;
    }

    Main(boolean up) {
        box = null;
        blank = up ? 1 : 2;
        other = 5;
        if (up) return;
        calls++;
    }

    public static void main(String[] args) {
        System.out.println(((int[]) SHARED).length + " " + branches(7));
        try { branches(2); } catch (IllegalArgumentException e) { System.out.println(e.getMessage()); }
        System.out.println(conditions(1, 2) + " " + conditions(1, -2) + " " + conditions(-1, 3) + " " + conditions(0, 4) + " " + conditions(-3, -3) + " " + conditions(0, -1));
        System.out.println(logical(true, true) + " " + logical(true, false) + " " + logical(false, true) + " " + logical(false, false));
        System.out.println(loops(1) + " " + loops(50));
        System.out.println(switched(0) + " " + switched(1) + " " + switched(2) + " " + switched(3) + " " + switched(4));
        System.out.println(tried(0) + " " + tried(1) + " " + tried(5));
        System.out.println(inDeclaration() + " " + constantConditions() + " " + noReturnNeeded(5) + " " + throwsAlways(3) + throwsAlways(0));
        System.out.println(lateFinals(new String[] { "abc", null, "0123456789" }) + " " + scopes(0));
        Main a = new Main(5), b = new Main(-5), c = new Main(), d = new Main(true);
        System.out.println(a.box[0] + " " + a.other + " " + b.box[0] + " " + b.other + " " + c.blank + c.box[1] + " " + d.blank + d.other + " " + calls);
    }
}
