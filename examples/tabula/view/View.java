package tabula.view;

import tabula.util.Sequence;

/** Something that shows a part of a sheet as lines of text. */
public interface View {
    /** Adds the lines. */
    void paint(Canvas canvas);

    /** What a view paints on. */
    interface Canvas {
        void line(String text);
    }

    /** A view of several others, one below the other. */
    class Stack implements View {
        private final Sequence views = new Sequence();

        public Stack add(View view) {
            views.add(view);
            return this;
        }

        public void paint(final Canvas canvas) {
            views.each(new Sequence.Action() {
                public void on(Object view) {
                    ((View) view).paint(canvas);
                }
            });
        }
    }

    /** A title over a view. */
    class Titled implements View {
        private final String title;
        private final View view;

        public Titled(String title, View view) {
            this.title = title;
            this.view = view;
        }

        public void paint(final Canvas canvas) {
            canvas.line(title);
            view.paint(new Canvas() {
                public void line(String text) {
                    canvas.line("  " + text);
                }
            });
        }
    }
}
