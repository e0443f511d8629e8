import java.io.IOException;

interface Loud { void quiet() throws IOException; }
interface Quiet { void quiet(); }

/** What it has from both interfaces may throw what both may throw: nothing. */
abstract class ZBoth implements Loud, Quiet { }

class ZQuiet extends ZBoth {
    public void quiet() { System.out.println("quiet"); }
    static void use(ZBoth both) { both.quiet(); }
}
