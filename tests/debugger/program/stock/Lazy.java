package stock;

/** Nothing but an expression ever uses it. */
class Lazy {
    static int started = ++Main.starts;
}
