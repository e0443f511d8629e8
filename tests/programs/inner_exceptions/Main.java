/** What initializers and constructors of anonymous classes throw; classes in catch and finally. */
public class Main {
    static String log = "";
    static class Ex extends Exception {
        Ex(String s) { super(s); }
    }
    static abstract class Risky {
        Risky(int n) throws Ex {
            if (n > 1) throw new Ex("n" + n);
        }
        Risky() {}
        abstract int v() throws Ex;
    }
    static int run(final int n) {
        try {
            return new Risky(n) {
                {
                    log += "i";
                    if (n == 1) throw new Ex("init");
                }
                int v() throws Ex {
                    if (n == 0) throw new Ex("v");
                    return n;
                }
            }.v();
        } catch (final Ex e) {
            Object o = new Object() {
                { log += e.getMessage(); }
            };
            try {
                throw new RuntimeException() {
                    public String getMessage() {
                        return "rt" + e.getMessage() + n;
                    }
                };
            } catch (RuntimeException r) {
                log += r.getMessage();
            } finally {
                new Object() {
                    void go() {
                        log += "f" + n;
                    }
                }.go();
            }
            return -1;
        } finally {
            final String at = "[" + log.length() + "]";
            class Fin {
                Fin() { log += at; }
            }
            new Fin();
        }
    }
    static Object deep() {
        return new Object() {
            int base = 2;
            Object inner;
            {
                final int z = 3;
                class Q {
                    int g() { return z * base; }
                }
                inner = new Q() {
                    int g() {
                        return super.g() + z;
                    }
                    public String toString() {
                        return "Q" + g();
                    }
                };
            }
            public String toString() {
                return inner.toString() + base;
            }
        };
    }
    public static void main(String[] a) {
        System.out.println(run(-1) + " " + run(0) + " " + run(1) + " " + run(2) + log);
        System.out.println(deep());
    }
}
