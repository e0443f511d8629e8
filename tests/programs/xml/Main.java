import java.io.*;
import java.util.*;

class XmlException extends Exception {
    XmlException(String s, int line, int column) {
        super(line + ":" + column + ": " + s);
    }
}

/** What the reader tells about what it sees. */
interface Handler {
    void start(String name, Hashtable attributes) throws XmlException;

    void text(String s);

    void end(String name) throws XmlException;
}

/** Elements, attributes, references, comments, character data sections and instructions, but no document types. */
class XmlReader {
    private static final int END = -1;
    private final PushbackReader in;
    private int line = 1, column;
    private Handler handler;
    private Stack open = new Stack();

    XmlReader(Reader r, Handler h) {
        in = new PushbackReader(r, 1);
        handler = h;
    }

    private int next() throws IOException {
        int c = in.read();
        if (c == '\n') {
            line++;
            column = 0;
        } else column++;
        return c;
    }

    private void back(int c) throws IOException {
        if (c == END) return;
        in.unread(c);
        column--;
    }

    private XmlException fault(String s) {
        return new XmlException(s, line, column);
    }

    void read() throws IOException, XmlException {
        StringBuffer text = new StringBuffer();
        int c;
        boolean any = false;
        while ((c = next()) != END) {
            switch (c) {
                case '<':
                    if (text.length() > 0) {
                        handler.text(text.toString());
                        text.setLength(0);
                    }
                    if ((c = next()) == '/') close();
                    else if (c == '!') { declaration(text); continue; }
                    else if (c == '?') skipTo("?>", null);
                    else {
                        if (open.empty() && any) throw fault("second root");
                        any = true;
                        back(c);
                        element();
                    }
                    break;
                case '&': text.append(reference()); break;
                case ' ': case '\t': case '\r': case '\n': if (open.empty()) break;
                default:
                    if (open.empty()) throw fault("text outside of the root");
                    text.append((char) c);
            }
        }
        if (!open.empty()) throw fault("<" + open.peek() + "> is open at the end");
        if (!any) throw fault("no root");
    }

    private void declaration(StringBuffer text) throws IOException, XmlException {
        int c = next();
        if (c == '-' && next() == '-') skipTo("-->", null);
        else if (c == '[') {
            String word = "CDATA[";
            for (int i = 0; i < word.length(); i++) if (next() != word.charAt(i)) throw fault("CDATA expected");
            skipTo("]]>", text);
        } else throw fault("unknown declaration");
    }

    /** Reads up to and over the end mark; what stands before goes to the buffer if there is one. */
    private void skipTo(String mark, StringBuffer into) throws IOException, XmlException {
        StringBuffer seen = new StringBuffer();
        for (int c; ; ) {
            if ((c = next()) == END) throw fault(mark + " expected");
            seen.append((char) c);
            int rest = seen.length() - mark.length();
            if (rest >= 0 && seen.toString().endsWith(mark)) {
                if (into != null) into.append(seen.toString().substring(0, rest));
                return;
            }
        }
    }

    private String name() throws IOException, XmlException {
        StringBuffer b = new StringBuffer();
        int c;
        while (Character.isLetterOrDigit((char) (c = next())) || c == '-' || c == '_' || c == ':') b.append((char) c);
        back(c);
        if (b.length() == 0) throw fault("name expected");
        return b.toString();
    }

    private int blanks() throws IOException {
        int c;
        do c = next(); while (c == ' ' || c == '\n' || c == '\t');
        return c;
    }

    private void element() throws IOException, XmlException {
        String name = name();
        Hashtable attributes = new Hashtable();
        for (;;) {
            int c = blanks();
            if (c == '>') {
                handler.start(name, attributes);
                open.push(name);
                return;
            } else if (c == '/') {
                if (next() != '>') throw fault("> expected");
                handler.start(name, attributes);
                handler.end(name);
                return;
            }
            back(c);
            String key = name();
            if (blanks() != '=') throw fault("= expected");
            int quote = blanks();
            if (quote != '"' && quote != '\'') throw fault("quote expected");
            StringBuffer value = new StringBuffer();
            while ((c = next()) != quote) {
                if (c == END || c == '<') throw fault("value of " + key + " does not end");
                if (c == '&') value.append(reference());
                else value.append((char) c);
            }
            if (attributes.put(key, value.toString()) != null) throw fault(key + " twice");
        }
    }

    private void close() throws IOException, XmlException {
        String name = name();
        if (blanks() != '>') throw fault("> expected");
        if (open.empty() || !open.peek().equals(name)) throw fault("</" + name + "> does not close " + (open.empty() ? "anything" : "<" + open.peek() + ">"));
        open.pop();
        handler.end(name);
    }

    private char reference() throws IOException, XmlException {
        String s = "";
        int c;
        while ((c = next()) != ';') {
            if (c == END || s.length() > 8) throw fault("&" + s + " without ;");
            s += (char) c;
        }
        if (s.equals("lt")) return '<';
        if (s.equals("gt")) return '>';
        if (s.equals("amp")) return '&';
        if (s.equals("quot")) return '"';
        if (s.equals("apos")) return '\'';
        if (s.startsWith("#"))
            try {
                return (char) (s.startsWith("#x") ? Integer.parseInt(s.substring(2), 16) : Integer.parseInt(s.substring(1)));
            } catch (NumberFormatException e) { }
        throw fault("unknown &" + s + ";");
    }
}

class Element {
    final String name;
    final Hashtable attributes;
    final Vector children = new Vector();
    Element parent;

    Element(String name, Hashtable attributes) {
        this.name = name;
        this.attributes = attributes;
    }

    String text() {
        StringBuffer b = new StringBuffer();
        for (Enumeration e = children.elements(); e.hasMoreElements(); ) {
            Object o = e.nextElement();
            b.append(o instanceof Element ? ((Element) o).text() : o);
        }
        return b.toString();
    }

    Element find(String path) {
        int slash = path.indexOf('/');
        String first = slash < 0 ? path : path.substring(0, slash);
        for (int i = 0; i < children.size(); i++) {
            if (!(children.elementAt(i) instanceof Element)) continue;
            Element e = (Element) children.elementAt(i);
            if (!e.name.equals(first)) continue;
            if (slash < 0) return e;
            Element deeper = e.find(path.substring(slash + 1));
            if (deeper != null) return deeper;
        }
        return null;
    }

    void write(StringBuffer b) {
        b.append('<').append(name);
        String[] keys = new String[attributes.size()];
        int n = 0;
        for (Enumeration e = attributes.keys(); e.hasMoreElements(); n++) keys[n] = (String) e.nextElement();
        for (int i = 1; i < n; i++)
            for (int k = i; k > 0 && keys[k].compareTo(keys[k - 1]) < 0; k--) { String t = keys[k]; keys[k] = keys[k - 1]; keys[k - 1] = t; }
        for (int i = 0; i < n; i++) b.append(' ').append(keys[i]).append("=\"").append(escape((String) attributes.get(keys[i]))).append('"');
        if (children.isEmpty()) {
            b.append("/>");
            return;
        }
        b.append('>');
        for (int i = 0; i < children.size(); i++) {
            Object o = children.elementAt(i);
            if (o instanceof Element) ((Element) o).write(b);
            else b.append(escape((String) o));
        }
        b.append("</").append(name).append('>');
    }

    static String escape(String s) {
        StringBuffer b = new StringBuffer();
        for (int i = 0; i < s.length(); i++) {
            char c = s.charAt(i);
            switch (c) {
                case '<': b.append("&lt;"); break;
                case '&': b.append("&amp;"); break;
                case '"': b.append("&quot;"); break;
                default: if (c < 127) b.append(c); else b.append("&#").append((int) c).append(';');
            }
        }
        return b.toString();
    }
}

class Builder implements Handler {
    Element root, current;
    int depth, deepest, elements;

    public void start(String name, Hashtable attributes) {
        Element e = new Element(name, attributes);
        if (current == null) root = e;
        else {
            e.parent = current;
            current.children.addElement(e);
        }
        current = e;
        elements++;
        if (++depth > deepest) deepest = depth;
    }

    public void text(String s) {
        current.children.addElement(s);
    }

    public void end(String name) {
        current = current.parent;
        --depth;
    }
}

public class Main {
    static Element parse(String s) throws XmlException {
        Builder b = new Builder();
        try {
            new XmlReader(new StringReader(s), b).read();
        } catch (IOException e) {
            throw new Error(e.toString());
        }
        System.out.println(b.elements + " elements, depth " + b.deepest);
        return b.root;
    }

    public static void main(String[] args) throws XmlException {
        Element e = parse("<?xml version='1.0'?>\n<!-- a library -->\n<library owner=\"A &amp; B\" open='yes'>\n <book id='1'><title>Types &lt;and&gt; trees</title><year>1996</year></book>"
            + "<book id='2'>\n<title>Sp\u00e4te &#65;nt&#x77;ort</title><note><![CDATA[<raw> & \"quoted\" ]]]]></note></book><empty /></library>\n");
        StringBuffer b = new StringBuffer();
        e.write(b);
        System.out.println(b);
        System.out.println(e.find("book/title").text() + "|" + e.find("book/note").text() + "|" + e.find("book/author") + "|" + e.attributes.get("owner") + "|"
            + ((Element) e.find("book/note").parent).attributes.get("id"));
        String again = b.toString();
        b.setLength(0);
        parse(again).write(b);
        System.out.println(b.toString().equals(again));
        String[] bad = { "", "text", "<a>", "<a></b>", "<a><b></a></b>", "</a>", "<a/><b/>", "<a x=1/>", "<a x='1' x='2'/>", "<a>&nope;</a>", "<a>&lt", "<a x='<'/>", "<!-- -", "<a><![CDAT[]]></a>", "<>",
            "<a\n  b='1'\n  c/>", "<a/>x", "<!DOCTYPE a>" };
        for (int i = 0; i < bad.length; i++)
            try {
                parse(bad[i]);
                System.out.println("accepted " + bad[i]);
            } catch (XmlException x) {
                System.out.println(x.getMessage());
            }
    }
}
