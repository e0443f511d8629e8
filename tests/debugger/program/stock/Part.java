package stock;

import base.Thing;

class Part extends Thing implements Limits {
    static final int KIND = 7;
    static double rate = 2.5;

    /** A number of its own: that of Thing is private. */
    private int serial = 100;
    int count;
    Part next;
    Part[] parts = new Part[2];

    Part(String label, int count) {
        super(label);
        this.count = count;
    }

    int twice() {
        int half = count;
        return half + count;
    }

    class Clerk {
        int count = 1;

        int take(int wanted) {
            count += wanted;
            return serial + wanted;
        }
    }
}
