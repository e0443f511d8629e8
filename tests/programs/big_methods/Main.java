/** Runs the methods that `generate` writes, and checks them against the same computation in a loop. */
public class Main {
    static int filler(int x, int y, int from, int count) {
        for (int i = from; i < from + count; i++) x = x * 31 + (y ^ (i * 7919 % 30000 + 200));
        return x;
    }

    static int loop(int n, int y) {
        int x = 1;
        for (int i = 0; i < n && x != 0; i++) {
            if (y == 5) continue;
            if (y == 6) break;
            x = filler(x, y, 0, 1150);
            if (y == 7 & i > 0) break;
            x = filler(x, y, 0, 1150);
            y++;
        }
        return x + y;
    }

    static void check(String what, int got, int wanted) {
        System.out.println(what + " " + (got == wanted ? "right" : got + " but wanted " + wanted));
    }

    public static void main(String[] args) {
        check("branch skipped", Long.branch(true, 1), 2);
        check("branch by the second test", Long.branch(false, -1), 2);
        check("branch taken", Long.branch(false, 1), filler(1, 1, 0, 2300));
        check("loop never", Long.loop(0, 1), loop(0, 1));
        check("loop four times", Long.loop(4, 1), loop(4, 1));
        check("loop continues", Long.loop(4, 5), 6);
        check("loop breaks at once", Long.loop(4, 6), 7);
        check("loop breaks in the middle", Long.loop(9, 7), loop(9, 7));
        int x = filler(1, 9, 0, 2300);
        System.out.println("guarded " + Long.guarded(0, 9).equals("try " + x + " finally " + x));
        for (int kind = 1; kind <= 3; kind++) System.out.println("guarded " + kind + ": " + Long.guarded(kind, 9).equals(wanted(kind, x)));
        System.out.println("guarded 4: " + Long.guarded(4, 9));
        System.out.println("finally ran " + Long.total);
        int a = filler(5, 2, 0, 1200), b = filler(1, 2, 0, 1200);
        check("switch falls through", Math.abs(Long.switched(0, 2)), Math.abs(a));
        check("switch case", Math.abs(Long.switched(1, 2)), Math.abs(b));
        check("switch far case", Math.abs(Long.switched(100000, 2)), Math.abs(b + 3 > 0 ? b + 3 : b + 2));
        check("switch default", Long.switched(7, 2), 4);
        int[] none = { 0, 0, 0, 0 }, some = { 9, 2, 3, 0 }, stop = { 3, 5, 3, 0 };
        System.out.println("condition " + Long.condition(none) + none[0] + " " + Long.condition(some) + some[0] + some[1] + (some[3] == three()) + " " + Long.condition(stop) + stop[0]);
    }

    static int three() {
        int x = 1;
        for (int i = 0; i < 3; i++) x = filler(x, 2, 0, 2300);
        return x;
    }

    static String wanted(int kind, int x) {
        switch (kind) {
            case 1: return "try returned";
            case 2: return "try two finally try returned";
            default: return "try finally 1";
        }
    }
}
