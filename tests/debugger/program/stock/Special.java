package stock;

/** Hides a field of its superclass. */
class Special extends Part {
    int count = 50;

    Special(String label) {
        super(label, 4);
    }

    int both(Part other, Object any, Part[] many) {
        return count + other.count + many.length;
    }

    static int sample() {
        Special nail = new Special("nail");
        return nail.both(nail, nail, new Special[] {nail}) + nail.later(3);
    }

    private int later(final int delay) {
        class Later {
            int ticks() {
                return delay + count;
            }
        }
        Runnable counter = new Runnable() {
            public void run() {
                count++;
            }
        };
        counter.run();
        return new Later().ticks();
    }
}
