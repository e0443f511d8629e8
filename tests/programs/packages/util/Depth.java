package util;

public class Depth {
    public static final int DEEPEST = Deep.LEVEL + util.Deep.LEVEL;
}

class Deep {
    static final int LEVEL = 21;
}
