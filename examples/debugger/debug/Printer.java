package debug;

import com.sun.jdi.ArrayReference;
import com.sun.jdi.CharValue;
import com.sun.jdi.ClassType;
import com.sun.jdi.Field;
import com.sun.jdi.ObjectReference;
import com.sun.jdi.PrimitiveValue;
import com.sun.jdi.StringReference;
import com.sun.jdi.Value;
import java.util.Iterator;

/** Values as text: the type in front, and the fields or elements one level deep. */
class Printer {
    private static final int MOST_ELEMENTS = 20;

    private final StoppedFrame frame;

    Printer(StoppedFrame frame) {
        this.frame = frame;
    }

    /** The text for the value of an expression. */
    String describe(Object result) {
        if (result == null) return "null";
        if (result instanceof Handle) return describe(((Handle) result).read());
        if (result instanceof String) return "String " + quote((String) result, '"');
        if (result instanceof Character) return "char " + quote(result.toString(), '\'');
        if (result instanceof Boolean) return "boolean " + result;
        if (result instanceof Integer) return "int " + result;
        String name = result.getClass().getName();
        // What is left are the wrappers of the other numbers, and objects that the expression made.
        if (!(result instanceof Number) || !name.startsWith("java.lang.")) return name + " " + quote(result.toString(), '"');
        return name.substring("java.lang.".length()).toLowerCase() + " " + result;
    }

    /** The text for a value of the program. */
    String describe(Value value) {
        if (value == null) return "null";
        if (value instanceof PrimitiveValue) return value.type().name() + " " + brief(value);
        if (value instanceof StringReference) return "String " + brief(value);
        if (value instanceof ArrayReference) return brief(value) + " " + elements((ArrayReference) value);
        ObjectReference object = (ObjectReference) value;
        // The fields of the class library's objects are nobody's business; they say themselves what they are.
        if (object.referenceType().classLoader() == null) return brief(value) + " " + quote(frame.textOf(object), '"');
        StringBuffer text = new StringBuffer();
        appendFields(text, object, (ClassType) object.referenceType());
        return brief(value) + " {" + text + "}";
    }

    private String brief(Value value) {
        if (value == null) return "null";
        if (value instanceof CharValue) return quote(value.toString(), '\'');
        if (value instanceof PrimitiveValue) return value.toString();
        if (value instanceof StringReference) return quote(((StringReference) value).value(), '"');
        String type = value.type().name();
        if (!(value instanceof ArrayReference)) return type;
        int bracket = type.indexOf('[') + 1;
        return type.substring(0, bracket) + ((ArrayReference) value).length() + type.substring(bracket);
    }

    private String elements(ArrayReference array) {
        StringBuffer text = new StringBuffer("{");
        int shown = Math.min(array.length(), MOST_ELEMENTS);
        for (int i = 0; i < shown; i++) text.append(i == 0 ? "" : ", ").append(brief(array.getValue(i)));
        return text.append(shown < array.length() ? ", ...}" : "}").toString();
    }

    /** Inherited ones first, in the order of their declaration. */
    private void appendFields(StringBuffer text, ObjectReference object, ClassType type) {
        if (type.superclass() != null) appendFields(text, object, type.superclass());
        for (Iterator i = type.fields().iterator(); i.hasNext();) {
            Field field = (Field) i.next();
            if (field.isStatic()) continue;
            text.append(text.length() == 0 ? "" : ", ").append(field.name()).append(" = ");
            text.append(brief(object.getValue(field)));
        }
    }

    private static String quote(String text, char mark) {
        if (text == null) return "null";
        StringBuffer quoted = new StringBuffer().append(mark);
        for (int i = 0; i < text.length(); i++) {
            char c = text.charAt(i);
            if (c == '\n')
                quoted.append("\\n");
            else if (c == mark || c == '\\')
                quoted.append('\\').append(c);
            else if (c < ' ' || c > '~')
                quoted.append("\\u").append(Integer.toHexString(c + 0x10000).substring(1));
            else
                quoted.append(c);
        }
        return quoted.append(mark).toString();
    }
}
