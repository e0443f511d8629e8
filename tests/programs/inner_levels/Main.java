/** A local class inside an anonymous class inside a member class, each using all levels; shadowed names at each. */
public class Main {
    interface Maker {
        Object make(int n);
    }

    private String x = "main.x";
    protected String y = "main.y";
    static String z = "main.z";

    class Member {
        private String x = "member.x";
        String w = "member.w";

        Object run(final String p, final int level) {
            final String q = "q" + level;
            return new Maker() {
                private String x = "anonymous.x";
                private int count = level;

                public Object make(final int n) {
                    final String r = p + n;
                    class Local {
                        private String x = "local.x";

                        class Bottom {
                            String x = "bottom.x";

                            public String toString() {
                                String w = "w";
                                count += n;
                                return x + " " + Local.this.x + " " + Member.this.x + " " + Main.this.x + " " + y + " "
                                    + z + " " + w + " " + Member.this.w + " " + p + q + r + level + n + count;
                            }
                        }

                        Bottom bottom() { return new Bottom(); }
                    }
                    return new Local().bottom() + "|" + new Local().new Bottom() + "|" + x;
                }
            }.make(level + 1);
        }
    }

    static class Shadow {
        int v = 1;

        class One {
            int v = 2;

            class Two extends One {
                int v = 3;

                int sum(int v) {
                    int total = v;
                    total = total * 10 + this.v;
                    total = total * 10 + super.v;
                    total = total * 10 + One.this.v;
                    total = total * 10 + Shadow.this.v;
                    total = total * 10 + ((One) this).v;
                    {
                        final int v2 = v;
                        total = total * 10 + new Object() {
                            int v = 5;

                            int get() { return v + v2 + Two.this.v; }
                        }.get();
                    }
                    return total;
                }
            }
        }

        int v() { return v; }
    }

    // A method of an inner class hides those of that name around it, whatever their parameters; a type hides types.
    static String f(String s) { return "outer.f " + s; }

    static class T {
        public String toString() { return "outer T"; }
    }

    class Hiding {
        String f(Object o) { return "inner.f " + o; }

        class T {
            public String toString() { return "inner T"; }
        }

        String run() { return f("s") + " " + new T() + " " + new Main.T() + " " + Main.f("s"); }
    }

    public static void main(String[] args) {
        Main main = new Main();
        System.out.println(main.new Member().run("p", 7));
        Shadow shadow = new Shadow();
        Shadow.One one = shadow.new One();
        one.v = 6;
        System.out.println(one.new Two().sum(4));
        System.out.println(main.new Hiding().run());
    }
}
