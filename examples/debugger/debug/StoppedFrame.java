package debug;

import com.sun.jdi.AbsentInformationException;
import com.sun.jdi.ArrayReference;
import com.sun.jdi.ArrayType;
import com.sun.jdi.ClassNotLoadedException;
import com.sun.jdi.ClassType;
import com.sun.jdi.Field;
import com.sun.jdi.IncompatibleThreadStateException;
import com.sun.jdi.InvalidTypeException;
import com.sun.jdi.LocalVariable;
import com.sun.jdi.ObjectReference;
import com.sun.jdi.ReferenceType;
import com.sun.jdi.StackFrame;
import com.sun.jdi.StringReference;
import com.sun.jdi.ThreadReference;
import com.sun.jdi.Type;
import com.sun.jdi.Value;
import com.sun.jdi.VirtualMachine;
import java.util.Hashtable;
import java.util.IdentityHashMap;
import quillon.compiler.loader.IEvaluatorContext;

/**
 * The frame that an expression is evaluated in, and the factory of all other handles. One is made for each evaluation. While that
 * lasts, an object of the program is always the same handle and a string of it always the same `String`, so that an expression
 * can compare them with `==`.
 */
class StoppedFrame extends Handle {
    private final Session session;
    private final ThreadReference thread;
    private final int index;
    /** Handles and strings by their mirrors. */
    private final Hashtable objects = new Hashtable();
    /** The mirrors of the strings, by identity. */
    private final IdentityHashMap strings = new IdentityHashMap();

    /** `index` is 0 for the innermost frame of the thread. */
    StoppedFrame(Session session, ThreadReference thread, int index) {
        this.session = session;
        this.thread = thread;
        this.index = index;
    }

    StoppedFrame frame() {
        return this;
    }

    VirtualMachine machine() {
        return thread.virtualMachine();
    }

    /** Asked for anew each time, since a call into the program makes the mirrors of frames invalid. */
    StackFrame mirror() {
        try {
            return thread.frame(index);
        } catch (IncompatibleThreadStateException failure) {
            throw new EvaluationFailure("the program is not stopped");
        }
    }

    public IEvaluatorContext getField(String name) {
        if (name.equals("this")) return new This();
        LocalVariable variable = find(name);
        if (variable == null) throw new EvaluationFailure("variable " + name + " has no value here");
        return new Variable(variable);
    }

    private LocalVariable find(String name) {
        try {
            return mirror().visibleVariableByName(name);
        } catch (AbsentInformationException failure) {
            throw new EvaluationFailure("variable " + name + " is unknown: its class was compiled without -g");
        }
    }

    Value read() {
        throw new EvaluationFailure("a frame is no value");
    }

    void write(Value value) {
        throw new EvaluationFailure("a frame is no value");
    }

    // ---- what comes out of the program and goes into it

    /** Null, a string or a handle for a value of the program that is no primitive one, read from a place declared with `view`. */
    Object toObject(Value value, ReferenceType view) {
        if (value == null) return null;
        Object result = objects.get(value);
        if (result == null) objects.put(value, result = newObject(value));
        if (result instanceof Constant) ((Constant) result).view = view;
        return result;
    }

    private Object newObject(Value value) {
        if (!(value instanceof StringReference)) return new Constant(value);
        String string = ((StringReference) value).value();
        strings.put(string, value);
        return string;
    }

    /** The object is a `type` from here on, up to the next cast of it and the next time that it is read. */
    void cast(Handle object, ReferenceType type) {
        ((Constant) object).view = type;
    }

    /** The opposite. A string that is not from the program is made there, once. */
    Value toMirror(Object object) {
        if (object == null) return null;
        if (object instanceof Handle) return ((Handle) object).read();
        if (!(object instanceof String))
            throw new EvaluationFailure("an object that the expression made cannot be stored in the program");
        Value string = (Value) strings.get(object);
        if (string == null) {
            string = machine().mirrorOf((String) object);
            strings.put(object, string);
            objects.put(string, object);
        }
        return string;
    }

    /** What the object's own `toString` says, run by the program. */
    String textOf(ObjectReference object) {
        ClassType type = (ClassType) (object instanceof ArrayReference ? objectClass() : object.referenceType());
        Value text = session.call(thread, object, type.concreteMethodByName("toString", "()Ljava/lang/String;"), null);
        return text == null ? null : ((StringReference) text).value();
    }

    private ClassType objectClass() {
        return (ClassType) machine().classesByName("java.lang.Object").get(0);
    }

    // ---- the other handles

    Handle fieldOf(ObjectReference object, Field field) {
        return new InstanceField(object, field);
    }

    /** `type` is what the array is declared as. */
    Handle elementOf(ArrayReference array, ArrayType type, int position) {
        return new Element(array, type, position);
    }

    Handle lengthOf(ArrayReference array) {
        return new Constant(machine().mirrorOf(array.length()));
    }

    Handle staticField(String className, String name) {
        ReferenceType type = session.initializedClass(thread, className);
        Field field = type.fieldByName(name);
        if (field == null) throw new EvaluationFailure("no field " + name + " in " + className);
        return new StaticField(type, field);
    }

    private static ReferenceType classOrNull(Type type) {
        return type instanceof ReferenceType ? (ReferenceType) type : null;
    }

    /** A handle within this frame. */
    private abstract class Inside extends Handle {
        StoppedFrame frame() {
            return StoppedFrame.this;
        }
    }

    private class This extends Constant {
        This() {
            super(mirror().thisObject());
        }

        ReferenceType declaredType() {
            return mirror().location().declaringType();
        }
    }

    private class Variable extends Inside {
        private final LocalVariable variable;

        Variable(LocalVariable variable) {
            this.variable = variable;
        }

        Value read() {
            return mirror().getValue(variable);
        }

        void write(Value value) throws InvalidTypeException, ClassNotLoadedException {
            mirror().setValue(variable, value);
        }

        ReferenceType declaredType() {
            try {
                return classOrNull(variable.type());
            } catch (ClassNotLoadedException failure) {
                return null;
            }
        }
    }

    private class InstanceField extends Inside {
        private final ObjectReference object;
        protected final Field field;

        InstanceField(ObjectReference object, Field field) {
            this.object = object;
            this.field = field;
        }

        Value read() {
            return object.getValue(field);
        }

        void write(Value value) throws InvalidTypeException, ClassNotLoadedException {
            object.setValue(field, value);
        }

        ReferenceType declaredType() {
            try {
                return classOrNull(field.type());
            } catch (ClassNotLoadedException failure) {
                return null;
            }
        }
    }

    private class StaticField extends InstanceField {
        private final ReferenceType type;

        StaticField(ReferenceType type, Field field) {
            super(null, field);
            this.type = type;
        }

        Value read() {
            return type.getValue(field);
        }

        /** The fields of an interface are final, so only those of classes are ever assigned to. */
        void write(Value value) throws InvalidTypeException, ClassNotLoadedException {
            ((ClassType) field.declaringType()).setValue(field, value);
        }
    }

    private class Element extends Inside {
        private final ArrayReference array;
        private final ArrayType type;
        private final int position;

        Element(ArrayReference array, ArrayType type, int position) {
            this.array = array;
            this.type = type;
            this.position = position;
        }

        Value read() {
            return array.getValue(position);
        }

        void write(Value value) throws InvalidTypeException, ClassNotLoadedException {
            array.setValue(position, value);
        }

        ReferenceType declaredType() {
            try {
                return classOrNull(type.componentType());
            } catch (ClassNotLoadedException failure) {
                return null;
            }
        }
    }

    /**
     * A value itself: an object, an array, the length of an array. That of an object is one for all places that it is read from.
     * Since the code of an expression asks for a field as soon as it has the object, it is enough to know the last of them.
     */
    private class Constant extends Inside {
        private final Value value;
        private ReferenceType view;

        Constant(Value value) {
            this.value = value;
        }

        Value read() {
            return value;
        }

        void write(Value value) {
            throw new EvaluationFailure("this is no variable");
        }

        ReferenceType declaredType() {
            return view;
        }

        /** A concatenation takes an object's text from here. */
        public String toString() {
            return textOf((ObjectReference) value);
        }
    }
}
