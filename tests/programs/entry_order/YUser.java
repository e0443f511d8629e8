class YUser {
    XUser.Own first = new XUser.Own();
    static class In {
        static class Own { int value = 4; }
    }
}
