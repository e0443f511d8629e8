/**
 * Classes within classes among the arguments of a constructor call, which use what is around the class whose object is
 * being made.
 */
public class Main {
    interface Value {
        Object get();
    }

    static class Base {
        final Object shown;

        Base(Value v) { shown = v.get(); }

        Base(Object first, Value v) { shown = first + "&" + v.get(); }

        public String toString() { return "(" + shown + ")"; }
    }

    private String secret = "secret";
    String open = "open";

    private String tell(String s) { return secret + "-" + s; }

    class Member extends Base {
        Member(final long n) {
            super(new Value() {
                public Object get() {
                    class Local {
                        String run() { return tell("local" + n) + Main.this.open; }
                    }
                    return new Object() {
                        public String toString() { return new Local().run() + secret; }
                    };
                }
            });
        }

        class Below extends Base {
            Below(final int n) {
                super(new Base(new Value() {
                    public Object get() { return tell("deep" + n) + Member.this; }
                }) {
                    public String toString() { return super.toString() + secret + Member.this.shown; }
                }, new Value() {
                    public Object get() {
                        return new Value() {
                            public Object get() { return open + Member.this + n; }
                        }.get();
                    }
                });
            }

            Below() {
                this(new Object() {
                    int count() { return new Object() {
                            int length() { return tell(Member.this.shown.toString()).length(); }
                        }.length();
                    }
                }.count());
            }
        }
    }

    /** The argument's class is itself one whose constructor call has a class for an argument. */
    static Base build(final String s) {
        class Local extends Base {
            Local(final int n) {
                super(new Base(new Value() {
                    public Object get() {
                        class Inner extends Base {
                            Inner(final char c) {
                                super(new Value() {
                                    public Object get() { return s + n + c; }
                                });
                            }
                        }
                        return new Inner('i');
                    }
                }), new Value() {
                    public Object get() { return n == 0 ? "end" : new Local(n - 1).toString(); }
                });
            }
        }
        return new Local(2);
    }

    public static void main(String[] args) {
        Main main = new Main();
        Member member = main.new Member(4L);
        System.out.println(member);
        main.open = "OPEN";
        System.out.println(member.new Below(7));
        System.out.println(member.new Below());
        System.out.println(build("s"));
    }
}
