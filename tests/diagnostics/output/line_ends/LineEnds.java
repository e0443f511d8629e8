class LineEnds {
    int a = b;    int c = d;
    int e = f;
}