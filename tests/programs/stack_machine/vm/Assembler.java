package vm;

import java.util.Enumeration;
import java.util.Hashtable;
import java.util.StringTokenizer;

/** Text to bytes, with labels that may be used before they stand. */
public class Assembler implements Op {
    private static final Hashtable CODES = new Hashtable();

    static {
        for (int i = NAMES.length; --i >= 0; ) CODES.put(NAMES[i], new Integer(i));
    }

    private byte[] code = new byte[16];
    private int length;
    private final Hashtable labels = new Hashtable(), fixups = new Hashtable();

    private void emit(int b) {
        if (length == code.length) {
            byte[] old = code;
            code = new byte[length << 1];
            System.arraycopy(old, 0, code, 0, length);
        }
        code[length++] = (byte) b;
    }

    private void emit(int value, int bytes) {
        for (int shift = (bytes - 1) * 8; shift >= 0; shift -= 8) emit(value >>> shift);
    }

    public byte[] assemble(String source) throws AssemblyException {
        int number = 0;
        for (StringTokenizer lines = new StringTokenizer(source, "\n;", true); lines.hasMoreTokens(); ) {
            String line = lines.nextToken();
            if (line.equals("\n")) {
                number++;
                continue;
            }
            if (line.equals(";")) continue;
            StringTokenizer words = new StringTokenizer(line);
            while (words.hasMoreTokens()) {
                String w = words.nextToken();
                if (w.charAt(0) == '#') break;
                if (w.endsWith(":")) {
                    if (labels.put(w.substring(0, w.length() - 1), new Integer(length)) != null) throw new AssemblyException("label " + w + " twice", number);
                    continue;
                }
                Integer op = (Integer) CODES.get(w);
                if (op == null) throw new AssemblyException("unknown " + w, number);
                emit(op.intValue());
                int operands = OPERANDS[op.intValue()];
                if (operands == 0) continue;
                if (!words.hasMoreTokens()) throw new AssemblyException(w + " without operand", number);
                String operand = words.nextToken();
                switch (op.byteValue()) {
                    case PUSH:
                        emit(operand.charAt(0) == '\'' ? operand.charAt(1) : Integer.parseInt(operand), operands);
                        break;
                    case LOAD: case STORE: case ARG:
                        emit(Integer.parseInt(operand));
                        break;
                    case CALL:
                        emit(Integer.parseInt(words.nextToken()));
                    default:
                        fixups.put(new Integer(length), operand);
                        emit(0, 2);
                }
            }
        }
        for (Enumeration e = fixups.keys(); e.hasMoreElements(); ) {
            Integer at = (Integer) e.nextElement(), target = (Integer) labels.get(fixups.get(at));
            if (target == null) throw new AssemblyException("no label " + fixups.get(at), number);
            code[at.intValue()] = (byte) (target.intValue() >> 8);
            code[at.intValue() + 1] = target.byteValue();
        }
        byte[] exact = new byte[length];
        System.arraycopy(code, 0, exact, 0, exact.length);
        return exact;
    }

    public static String list(byte[] code) {
        StringBuffer s = new StringBuffer();
        for (int pc = 0; pc < code.length; ) {
            int op = code[pc];
            s.append(pc).append(' ').append(NAMES[op]);
            int n = OPERANDS[op], value = 0;
            for (pc++; n > 0; n--) value = value << 8 | code[pc++] & 0xff;
            if (OPERANDS[op] != 0) s.append(' ').append(value);
            s.append(pc < code.length ? ", " : "\n");
        }
        return s.toString();
    }
}
