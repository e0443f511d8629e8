/** Captured variables, outer members and anonymous classes among the arguments of this(...) and super(...). */
public class Main {
    interface Value {
        Object get();
    }

    static class Base {
        final Object shown;

        Base(Value v) { shown = v.get(); }

        Base(Object first, Value v) { shown = first + "&" + v.get(); }

        public String toString() { return kind() + "(" + shown + ")"; }

        String kind() { return "base"; }
    }

    private String secret = "secret";
    String open = "open";
    private static int made;

    private static String count(String s) { return s + ++made; }

    private String tell(String s) { return secret + "-" + s; }

    /** Top-level class of its own object: only parameters and static members can be used. */
    static class Plain extends Base {
        Plain(final String s) {
            super(new Value() {
                private int n = 2;

                public Object get() { return count(s) + n; }
            });
        }

        Plain(final int n, String s) { this(s + new Value() {
                public Object get() { return new Integer(n * made); }
            }.get());
        }
    }

    /** Members of the class around it, which is there already. */
    class Member extends Base {
        Member(final String s) {
            super(secret, new Value() {
                public Object get() { return tell(open) + s; }
            });
        }

        Member(int n) { this(Main.this.secret + open + n + tell("this")); }

        Member(final long n) {
            super(new Value() {
                public Object get() { return tell("local" + n) + Main.this.open + secret; }
            });
        }
    }

    class Level {
        private String level = "level";

        class Below extends Base {
            Below(final String s) {
                super(new Value() {
                    public Object get() { return secret + level + s; }
                });
            }

            Below() {
                this(new Value() {
                    public Object get() { return level + Level.this.level + Main.this.open; }
                }.get().toString());
            }
        }

        Base make(final int k) {
            final String q = "q" + k;
            class Local extends Base {
                private final String more;

                Local(final String s) {
                    super(q, new Value() {
                        public Object get() { return level + k + s + q + secret; }
                    });
                    more = s + k;
                }

                Local() { this(q + k + level); }

                public String toString() { return super.toString() + more + q; }
            }
            class Further extends Local {
                Further() { super(new Value() {
                        public Object get() { return "further" + k + open; }
                    }.get().toString());
                }
            }
            return new Base(new Local() + "/" + new Further(), new Value() {
                public Object get() { return new Local("again"); }
            }) {
                public String toString() { return super.toString() + k; }
            };
        }
    }

    /** A class whose constructor argument holds a class whose constructor argument holds a class. */
    class Nested extends Base {
        Nested(final int n) {
            super(new Base(new Value() {
                public Object get() {
                    return new Base(new Value() {
                        public Object get() { return "deep" + n; }
                    }) {
                        String wrap() { return "[" + shown + "]"; }
                    }.wrap();
                }
            }) {
                public String toString() { return shown + open + n; }
            }, new Value() {
                public Object get() { return "second"; }
            });
        }
    }

    static Base inStatic(final String s) {
        class Local extends Base {
            Local(final int n) {
                super(new Value() {
                    public Object get() { return s + n; }
                });
            }

            Local() { this(s.length()); }
        }
        return new Base(s, new Value() {
            public Object get() { return new Local() + "," + new Local(9); }
        });
    }

    public static void main(String[] args) {
        Main main = new Main();
        main.secret += 1;
        System.out.println(new Plain("plain"));
        System.out.println(new Plain(5, "other"));
        System.out.println(main.new Member("m"));
        System.out.println(main.new Member(3));
        System.out.println(main.new Member(4L));
        Level level = main.new Level();
        level.level = "LEVEL";
        System.out.println(level.new Below("b"));
        System.out.println(level.new Below());
        System.out.println(level.make(6));
        System.out.println(main.new Nested(8));
        System.out.println(inStatic("st"));
    }
}
