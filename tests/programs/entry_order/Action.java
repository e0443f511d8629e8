interface Runs {
    void run();
    void stop();
}

/** Its abstract member class takes methods of an interface from here, also those that are declared after it. */
class Action {
    static abstract class Half extends Action implements Runs {
    }
    static class Both extends Half {
        public void stop() { System.out.println("stopped"); }
    }
    public void run() { System.out.println("runs"); }
    public void stop() { System.out.println("goes on"); }
}
