class Checked extends Exception {
    int code;

    Checked(int code) {
        super("code " + code);
        this.code = code;
    }
}

class Special extends Checked {
    Special() {
        super(42);
    }
}

/** try, catch and finally, and every way out of them. */
public class Main {
    static StringBuffer out = new StringBuffer();

    static void flush(String label) {
        System.out.println(label + ": " + out);
        out = new StringBuffer();
    }

    static void say(String s) {
        out.append(s).append(' ');
    }

    static int say(int i) {
        out.append(i).append(' ');
        return i;
    }

    static void fail(int kind) throws Checked {
        switch (kind) {
            case 1: throw new Checked(1);
            case 2: throw new Special();
            case 3: throw new IllegalStateException("state");
            case 4: throw new Error("fatal");
            case 5: int[] a = new int[kind - 5]; a[0]++;
        }
    }

    static void order(int kind) {
        try {
            say("try");
            fail(kind);
            say("done");
        } catch (Special e) {
            say("special " + e.code);
        } catch (Checked e) {
            say("checked " + e.getMessage());
        } catch (RuntimeException e) {
            say(e.getClass().getName());
        } catch (Throwable t) {
            say("throwable " + t.getMessage());
        } finally {
            say("finally");
        }
        say(";");
    }

    static int returnFromFinally() {
        try {
            throw new RuntimeException("lost");
        } finally {
            return 5;
        }
    }

    static int overriddenReturn(boolean b) {
        try {
            return say(1);
        } finally {
            if (b) return say(2);
            say("kept");
        }
    }

    static long wideReturn(int kind) throws Checked {
        long l = 1L << 40;
        double d = 0.5;
        try {
            fail(kind);
            return l + (long) (d * 2);
        } catch (RuntimeException e) {
            return -l;
        } finally {
            l = 0;
            d = 0;
            say("wide");
        }
    }

    static String nested(int kind) {
        String s = "";
        try {
            try {
                try {
                    s += "a";
                    fail(kind);
                    s += "b";
                } finally {
                    s += "c";
                    if (kind == 2) throw new IllegalStateException("replaced");
                    try {
                        s += "d";
                        if (kind == 3) throw new Checked(9);
                    } finally {
                        s += "e";
                    }
                }
                s += "f";
            } catch (IllegalStateException e) {
                s += "g" + e.getMessage();
            } finally {
                s += "h";
            }
            s += "i";
        } catch (Checked e) {
            s += "j" + e.code;
        } catch (Error e) {
            s += "k";
            return s;
        } finally {
            s += "l";
            say(s);
        }
        return s + "m";
    }

    static void jumps() {
        for (int i = 0; i < 4; i++) {
            try {
                if (i == 1) continue;
                if (i == 3) break;
                say("body" + i);
            } finally {
                say("fin" + i);
            }
        }
        flush("continue and break");
        outer:
        for (int i = 0; ; i++) {
            try {
                for (int j = 0; j < 3; j++) {
                    try {
                        if (i == 0 && j == 1) continue outer;
                        if (i == 1 && j == 2) break;
                        if (i == 2) break outer;
                        say(i * 10 + j);
                    } finally {
                        say("in");
                    }
                }
            } finally {
                say("out");
            }
            say("next");
        }
        flush("labels");
        int k = 0;
        loop:
        while (true) {
            try {
                k++;
                throw new Checked(k);
            } catch (Checked e) {
                if (k < 3) continue loop;
                if (k == 4) break;
                say("caught" + e.code);
            } finally {
                say("k" + k);
                if (k == 3) continue;
                if (k > 5) break loop;
            }
            say("never " + k);
        }
        flush("from catch and finally");
        done: {
            try {
                say("t");
                if (k > 0) break done;
                say("never");
            } finally {
                say("f");
            }
            say("never");
        }
        do {
            try { k--; if (k == 2) continue; say(k); } finally { say("d"); }
        } while (k > 0);
        flush("block and do");
        int n = 0;
        while (n < 5) {
            try {
                n++;
                if (n == 2) throw new RuntimeException();
                say(n);
            } catch (RuntimeException e) {
                say("x");
            } finally {
                for (int i = 0; i < 3; i++) {
                    if (i == 1) continue;
                    try { if (n == 4) break; say("-"); } finally { say("="); }
                }
            }
        }
        flush("loops in finally");
    }

    static Object lock = new Object();

    static int locked(int kind) throws Checked {
        synchronized (lock) {
            try {
                fail(kind);
                return 1;
            } catch (IllegalStateException e) {
                synchronized (lock) { return 2; }
            } finally {
                synchronized (e(lock)) { say("unlocking"); }
            }
        }
    }

    static Object e(Object o) {
        say("lock");
        return o;
    }

    static void emptyParts() throws Checked {
        try { } finally { say("1"); }
        try { } catch (RuntimeException e) { say("never"); }
        try { say("2"); } finally { }
        try { fail(3); } catch (RuntimeException e) { }
        try { fail(3); } catch (RuntimeException e) { } finally { }
        try { try { fail(3); } finally { } } catch (RuntimeException e) { say("3"); }
        try { ; } catch (Error e) { ; } finally { ; }
        try { { } } finally { { say("4"); } }
    }

    public static void main(String[] args) throws Exception {
        for (int kind = 0; kind <= 5; kind++) order(kind);
        flush("order");
        say(returnFromFinally());
        say(overriddenReturn(false));
        say(overriddenReturn(true));
        say(wideReturn(0) + " " + wideReturn(3));
        try { wideReturn(2); } catch (Special e) { say("special"); }
        flush("returns");
        for (int kind = 0; kind <= 4; kind++) say("-> " + nested(kind));
        flush("nested");
        jumps();
        say(locked(0));
        say(locked(3));
        try { locked(1); } catch (Checked e) { say(e.getMessage()); }
        flush("locked");
        emptyParts();
        flush("empty parts");
        try {
            throw (Checked) new Special();
        } catch (Special s) {
            try { throw s; } catch (Checked c) { say("" + (c == s)); }
        } catch (Checked never) {
            say("never");
        }
        Throwable held = null;
        try { throw null; } catch (NullPointerException n) { held = n; }
        say(held.getClass().getName());
        flush("thrown values");
    }
}
