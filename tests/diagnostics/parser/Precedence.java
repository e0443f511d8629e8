class Precedence {
    boolean cast(int a, int b, Object o, boolean c) {
        int i = (a) - 1;
        int j = (int) -1;
        int[] k = (int[]) o;
        boolean l = c == o instanceof Object;
        return l = c ? l : !c && (k = null) == null;
    }

    void f(int a) {
        (a[0]);
        //^ error 207: not a statement
        //^ error 367: array type required for [] but int found
    }
}
