class Reachable {
    int f(boolean c) {
        if (c) return 1;
    }
  //^ error 466: method does not return a value
    int g() { while (true) { } }
    int h() { for (;;) { } }
    int i(int k) { switch (k) { default: return 1; } }
    int j() { throw new RuntimeException(); }
    int k(boolean c) { if (c) return 1; else return 2; }
    int l(boolean c) {
        for (;;) { if (c) break; }
    }
  //^ error 466: method does not return a value

    void warn(boolean c) {
        if (c) {
            return;
            warn(c);
          //^ warning 550: statement not reachable
            c = true;
          //^ warning 550: statement not reachable
        }
        if (false) warn(c);
        for (;;) { }
    }

    void after() {
        while (true) { }
        after();
      //^ warning 550: statement not reachable
    }

    void condition(boolean c) {
        do { return; } while (c);
        //                    ^ warning 550: statement not reachable
    }
}
