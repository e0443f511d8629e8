package stock;

interface Limits {
    long MOST = 1L << 40;
    int[] STEPS = {1, 2, 5};
}
