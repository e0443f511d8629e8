class LateUser extends LateBase.Inherited {
}

class LateBase extends LateRoot {
}

class LateRoot {
    static class Kept { int size() { return new Other().size(); } }
    static class Inherited extends LateRoot {
        Base.Kind kind = new ANode.Kind();
        static class Deep {
            static int depth() { return 2; }
        }
    }
}
