/** Qualifiers of fields, calls and creations: evaluated once, before what stands behind them, and never null. */
public class Main {
    private static int secret = 3;
    private int inst = 4;
    D[] ds = { new D(), new D() };

    interface K {
        Object O = new Object() {
            int n = secret++;
            public String toString() { return "K" + n + secret; }
        };
        int[] A = { secret, new Object() { int q() { return secret * 2; } }.q() };
    }

    static class D implements Cloneable {
        private int v = 1;

        class In {
            Object cp() throws CloneNotSupportedException {
                v++;
                D d = (D) D.this.clone();
                d.v += 10;
                return d;
            }
            int fin() throws Throwable {
                D.this.finalize();
                return v;
            }
        }
    }

    D mk(int n) {
        inst += n;
        return ds[n];
    }

    static class User {
        int count;

        String go(Main m) {
            int i = 0;
            m.mk(0).v++;
            m.mk(1).v += m.mk(0).v = 7;
            m.ds[i++].v *= i + 1;
            (i > 0 ? m.ds[0] : m.ds[1]).v -= 2;
            m.ds[i].v <<= m.ds[0].v;
            return m.ds[0].v + " " + m.ds[1].v + " " + m.inst + i;
        }
        String assignToNothing() {
            D[] none = new D[1];
            try {
                none[0].v = ++count;
                return "assigned";
            } catch (NullPointerException e) {
                return "null after " + count;
            }
        }
    }

    // Creations. A sheet knows its book, a note its sheet.

    static class Book {
        static int bound;
        final int number;

        Book() { number = ++bound; }

        class Sheet {
            final int page;

            Sheet(int page) { this.page = page; }
            Sheet(Object blank) { this(blank == null ? 0 : -1); }
            public String toString() { return number + "." + page; }

            class Note {
                public String toString() { return "note on " + Sheet.this; }
            }
        }
        Sheet missing() { return null; }
    }

    static class Loose extends Book.Sheet {
        Loose(Book book, int page) { book.super(page); }
        Loose(Book book) { book.super(page()); }
    }

    static class Sticker extends Book.Sheet.Note {
        Sticker(Book.Sheet sheet) { sheet.super(); }
    }

    static int page() {
        System.out.print("page asked for; ");
        return 9;
    }

    static void creations() {
        final int k = 5;
        Book.Sheet sheet = new Book().new Sheet(3) {
            public String toString() { return "<" + super.toString() + ">"; }
        };
        System.out.println(sheet + " " + new Book().new Sheet(null) + " " + new Book().new Sheet("") + " " + Book.bound);
        Book.Sheet.Note note = new Book() {
            Object pad = new Object() { };
        }.new Sheet(k) {
            public String toString() { return super.toString() + k; }
        }.new Note() {
            public String toString() { return "my " + super.toString(); }
        };
        System.out.println(note + " " + new Loose(new Book(), 6) + " " + new Sticker(sheet) + " " + Book.bound);
    }

    // Without an outer instance there is no object, and no argument is evaluated.

    interface Attempt {
        Object make(Book none);
    }

    static void refused(Attempt attempt) {
        try {
            System.out.print("made " + attempt.make(null));
        } catch (NullPointerException e) {
            System.out.print("refused ");
        }
    }

    static void nothing() {
        refused(new Attempt() { public Object make(Book none) { return none.new Sheet(page()); } });
        refused(new Attempt() { public Object make(Book none) { return none.new Sheet(page()) { }; } });
        refused(new Attempt() { public Object make(Book none) { return new Book().missing().new Note(); } });
        refused(new Attempt() { public Object make(Book none) { return new Loose(none); } });
        refused(new Attempt() { public Object make(Book none) { return new Sticker(null); } });
        System.out.println();
    }

    public static void main(String[] a) throws Throwable {
        System.out.println(K.O + " " + K.A[0] + K.A[1] + secret);
        D d = new D();
        System.out.println(((D) d.new In().cp()).v + " " + d.v + d.new In().fin());
        User user = new User();
        System.out.println(user.go(new Main()) + " " + user.assignToNothing());
        creations();
        nothing();
    }
}
