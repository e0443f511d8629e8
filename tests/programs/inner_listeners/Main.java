import java.util.Vector;

/** Listeners and visitors in the style of the time: interfaces, adapters, anonymous classes. */
public class Main {
    interface Listener {
        void fired(Event e);
    }

    static class Event {
        final Object source;
        final String what;
        private boolean consumed;

        Event(Object source, String what) {
            this.source = source;
            this.what = what;
        }

        void consume() { consumed = true; }
    }

    static abstract class Adapter implements Listener {
        public void fired(Event e) {
            if (e.what.equals("open")) opened(e);
            else if (e.what.equals("close")) closed(e);
            else other(e);
        }

        protected void opened(Event e) {}

        protected void closed(Event e) {}

        protected void other(Event e) { e.consume(); }
    }

    static class Button {
        private final Vector listeners = new Vector();
        private final String name;

        Button(String name) { this.name = name; }

        void add(Listener l) { listeners.addElement(l); }

        boolean fire(String what) {
            Event e = new Event(this, what);
            for (int i = 0; i < listeners.size() && !e.consumed; i++) ((Listener) listeners.elementAt(i)).fired(e);
            return e.consumed;
        }
    }

    private final StringBuffer log = new StringBuffer();
    private int opened, closed;

    private void log(String s) { log.append(s).append(' '); }

    private final Listener counter = new Listener() {
        private int events;

        public void fired(Event e) {
            events++;
            log(((Button) e.source).name + events);
        }
    };

    void wire(final Button ok, Button cancel, final int limit) {
        ok.add(counter);
        cancel.add(counter);
        ok.add(new Adapter() {
            protected void opened(Event e) {
                if (++opened > limit) e.consume();
                log("opened" + opened);
            }

            protected void closed(Event e) {
                closed += limit;
                log("closed" + closed);
            }
        });
        cancel.add(new Listener() {
            public void fired(final Event e) {
                Listener inner = new Listener() {
                    public void fired(Event again) {
                        log("inner:" + again.what + ":" + e.what + ":" + ok.name + limit);
                        if (again.what.length() > 20) return;
                        Listener self = this;
                        self.fired(new Event(e.source, again.what + again.what));
                    }
                };
                inner.fired(e);
            }
        });
    }

    // Visitors over a small expression tree.

    interface Visitor {
        Object number(int n);

        Object sum(Node a, Node b);

        Object product(Node a, Node b);
    }

    static abstract class Node {
        abstract Object accept(Visitor v);
    }

    static Node number(final int n) {
        return new Node() {
            Object accept(Visitor v) { return v.number(n); }
        };
    }

    static Node sum(final Node a, final Node b) {
        return new Node() {
            Object accept(Visitor v) { return v.sum(a, b); }
        };
    }

    static Node product(final Node a, final Node b) {
        return new Node() {
            Object accept(Visitor v) { return v.product(a, b); }
        };
    }

    static class Evaluator implements Visitor {
        public Object number(int n) { return new Integer(n); }

        public Object sum(Node a, Node b) {
            return new Integer(((Integer) a.accept(this)).intValue() + ((Integer) b.accept(this)).intValue());
        }

        public Object product(Node a, Node b) {
            return new Integer(((Integer) a.accept(this)).intValue() * ((Integer) b.accept(this)).intValue());
        }
    }

    static Visitor printer() {
        return new Visitor() {
            private int depth;

            public Object number(int n) { return "" + n; }

            public Object sum(Node a, Node b) { return wrap(a, " + ", b); }

            public Object product(Node a, Node b) { return wrap(a, " * ", b); }

            private String wrap(Node a, String op, Node b) {
                depth++;
                String s = a.accept(this) + op + b.accept(this);
                return --depth == 0 ? s : "(" + s + ")";
            }
        };
    }

    public static void main(String[] args) {
        Main main = new Main();
        Button ok = new Button("ok");
        Button cancel = new Button("cancel");
        main.wire(ok, cancel, 2);
        System.out.println(ok.fire("open") + " " + ok.fire("open") + " " + ok.fire("open") + " " + ok.fire("close"));
        System.out.println(cancel.fire("stop") + " " + ok.fire("bell"));
        System.out.println(main.log);
        Node tree = sum(number(2), product(sum(number(3), number(4)), number(5)));
        System.out.println(tree.accept(printer()) + " = " + tree.accept(new Evaluator()));
    }
}
