package debug;

import java.io.ByteArrayInputStream;
import java.io.ByteArrayOutputStream;
import java.io.DataInputStream;
import java.io.DataOutputStream;
import java.io.IOException;
import java.util.Hashtable;

/**
 * Loads the class of one expression. In it an object of the program is a handle, which the machine's own `checkcast` and
 * `instanceof` would take for what it is. So each of them becomes a call of the same length, of a method that is added for its
 * operand and asks `Casts`. The code keeps its size and its jumps, and the pool only grows:
 *
 *     checkcast Shape      -->  invokestatic cast$7
 *     static Object cast$7(Object value) { return Casts.cast(value, "Shape"); }
 */
class ExpressionLoader extends ClassLoader {
    private static final int UTF8 = 1, LONG = 5, DOUBLE = 6, CLASS = 7, STRING = 8, METHOD = 10, NAME_AND_TYPE = 12;
    private static final int ALOAD_0 = 42, ARETURN = 176, IRETURN = 172, INVOKESTATIC = 184, CHECKCAST = 192, INSTANCEOF = 193;
    private static final int LDC_W = 19, TABLESWITCH = 170, LOOKUPSWITCH = 171, WIDE = 196, IINC = 132;
    private static final int PRIVATE_STATIC = 0x0002 | 0x0008;

    /** The lengths of the instructions by opcode, in runs of opcode and length. */
    private static final int[] LENGTHS = {0, 1, 16, 2, 17, 3, 18, 2, 19, 3, 21, 2, 26, 1, 54, 2, 59, 1, 132, 3, 133, 1, 153, 3, 169,
        2, 170, 0, 172, 1, 178, 3, 185, 5, 187, 3, 188, 2, 189, 3, 190, 1, 192, 3, 194, 1, 196, 4, 197, 4, 198, 3, 200, 5};

    private final byte[] file;
    /** For each pool entry the text of a UTF8 entry, or an `Integer`, the index of its name, for a class. */
    private Object[] pool;
    private int poolEnd;
    private int poolSize;
    private int thisClass;
    private final ByteArrayOutputStream addedEntries = new ByteArrayOutputStream();
    private final ByteArrayOutputStream addedMethods = new ByteArrayOutputStream();
    private int addedMethodCount;
    /** The pool indices of the added methods by their names. */
    private final Hashtable methodsByName = new Hashtable();

    /** `file` is the class file, which is changed in place. */
    ExpressionLoader(byte[] file) {
        super(ExpressionLoader.class.getClassLoader());
        this.file = file;
    }

    Class load() throws IOException {
        byte[] changed = rewrite();
        return defineClass(null, changed, 0, changed.length);
    }

    private byte[] rewrite() throws IOException {
        readPool();
        thisClass = unsigned2(poolEnd + 2);
        int fields = poolEnd + 8 + 2 * unsigned2(poolEnd + 6);
        int methods = fields + 2;
        for (int i = unsigned2(fields); i > 0; i--) methods = skipMember(methods);
        int end = methods + 2;
        for (int i = unsigned2(methods); i > 0; i--) end = skipMember(end);

        ByteArrayOutputStream result = new ByteArrayOutputStream();
        DataOutputStream out = new DataOutputStream(result);
        out.write(file, 0, 8);
        out.writeShort(poolSize);
        out.write(file, 10, poolEnd - 10);
        addedEntries.writeTo(out);
        out.write(file, poolEnd, methods - poolEnd);
        out.writeShort(unsigned2(methods) + addedMethodCount);
        out.write(file, methods + 2, end - methods - 2);
        addedMethods.writeTo(out);
        out.write(file, end, file.length - end);
        return result.toByteArray();
    }

    private void readPool() throws IOException {
        poolSize = unsigned2(8);
        pool = new Object[poolSize];
        int at = 10;
        for (int i = 1; i < poolSize; i++) {
            int tag = file[at];
            switch (tag) {
            case UTF8:
                int length = 2 + unsigned2(at + 1);
                pool[i] = DataInputStream.readUTF(new DataInputStream(new ByteArrayInputStream(file, at + 1, length)));
                at += 1 + length;
                break;
            case CLASS:
                pool[i] = new Integer(unsigned2(at + 1));
                at += 3;
                break;
            case STRING:
                at += 3;
                break;
            case LONG:
            case DOUBLE:
                i++;
                at += 9;
                break;
            default:
                at += 5;
            }
        }
        poolEnd = at;
    }

    /** The end of a field or method; the code in it is changed. */
    private int skipMember(int at) throws IOException {
        int attributes = unsigned2(at + 6);
        at += 8;
        for (; attributes > 0; attributes--) {
            if (pool[unsigned2(at)].equals("Code")) changeCode(at + 14, at + 14 + unsigned4(at + 10));
            at += 6 + unsigned4(at + 2);
        }
        return at;
    }

    private void changeCode(int at, int end) throws IOException {
        for (; at < end; at += lengthAt(at)) {
            int opcode = file[at] & 0xFF;
            if (opcode != CHECKCAST && opcode != INSTANCEOF) continue;
            int method = replacement(opcode, unsigned2(at + 1));
            file[at] = (byte) INVOKESTATIC;
            file[at + 1] = (byte) (method >> 8);
            file[at + 2] = (byte) method;
        }
    }

    private int lengthAt(int at) {
        int opcode = file[at] & 0xFF;
        if (opcode == TABLESWITCH || opcode == LOOKUPSWITCH) throw new EvaluationFailure("a switch is no expression");
        if (opcode == WIDE && (file[at + 1] & 0xFF) == IINC) return 6;
        int run = 0;
        while (run + 2 < LENGTHS.length && LENGTHS[run + 2] <= opcode) run += 2;
        return LENGTHS[run + 1];
    }

    // ---- what is added

    /** The pool index of the method to call in place of the instruction. */
    private int replacement(int opcode, int classIndex) throws IOException {
        String name = (opcode == CHECKCAST ? "cast$" : "instanceof$") + classIndex;
        Integer known = (Integer) methodsByName.get(name);
        if (known != null) return known.intValue();
        String className = (String) pool[((Integer) pool[classIndex]).intValue()];
        int method = addMethod(opcode, name, className, classIndex);
        methodsByName.put(name, new Integer(method));
        return method;
    }

    private int addMethod(int opcode, String name, String className, int classIndex) throws IOException {
        boolean isCast = opcode == CHECKCAST;
        // A string is the one object that comes over as it is, and may be used as such behind the cast.
        boolean toString = isCast && className.equals("java/lang/String");
        String parameters = "(Ljava/lang/Object;";
        String type = parameters + (!isCast ? ")Z" : toString ? ")Ljava/lang/String;" : ")Ljava/lang/Object;");
        int asked = addReference(addEntry(CLASS, addText("debug/Casts")), isCast ? "cast" : "isInstance",
                                 parameters + "Ljava/lang/String;" + (isCast ? ")Ljava/lang/Object;" : ")Z"));

        ByteArrayOutputStream code = new ByteArrayOutputStream();
        DataOutputStream out = new DataOutputStream(code);
        out.writeByte(ALOAD_0);
        out.writeByte(LDC_W);
        out.writeShort(addEntry(STRING, addText(className)));
        out.writeByte(INVOKESTATIC);
        out.writeShort(asked);
        if (toString) {
            out.writeByte(CHECKCAST);
            out.writeShort(classIndex);
        }
        out.writeByte(isCast ? ARETURN : IRETURN);
        writeMethod(addText(name), addText(type), code);
        return addReference(thisClass, name, type);
    }

    private void writeMethod(int name, int type, ByteArrayOutputStream code) throws IOException {
        DataOutputStream out = new DataOutputStream(addedMethods);
        out.writeShort(PRIVATE_STATIC);
        out.writeShort(name);
        out.writeShort(type);
        out.writeShort(1); // its one attribute
        out.writeShort(addText("Code"));
        out.writeInt(12 + code.size());
        out.writeShort(2); // words of stack
        out.writeShort(1); // variable
        out.writeInt(code.size());
        code.writeTo(out);
        out.writeShort(0); // no handlers
        out.writeShort(0); // no attributes
        addedMethodCount++;
    }

    private int addReference(int classIndex, String name, String type) throws IOException {
        int nameAndType = addEntry(NAME_AND_TYPE, addText(name), addText(type));
        return addEntry(METHOD, classIndex, nameAndType);
    }

    private int addText(String text) throws IOException {
        DataOutputStream out = new DataOutputStream(addedEntries);
        out.writeByte(UTF8);
        out.writeUTF(text);
        return poolSize++;
    }

    private int addEntry(int tag, int index) throws IOException {
        DataOutputStream out = new DataOutputStream(addedEntries);
        out.writeByte(tag);
        out.writeShort(index);
        return poolSize++;
    }

    private int addEntry(int tag, int first, int second) throws IOException {
        int entry = addEntry(tag, first);
        new DataOutputStream(addedEntries).writeShort(second);
        return entry;
    }

    // ---- numbers of the file

    private int unsigned2(int at) {
        return (file[at] & 0xFF) << 8 | file[at + 1] & 0xFF;
    }

    private int unsigned4(int at) {
        return unsigned2(at) << 16 | unsigned2(at + 2);
    }
}
