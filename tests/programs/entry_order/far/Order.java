package far;

import far.Order.Part;
import far.Upper.*;

public class Order extends Lower {
    public static class Part {
        public int weight() { return 8; }
    }
    public String of(String s) { return s + new Part().weight() + new Low().low; }
}
