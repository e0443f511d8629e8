import java.io.IOException;
import java.io.PrintWriter;
import java.nio.ByteBuffer;
import java.nio.charset.CharacterCodingException;
import java.nio.charset.Charset;
import java.nio.charset.CodingErrorAction;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.zip.CRC32;

/**
 * Makes the data files of the source encodings from the character sets of the Java runtime that runs it. Needs the module
 * jdk.charsets. Run from the root of the tree:
 *
 * <pre>java tools/generate_encodings/GenerateEncodings.java</pre>
 *
 * It writes the tables of the single-byte sets, and for the tests a digest of every set: the CRC-32 of what its
 * well-formed sequences mean, in ascending order, as big-endian UTF-16 units, with U+FFFD for one that means nothing.
 */
public class GenerateEncodings {
    static final String[] SINGLE_BYTE = {"8859_2", "8859_3", "8859_4", "8859_5", "8859_6", "8859_7", "8859_8", "8859_9",
        "Cp1250", "Cp1251", "Cp1252", "Cp1253", "Cp1254", "Cp1255", "Cp1256", "Cp1257", "Cp1258", "Cp437", "Cp737",
        "Cp775", "Cp850", "Cp852", "Cp855", "Cp857", "Cp860", "Cp861", "Cp862", "Cp863", "Cp864", "Cp865", "Cp866",
        "Cp869", "Cp874", "MacArabic", "MacCentralEurope", "MacCroatian", "MacCyrillic", "MacDingbat", "MacGreek",
        "MacHebrew", "MacIceland", "MacRoman", "MacRomania", "MacSymbol", "MacThai", "MacTurkish", "MacUkraine"};

    /** A set of several bytes: the name here, the name in the runtime, and the well-formed sequences above ASCII. */
    record MultiByte(String name, String charset, List<byte[]> sequences) {}

    static final int[] ROW_OF_94 = {0xA1, 0xFE};

    static List<MultiByte> multiByteSets() {
        List<byte[]> eucJapan = pairs(ROW_OF_94, ROW_OF_94);
        eucJapan.addAll(product(new int[] {0x8E, 0x8E}, new int[] {0xA1, 0xDF}));
        eucJapan.addAll(product(new int[] {0x8F, 0x8F}, ROW_OF_94, ROW_OF_94));

        List<byte[]> shiftJapan = pairs(new int[] {0x81, 0x9F, 0xE0, 0xFC}, new int[] {0x40, 0x7E, 0x80, 0xFC});
        shiftJapan.addAll(product(new int[] {0xA1, 0xDF}));

        // Plane 1 in its long form is left out: the runtime's decoder has the short form only.
        List<byte[]> eucTaiwan = pairs(ROW_OF_94, ROW_OF_94);
        eucTaiwan.addAll(product(new int[] {0x8E, 0x8E}, new int[] {0xA2, 0xB0}, ROW_OF_94, ROW_OF_94));

        return List.of(new MultiByte("SJIS", "Shift_JIS", shiftJapan), new MultiByte("EUCJIS", "EUC-JP", eucJapan),
            new MultiByte("GB2312", "GB2312", pairs(ROW_OF_94, ROW_OF_94)),
            new MultiByte("KSC5601", "EUC-KR", pairs(ROW_OF_94, ROW_OF_94)),
            new MultiByte("Big5", "Big5", pairs(new int[] {0x81, 0xFE}, new int[] {0x40, 0x7E, 0xA1, 0xFE})),
            new MultiByte("CNS11643", "x-EUC-TW", eucTaiwan));
    }

    /** All pairs of a lead and a trail byte, each given by the ends of up to two ranges. */
    static List<byte[]> pairs(int[] leads, int[] trails) {
        List<byte[]> all = new ArrayList<>();
        for (int l = 0; l < leads.length; l += 2)
            for (int lead = leads[l]; lead <= leads[l + 1]; lead++)
                for (int t = 0; t < trails.length; t += 2)
                    all.addAll(product(new int[] {lead, lead}, new int[] {trails[t], trails[t + 1]}));
        return all;
    }

    /** All sequences with one byte from each range. */
    static List<byte[]> product(int[]... ranges) {
        List<byte[]> all = new ArrayList<>(List.of(new byte[0]));
        for (int[] range : ranges) {
            List<byte[]> longer = new ArrayList<>();
            for (byte[] start : all)
                for (int b = range[0]; b <= range[1]; b++) {
                    byte[] sequence = Arrays.copyOf(start, start.length + 1);
                    sequence[start.length] = (byte) b;
                    longer.add(sequence);
                }
            all = longer;
        }
        return all;
    }

    static String meaning(Charset set, byte[] sequence) {
        try {
            return set.newDecoder().onMalformedInput(CodingErrorAction.REPORT)
                .onUnmappableCharacter(CodingErrorAction.REPORT).decode(ByteBuffer.wrap(sequence)).toString();
        } catch (CharacterCodingException e) {
            return "\uFFFD";
        }
    }

    static char unit(Charset set, int b) {
        return meaning(set, new byte[] {(byte) b}).charAt(0);
    }

    static boolean isAsciiBelow(Charset set) {
        for (int b = 0; b < 0x80; b++)
            if (unit(set, b) != b) return false;
        return true;
    }

    static void writeTable(PrintWriter out, String name, Charset set, int from) {
        out.printf("{\"%s\",%n {", name);
        for (int b = from; b < from + 0x80; b++)
            out.printf("%s0x%04X%s", b > from && b % 16 == 0 ? "  " : "", (int) unit(set, b),
                b == from + 0x7F ? "}},\n" : b % 16 == 15 ? ",\n" : ", ");
    }

    static final String NOTICE = "// Made by tools/generate_encodings from the character sets of the Java runtime.\n";

    static PrintWriter open(String file) throws IOException {
        PrintWriter out = new PrintWriter(Files.newBufferedWriter(Path.of(file)));
        out.print(NOTICE);
        return out;
    }

    static void digest(PrintWriter out, String name, Charset set, List<byte[]> sequences) {
        CRC32 crc = new CRC32();
        for (byte[] sequence : sequences)
            for (char c : meaning(set, sequence).toCharArray()) {
                crc.update(c >> 8);
                crc.update(c & 0xFF);
            }
        out.printf("{\"%s\", 0x%08X},%n", name, crc.getValue());
    }

    public static void main(String[] arguments) throws IOException {
        try (PrintWriter high = open("src/store/single_byte_high.inc");
             PrintWriter low = open("src/store/single_byte_low.inc");
             PrintWriter digests = open("tests/unit/store/encoding_digests.inc")) {
            for (String name : SINGLE_BYTE) {
                Charset set = Charset.forName(name);
                writeTable(high, name, set, 0x80);
                if (!isAsciiBelow(set)) writeTable(low, name, set, 0);
                digest(digests, name, set, product(new int[] {0, 0xFF}));
            }
            for (MultiByte set : multiByteSets())
                digest(digests, set.name(), Charset.forName(set.charset()), set.sequences());
            japaneseEscapes(digests);
        }
    }

    /** ISO-2022-JP: Katakana, JIS-Roman and the two-byte set, each behind its escape sequence. */
    static void japaneseEscapes(PrintWriter out) {
        Charset set = Charset.forName("ISO-2022-JP");
        List<byte[]> sequences = new ArrayList<>(product(one(0x1B), one('('), one('I'), new int[] {0x21, 0x5F}));
        sequences.addAll(product(one(0x1B), one('('), one('J'), new int[] {0x21, 0x7E}));
        sequences.addAll(product(one(0x1B), one('$'), one('B'), new int[] {0x21, 0x7E}, new int[] {0x21, 0x7E}));
        digest(out, "JIS", set, sequences);
    }

    static int[] one(int b) {
        return new int[] {b, b};
    }
}
