class HiddenNames {
    private int shown;

    int access$171() { return 0; }
    //  ^ error 450: duplicate definition of method access$171() in class HiddenNames
    int access$171(int other) { return 0; }

    class Reader {
        int get() { return shown; }
        int access$171() { return 0; }
    }

    class Outer {
        int this0;
        //  ^ error 450: duplicate definition of variable this0 in class HiddenNames.Outer
        Outer(int this0) { }
        //        ^ error 450: duplicate definition of variable this0 in constructor HiddenNames$Outer(HiddenNames, int)
        int this0() {
            int this0 = 1;
            return this0;
        }
        void set(int this0) { }
    }

    static class NoOuter {
        int this0;
        NoOuter(int this0) { this.this0 = this0; }
    }

    void capture(final int x, final int y) {
        class Holder {
            int val$x;
            //  ^ error 450: duplicate definition of variable val$x in class HiddenNames.Holder
            Holder(int val$y) { }
            //         ^ error 450: duplicate definition of variable val$y in constructor HiddenNames$1$Holder(HiddenNames, int)
            int sum() { return x + y; }
        }
        class Fine {
            int val$y = x;
            int y() {
                int val$x = 1;
                return val$x;
            }
        }
    }
}
