/** Literals and the letters of the source: number forms, escapes, Unicode escapes in odd places, comments. */
public class Main {
    static void integers() {
        System.out.println(0 + " " + 00 + " " + 0x0 + " " + 0X1f + " " + 017 + " " + 0777 + " " + 00000017 + " " + 0xFFFFFFFF + " " + 0x7fffffff + " "
            + 0x80000000 + " " + 037777777777 + " " + 017777777777 + " " + 020000000000 + " " + 2147483647 + " " + -2147483648 + " " + -  /* apart */ 2147483648);
        System.out.println(0L + " " + 0l + " " + 0xFFFFFFFFL + " " + 0xFFFFFFFFFFFFFFFFL + " " + 0x8000000000000000l + " " + 01777777777777777777777L + " "
            + 0777777777777777777777L + " " + 9223372036854775807L + " " + -9223372036854775808L + " " + 2147483648L + " " + -2147483648L + " " + 01L + 07L);
        System.out.println(0xCafeBabe + " " + 0xdead + " " + 0xE + 0xe1 + " " + 0xfL + 0xFL + " " + 0xd + 0xf);
        int i = 0x1E+1, j = 0xe-0xE;
        System.out.println(i + " " + j + " " + 1+-+1 + " " + (1- -1) + (i-- - --i) + (i+++j));
    }

    static void characters() {
        char[] cs = { 'a', '\'', '"', '\\', '\n', '\t', '\b', '\r', '\f', '\"', '\0', '\7', '\17', '\77', '\177', '\377', '\u0041', '\u00e9', '\uuuu20AC',
            ' ', '\uffff', '\u005c'', '\u005c\u005c', (char) 65, '\40', '/', '*' };
        for (int i = 0; i < cs.length; i++) System.out.print((int) cs[i] + " ");
        System.out.println();
    }

    static void show(String s) {
        System.out.print(s.length() + ":");
        for (int i = 0; i < s.length(); i++) {
            char c = s.charAt(i);
            if (c > ' ' && c < 127) System.out.print(c);
            else System.out.print("<" + (int) c + ">");
        }
        System.out.println();
    }

    static void strings() {
        show("");
        show("plain 'text' \"quoted\" back\\slash");
        show("\b\t\n\f\r\0\1\12\123\1234\3777\400");
        show("\u0041\u00df\u4e2d\uFFFD\ud83d\ude00\uuu0042");
        show("\\u0041 \\\u0041 \\\\u0041 \u005c\u005cu0041");
        show("ends here: \u0022 + /* no text */ \u0022!");
        show("a\u005cnb\u005ctc\u005c"d\u005c\u005c");
        show("\u0000\0\u007f\u0080\u07ff\u0800");
        show("/* no comment */ // nor this");
        show("tab	inside");
        show("\477" + "\47" + "7" + "\0001" + "\01");
    }

    static int \u0061bc = 3, d\u00e9j\u00e0 = 4, $ = 5, _ = 6, _$1 = 7, \u0391\u03b2 = 8, Abc = 9, ABC = 10;

    \u0073tatic \u0069nt twice(int x) {
        r\u0065turn x \u002a 2\u003b
    }

    static void names() {
        int \u0076\u0061\u006c = abc \u002b 1;
        val +\u003d 1;
        val = val <\u003c 2 \u003e\u003e 1;
        System.out.println(abc + " " + d\u00e9j\u00e0 + " " + $ + _ + _$1 + " " + \u0391\u03b2 + " " + \u0041bc + AB\u0043 + " " + val + twice(4) + \u0034\u0032);
        int longIdentifier_with_0123456789_$$_and_many_more_letters_abcdefghijklmnopqrstuvwxyz_ABCDEFGHIJKLMNOPQRSTUVWXYZ = 1;
        System.out.println(longIdentifier_with_0123456789_$$_and_many_more_letters_abcdefghijklmnopqrstuvwxyz_ABCDEFGHIJKLMNOPQRSTUVWXYZ);
        int classy = 1, ifx = 2, Class = 3, goTo = 4, nulls = 5, integer = 6, o = 7;
        System.out.println(classy + ifx + Class + goTo + nulls + integer + o);
    }

    static void comments() {
        int/**/a/***/=/* * / */1/****/;
        /* // */ a++; // /* a++;
        // a++; \u000a a += 10;
        /** a++; **/ a += /* nested /* is nothing */ 100;
        a = a /* x *// 2;
        //\
        a++;
        /* \u002a/ a += 1000; // */
        System.out.println(a);
	{	System.out.println("tabs");	}  { System.out.println("form feeds"); }
    }

    public static void main(String[] args) {
        integers();
        characters();
        strings();
        names();
        comments();
    }
}
// no line end after this
// the file ends in a comment