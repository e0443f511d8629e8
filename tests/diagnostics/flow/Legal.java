// All of this is legal, and nothing is to be reported.
class Legal {
    final int given;

    Legal(int i) {
        if (i < 0) throw new IllegalArgumentException();
        given = i;
    }

    int leftByNobody() {
        while (true) {
            try { break; } finally { return 1; }
        }
    }

    int leftByNobodyLabelled(boolean c) {
        outer: for (;;) {
            try {
                try { if (c) break outer; } finally { c = !c; }
            } finally {
                throw new RuntimeException();
            }
        }
    }

    void inHeaders(boolean c) {
        final int x;
        for (x = 1; c; c = false) { for (final int y = x; c; c = y > 2) { } }
        for (final int z; ; ) { z = 1; break; }
    }

    int eachOutcome(boolean c, int k) {
        int x;
        if (c ? (x = k) > 0 : false) return x;
        int y;
        while (!(c && (y = k) > 1)) { c = true; k++; }
        return y;
    }

    void oneOfTheCases(int k) {
        final int x;
        switch (k) {
        case 1:
            x = 1; // and on
        case 2:
            break;
        case 3:
            x = 3;
        }
    }

    int allCases(int k) {
        final int x;
        switch (k) {
        case 1: x = 1; break;
        case 2: throw new RuntimeException();
        default: x = 3;
        }
        return x;
    }

    int everyWayIn(boolean c) {
        int x;
        try {
            if (c) throw new Exception();
            x = 1;
        } catch (RuntimeException e) {
            x = 2;
        } catch (Exception e) {
            return 3;
        }
        int y;
        do {
            y = x;
            if (c) continue;
        } while (y < 0);
        synchronized (this) { x = y; }
        return x;
    }

    static final int START;
    static {
        int k = 0;
        for (;;) {
            final int squared = k * k;
            if (squared > 10) break;
            k++;
        }
        START = k;
    }
}
