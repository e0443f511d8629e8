package stock;

import java.util.Vector;

/** Does nothing useful, with variables of every kind to look at. */
public class Main {
    static int starts = 40;
    static boolean trace;

    private int depth = 3;
    private final String title = "main";

    private int locals(byte b, short s, char c, int i, long l, float f, double d, boolean flag) {
        int unset;
        int[] numbers = {3, 1, 4, 1, 5};
        int[][] grid = {{1, 2, 3}, null, {4, 5}};
        String text = "abc";
        String same = text;
        String none = null;
        depth++;
        unset = i + depth;
        return unset + numbers.length + grid.length + text.length() + (same == none ? 1 : 0);
    }

    private String objects(Object any, Object word, Part part, Object[] all) {
        part.next = new Part("nut", 5);
        part.next.parts[1] = new Part("pin", 9);
        Vector list = new Vector();
        list.addElement(word);
        Part gone = null;
        return part.next.parts[1].toString() + list + gone + all.length + any;
    }

    private int scopes(int outer) {
        int sum = 0;
        for (int i = 1; i < 3; i++) {
            String inner = "round " + i;
            sum += inner.length();
        }
        {
            long inner = outer;
            sum += inner;
        }
        return sum;
    }

    public static void main(String[] args) {
        System.out.println("begin " + args[0]);
        Main main = new Main();
        System.out.println(main.locals((byte) -8, (short) 300, 'x', 7, 1L << 33, 1.5f, 0.1, true));
        Part bolt = new Part("bolt", 2);
        Object[] all = {bolt, "word", new int[][] {{1}}};
        System.out.println(main.objects(bolt, "word", bolt, all));
        System.out.println(main.scopes(6));
        Part.Clerk clerk = bolt.new Clerk();
        System.out.println(bolt.twice() + clerk.take(4));
        System.out.println("end " + trace + Special.sample());
        System.exit(starts);
    }
}
