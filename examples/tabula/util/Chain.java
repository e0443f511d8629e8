package tabula.util;

import java.util.Enumeration;
import java.util.NoSuchElementException;

/** A row with a position in it, as editors have: what lies before can be taken back, what lies behind done again. */
public class Chain {
    private class Link {
        private final Object element;
        private Link before, behind;

        Link(Object element) {
            this.element = element;
        }

        private void follow(Link other) {
            before = other;
            other.behind = this;
        }
    }

    private final Link start = new Link(null);
    private Link position = start;

    /** Puts the element behind the position, and the position behind it. What lay behind the position is gone. */
    public void add(Object element) {
        Link link = new Link(element);
        link.follow(position);
        position = link;
    }

    public boolean canGoBack() {
        return position != start;
    }

    public boolean canGoOn() {
        return position.behind != null;
    }

    /** Moves the position back over an element, and returns that. */
    public Object back() {
        if (!canGoBack()) throw new NoSuchElementException("nothing before");
        Object passed = position.element;
        position = position.before;
        return passed;
    }

    /** Moves the position on over an element, and returns that. */
    public Object on() {
        if (!canGoOn()) throw new NoSuchElementException("nothing behind");
        position = position.behind;
        return position.element;
    }

    private abstract class Walk implements Enumeration {
        Link next;

        Walk(Link first) {
            next = first;
        }

        abstract Link step(Link from);

        public boolean hasMoreElements() {
            return next != null && next != start;
        }

        public Object nextElement() {
            if (!hasMoreElements()) throw new NoSuchElementException();
            Object element = next.element;
            next = step(next);
            return element;
        }
    }

    /** What lies before the position, the nearest first. */
    public Enumeration before() {
        return new Walk(position) {
            Link step(Link from) {
                return from.before;
            }
        };
    }

    /** What lies behind the position, the nearest first. */
    public Enumeration behind() {
        return new Walk(position.behind) {
            Link step(Link from) {
                return from.behind;
            }
        };
    }

    public void clear() {
        start.behind = null;
        position = start;
    }
}
