/** Functions made of anonymous classes, and local classes within methods of local classes. */
public class Main {
    interface Fn {
        int ap(int x);
    }
    static Fn add(final int n) {
        return new Fn() {
            public int ap(int x) {
                return x + n;
            }
        };
    }
    static Fn comp(final Fn f, final Fn g) {
        return new Fn() {
            public int ap(final int x) {
                return new Fn() {
                    public int ap(int y) {
                        return f.ap(g.ap(x)) + y;
                    }
                }.ap(0);
            }
        };
    }
    static Fn fact() {
        return new Fn() {
            public int ap(final int n) {
                final Fn self = this;
                if (n < 2) return 1;
                return n * new Fn() {
                    public int ap(int k) {
                        return self.ap(k - 1);
                    }
                }.ap(n);
            }
        };
    }
    static Fn[] many(final int[] arr) {
        Fn[] r = new Fn[arr.length];
        for (int i = 0; i < arr.length; i++) {
            final int j = i;
            class L implements Fn {
                int c = j;
                public int ap(int x) {
                    c++;
                    return arr[j] * x + c;
                }
            }
            r[i] = new L();
        }
        return r;
    }
    static int depth(final int a) {
        class A {
            int go(final int b) {
                class B {
                    int go(final int c) {
                        class C {
                            int go(final int d) {
                                return new Object() {
                                    int sum() {
                                        return a * 1000 + b * 100 + c * 10 + d + new C().base();
                                    }
                                }.sum();
                            }
                            int base() { return a + b + c; }
                        }
                        return new C().go(4) + new B().two();
                    }
                    int two() { return a + b; }
                }
                return new B().go(3) + new A().one();
            }
            int one() { return a; }
        }
        return new A().go(2);
    }
    public static void main(String[] x) {
        System.out.println(comp(add(3), comp(add(4), fact())).ap(5));
        Fn[] m = many(new int[] {1, 2, 3});
        System.out.println(m[0].ap(1) + m[1].ap(10) + m[2].ap(100) + m[2].ap(100));
        System.out.println(depth(1));
    }
}
