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
        return nail.both(nail, nail, new Special[] {nail});
    }
}
