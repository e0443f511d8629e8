package far;

public class Upper extends Order.Part {
    static class Low { int low = 1; }
}

class Lower {
    Upper upper;
    Upper.Low made() { return new Upper.Low(); }
}
