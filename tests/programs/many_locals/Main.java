/** Runs the class that `generate` writes: many locals, constants, parameters, fields, cases and array elements. */
public class Main {
    static long sum(long[] values) {
        long s = 0;
        for (int i = 0; i < values.length; i++) s = s * 31 + values[i];
        return s;
    }

    public static void main(String[] args) {
        System.out.println(Wide.run(0));
        System.out.println(Wide.run(5));
        long[] out = new long[300];
        Wide.fillInts(out);
        System.out.println("ints " + out[0] + " " + out[299] + " " + sum(out));
        Wide.fillLongs(out);
        System.out.println("longs " + out[299] + " " + sum(out));
        Wide.fillFloats(out);
        Wide.fillDoubles(out);
        System.out.println("floats and doubles " + sum(out));
        Wide.fillStrings(out);
        System.out.println("strings " + sum(out));
        System.out.println("fields " + Wide.all() + " " + Wide.field0 + " " + Wide.field129);
        System.out.println("parameters " + Wide.callMany(true) + " " + Wide.callMany(false));
        System.out.println("long constant " + Wide.LONG.length() + " " + Wide.LONG.hashCode() + " " + (Wide.twice().length() - Wide.LONG.length()) + " " + Wide.LONG.endsWith("piece 399 of a long constant, with \u00e9 and \0; "));
        int total = 0;
        for (int i = 0; i < Wide.TABLE.length; i++) total += Wide.TABLE[i] * (i % 7);
        System.out.println("table " + Wide.TABLE.length + " " + Wide.TABLE[2999] + " " + total);
        System.out.println("cases " + Wide.name(0) + Wide.name(3) + Wide.name(2097) + Wide.name(1) + Wide.name(-3) + Wide.name(2100));
        System.out.println("deep " + Wide.deep(2));
    }
}
