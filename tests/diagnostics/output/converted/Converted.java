class Converted {
    int größe = "€" + missing;
}
