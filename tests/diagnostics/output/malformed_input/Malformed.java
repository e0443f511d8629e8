class Malformed {
    String s = "ÿ";
}
