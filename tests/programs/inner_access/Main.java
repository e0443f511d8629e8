/** Private fields of every type, changed from inner classes by every operator, static and not. */
public class Main {
    private byte b = 1;
    private short s = 2;
    private char c = 'c';
    private int i = 4;
    private long l = 5;
    private float f = 6;
    private double d = 7;
    private boolean z = true;
    private String text = "t";
    private int[] array = {1, 2, 3};
    private static byte sb = 11;
    private static short ss = 12;
    private static char sc = 'C';
    private static int si = 14;
    private static long sl = 15;
    private static float sf = 16;
    private static double sd = 17;
    private static boolean sz;
    private static String stext;
    private Object object;

    String state() {
        return b + " " + s + " " + c + " " + i + " " + l + " " + f + " " + d + " " + z + " " + text + " " + array[1];
    }

    static String sharedState() {
        return sb + " " + ss + " " + sc + " " + si + " " + sl + " " + sf + " " + sd + " " + sz + " " + stext;
    }

    class Changer {
        void assign() {
            b = 10;
            s = 20;
            c = 'x';
            i = 'y';
            l = i;
            f = l;
            d = f + 0.5;
            z = !z;
            text = "a" + b;
            array = new int[] {7, 8, 9};
            object = text;
        }

        void compound() {
            b += 300;
            b -= 1;
            s *= 3;
            s /= 2.5;
            c += 1;
            c++;
            i += 1.5;
            i -= 2L;
            i <<= 3L;
            i %= 100;
            l += 1;
            l += 2.75f;
            l >>>= 1;
            l ^= 5;
            f += 1;
            f *= 2.5;
            d -= 'a';
            d /= 3;
            z &= true;
            z |= i > 5;
            z ^= false;
            text += 1;
            text += 'c';
            text += null;
            text += 1.5;
            text += "end" + object;
            array[1] += 5;
            array[0]++;
        }

        String values() {
            return "" + b++ + ++b + s-- + --s + c++ + ++c + i++ + ++i + l-- + --l + f++ + ++f + d-- + --d;
        }

        String nested() {
            return "" + (b = 3) + (s += 4) + (c = 'q') + (i = b = 9) + (l += i += 2) + (f = 1) + (d += f -= 3) + (text += "!")
                + (z = false) + (array = null);
        }
    }

    static class Shared {
        static void assign() {
            sb = -1;
            ss = (short) 70000;
            sc = 65;
            si = sb;
            sl = si * 3;
            sf = 0.25f;
            sd = sf;
            sz = true;
            stext = "shared";
        }

        void compound() {
            sb <<= 3;
            sb >>>= 1;
            ss |= 0x0f0f;
            sc -= 1;
            si *= 1.1;
            sl <<= 40;
            sf /= 0;
            sd %= 0.1;
            sz ^= sz;
            stext += new int[0].length;
            stext += this.hashCode() == hashCode();
        }

        String values() { return "" + sb++ + --sb + ss++ + sc-- + si++ + ++si + sl++ + sf++ + sd++ + sc; }
    }

    public static void main(String[] args) {
        Main main = new Main();
        Changer changer = main.new Changer();
        System.out.println(main.state());
        changer.assign();
        System.out.println(main.state());
        changer.compound();
        System.out.println(main.state());
        System.out.println(changer.values());
        System.out.println(changer.values());
        System.out.println(changer.nested());
        System.out.println(sharedState());
        Shared.assign();
        System.out.println(sharedState());
        Shared shared = new Shared();
        shared.compound();
        System.out.println(sharedState());
        System.out.println(shared.values());
        System.out.println(shared.values());
    }
}
