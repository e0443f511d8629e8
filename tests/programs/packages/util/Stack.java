package util;

/** Linked, unlike the library's. */
public class Stack {
    private Link top;

    public void push(Object o) {
        top = new Link(o, top);
    }

    public Object pop() {
        Object o = top.value;
        top = top.next;
        return o;
    }
}

class Link {
    final Object value;
    final Link next;

    Link(Object value, Link next) {
        this.value = value;
        this.next = next;
    }
}
