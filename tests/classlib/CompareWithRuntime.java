import java.io.DataInputStream;
import java.io.IOException;
import java.io.InputStream;
import java.lang.reflect.Constructor;
import java.lang.reflect.Executable;
import java.lang.reflect.Field;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.net.URI;
import java.nio.file.FileSystems;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayDeque;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.Deque;
import java.util.List;
import java.util.Map;
import java.util.Set;
import java.util.TreeMap;
import java.util.TreeSet;
import java.util.stream.Collectors;
import java.util.stream.Stream;
import java.util.zip.ZipEntry;
import java.util.zip.ZipFile;

/**
 * Holds a class library archive against the runtime that it was made from and that runs this: what is in the class
 * files must be what reflection says of the same classes, no more and no less. Prints each difference.
 */
public class CompareWithRuntime {
    static int differences;
    static final Set<Class<?>> expected = new java.util.HashSet<>();

    public static void main(String[] args) throws Exception {
        for (String name : classNames())
            drawIfRoot(Class.forName(name, false, ClassLoader.getPlatformClassLoader()));
        Map<String, Class<?>> byName = new TreeMap<>();
        for (Class<?> c : expected)
            byName.put(c.getName().replace('.', '/') + ".class", c);
        try (ZipFile zip = new ZipFile(args[0])) {
            Set<String> present = zip.stream().map(ZipEntry::getName).filter(name -> !name.endsWith(".dependency"))
                    .collect(Collectors.toCollection(TreeSet::new));
            compare("classes", byName.keySet(), present);
            for (var entry : byName.entrySet())
                if (present.contains(entry.getKey()))
                    compareClass(entry.getValue(), zip, entry.getKey());
        }
        System.out.println(byName.size() + " classes compared, " + differences + " differences");
        System.exit(differences == 0 ? 0 : 1);
    }

    static List<String> classNames() throws IOException {
        List<String> names = new ArrayList<>();
        Path modules = FileSystems.getFileSystem(URI.create("jrt:/")).getPath("/modules");
        try (Stream<Path> files = Files.walk(modules)) {
            for (Path file : (Iterable<Path>) files::iterator) {
                String path = file.toString();
                int start = path.indexOf('/', "/modules/".length()) + 1;
                boolean old = path.startsWith("java/", start) || path.startsWith("javax/", start);
                if (old && path.endsWith(".class") && !path.endsWith("-info.class"))
                    names.add(path.substring(start, path.length() - 6).replace('/', '.'));
            }
        }
        return names;
    }

    static boolean isVisible(int modifiers) {
        return Modifier.isPublic(modifiers) || Modifier.isProtected(modifiers);
    }

    static void drawIfRoot(Class<?> c) {
        if (Modifier.isPublic(c.getModifiers()) && c.getDeclaringClass() == null && !c.isSynthetic()
                && !c.isLocalClass() && !c.isAnonymousClass())
            draw(c);
    }

    static void draw(Class<?> c) {
        if (c == null || !expected.add(c))
            return;
        draw(c.getSuperclass());
        for (Class<?> i : c.getInterfaces())
            draw(i);
        draw(c.getDeclaringClass());
        for (Class<?> nested : c.getDeclaredClasses())
            if (isVisible(nested.getModifiers()))
                draw(nested);
    }

    static boolean isIn(Class<?>... types) {
        for (Class<?> type : types) {
            while (type.isArray())
                type = type.getComponentType();
            if (!type.isPrimitive() && !expected.contains(type))
                return false;
        }
        return true;
    }

    static boolean isOldDeprecation(Deprecated annotation) {
        return annotation != null && annotation.since().matches("(JDK)?1\\.(0(\\..*)?|1)");
    }

    static void compareClass(Class<?> c, ZipFile zip, String name) throws Exception {
        OldClass file;
        try (InputStream in = zip.getInputStream(zip.getEntry(name))) {
            file = new OldClass(in.readAllBytes());
        }
        boolean isInterface = c.isInterface();
        Set<String> wanted = new TreeSet<>();
        // Of a member class reflection tells how it was declared; the file itself says public for protected.
        int mask = Modifier.FINAL | Modifier.INTERFACE | Modifier.ABSTRACT | (c.isMemberClass() ? 0 : Modifier.PUBLIC);
        wanted.add("class " + (c.getModifiers() & mask) + (isInterface ? "" : " super") + " "
                + (isInterface ? "java/lang/Object" : c.getSuperclass() == null ? null : slashed(c.getSuperclass()))
                + " " + Arrays.stream(c.getInterfaces()).map(CompareWithRuntime::slashed).collect(Collectors.toList())
                + (isOldDeprecation(c.getAnnotation(Deprecated.class)) ? " deprecated" : ""));
        if (c.isMemberClass())
            wanted.add(nestedLine(c));
        for (Class<?> nested : c.getDeclaredClasses())
            if (expected.contains(nested))
                wanted.add(nestedLine(nested));
        for (Field f : c.getDeclaredFields())
            if (isVisible(f.getModifiers()) && !f.isSynthetic() && isIn(f.getType()))
                wanted.add("field " + (f.getModifiers() & 0xDF) + " " + f.getName() + " " + f.getType().descriptorString()
                        + (isOldDeprecation(f.getAnnotation(Deprecated.class)) ? " deprecated" : ""));
        for (Constructor<?> m : c.getDeclaredConstructors())
            addMethod(wanted, m, "<init>", void.class);
        for (Method m : c.getDeclaredMethods())
            if (!isInterface || Modifier.isAbstract(m.getModifiers()))
                addMethod(wanted, m, m.getName(), m.getReturnType());
        compare(name, wanted, file.lines(mask));
    }

    static void addMethod(Set<String> wanted, Executable m, String name, Class<?> result) {
        if (!isVisible(m.getModifiers()) || m.isSynthetic() || !isIn(m.getParameterTypes()) || !isIn(result)
                || !isIn(m.getExceptionTypes()))
            return;
        String parameters = Arrays.stream(m.getParameterTypes()).map(Class::descriptorString).collect(Collectors.joining());
        // The bits of bridge and varargs methods, and that of strict ones, were others in 1.1.
        wanted.add("method " + (m.getModifiers() & 0x53F & ~0xC0) + " " + name + " (" + parameters + ")"
                + result.descriptorString()
                + Arrays.stream(m.getExceptionTypes()).map(CompareWithRuntime::slashed).collect(Collectors.toList())
                + (isOldDeprecation(m.getAnnotation(Deprecated.class)) ? " deprecated" : ""));
    }

    static String nestedLine(Class<?> c) {
        return "nested " + slashed(c) + " in " + slashed(c.getDeclaringClass()) + " as " + c.getSimpleName() + " "
                + (c.getModifiers() & 0x61F);
    }

    static String slashed(Class<?> c) {
        return c.getName().replace('.', '/');
    }

    static void compare(String where, Set<String> wanted, Set<String> found) {
        for (String line : wanted)
            if (!found.contains(line))
                report(where + ": missing: " + line);
        for (String line : found)
            if (!wanted.contains(line))
                report(where + ": not wanted: " + line);
    }

    static void report(String line) {
        if (differences++ < 50)
            System.out.println(line);
    }

    /** Reads a class file of version 45.3 that has none but the attributes that the library uses. */
    static class OldClass {
        final DataInputStream in;
        final Object[] pool;
        final int flags;
        final String name, superclass;
        final List<String> interfaces = new ArrayList<>(), members = new ArrayList<>();
        final Set<String> nested = new TreeSet<>();
        boolean deprecated;

        OldClass(byte[] bytes) throws IOException {
            in = new DataInputStream(new java.io.ByteArrayInputStream(bytes));
            if (in.readInt() != 0xCAFEBABE || in.readInt() != (3 << 16 | 45))
                throw new IOException("not of version 45.3");
            pool = new Object[in.readUnsignedShort()];
            for (int i = 1; i < pool.length; i++) {
                int tag = in.readUnsignedByte();
                pool[i] = tag == 1 ? in.readUTF() : tag == 7 || tag == 8 ? (Object) in.readUnsignedShort() : null;
                in.skipBytes(tag == 3 || tag == 4 ? 4 : tag == 5 || tag == 6 ? 8 : 0);
                i += tag == 5 || tag == 6 ? 1 : 0;
            }
            flags = in.readUnsignedShort();
            name = className();
            superclass = className();
            for (int left = in.readUnsignedShort(); left > 0; left--)
                interfaces.add(className());
            readMembers("field ");
            readMembers("method ");
            for (int left = in.readUnsignedShort(); left > 0; left--)
                readClassAttribute((String) pool[in.readUnsignedShort()], in.readInt());
        }

        String className() throws IOException {
            int index = in.readUnsignedShort();
            return index == 0 ? null : (String) pool[(Integer) pool[index]];
        }

        void readMembers(String kind) throws IOException {
            for (int count = in.readUnsignedShort(); count > 0; count--) {
                String line = kind + in.readUnsignedShort() + " " + pool[in.readUnsignedShort()] + " "
                        + pool[in.readUnsignedShort()];
                List<String> exceptions = new ArrayList<>();
                String suffix = "";
                for (int left = in.readUnsignedShort(); left > 0; left--) {
                    String attribute = (String) pool[in.readUnsignedShort()];
                    int length = in.readInt();
                    if (attribute.equals("Exceptions"))
                        for (int more = in.readUnsignedShort(); more > 0; more--)
                            exceptions.add(className());
                    else if (attribute.equals("Deprecated"))
                        suffix = " deprecated";
                    else if (attribute.equals("ConstantValue"))
                        in.skipBytes(length);
                    else
                        throw new IOException("attribute " + attribute);
                }
                members.add(line + (kind.equals("method ") ? exceptions.toString() : "") + suffix);
            }
        }

        void readClassAttribute(String attribute, int length) throws IOException {
            if (attribute.equals("Deprecated"))
                deprecated = true;
            else if (!attribute.equals("InnerClasses"))
                throw new IOException("attribute " + attribute);
            else
                for (int left = in.readUnsignedShort(); left > 0; left--) {
                    String inner = className(), outer = className(), simple = (String) pool[in.readUnsignedShort()];
                    int innerFlags = in.readUnsignedShort();
                    if (inner.equals(name) || outer.equals(name))
                        nested.add("nested " + inner + " in " + outer + " as " + simple + " " + innerFlags);
                }
        }

        Set<String> lines(int mask) {
            Set<String> lines = new TreeSet<>(members);
            if (lines.size() != members.size())
                report(name + ": a member twice");
            lines.addAll(nested);
            lines.add("class " + (flags & mask) + ((flags & 0x20) != 0 ? " super" : "") + " " + superclass + " " + interfaces
                    + (deprecated ? " deprecated" : ""));
            return lines;
        }
    }
}
