import java.util.Vector;

class PatternException extends Exception {
    PatternException(String s, int at) {
        super(s + " at " + at);
    }
}

/** A state of the automaton: what it accepts and where it leads. */
class State {
    static final int SPLIT = -1, MATCH = -2, ANY = -3, SET = -4, START = -5, END = -6, OPEN = -7;
    final int kind;
    State out, other;
    boolean[] set;
    int group;
    int id;

    State(int kind) {
        this.kind = kind;
    }

    boolean accepts(char c) {
        switch (kind) {
            case ANY: return c != '\n';
            case SET: return set[c & 0xff];
            default: return kind == c;
        }
    }
}

/** A piece under construction: where it begins, and the states whose end is still loose. */
class Piece {
    final State start;
    final Vector loose = new Vector();

    Piece(State start) {
        this.start = start;
    }

    void join(State s) {
        for (int i = 0, n = loose.size(); i < n; i++) {
            State l = (State) loose.elementAt(i);
            if (l.out == null) l.out = s;
            else l.other = s;
        }
        loose.removeAllElements();
    }

    Piece add(Vector more) {
        for (int i = 0; i < more.size(); i++) loose.addElement(more.elementAt(i));
        return this;
    }
}

class Pattern {
    private final String text;
    private int at, states, groups;
    private final State first;

    Pattern(String text) throws PatternException {
        this.text = text;
        Piece p = alternatives();
        if (at < text.length()) throw fault("unexpected " + text.charAt(at));
        p.join(state(State.MATCH));
        first = p.start;
    }

    private PatternException fault(String s) {
        return new PatternException(s, at);
    }

    private State state(int kind) {
        State s = new State(kind);
        s.id = states++;
        return s;
    }

    private boolean more() {
        return at < text.length() && text.charAt(at) != '|' && text.charAt(at) != ')';
    }

    private boolean accept(char c) {
        boolean yes = at < text.length() && text.charAt(at) == c;
        if (yes) at++;
        return yes;
    }

    private Piece alternatives() throws PatternException {
        Piece p = sequence();
        while (accept('|')) {
            Piece q = sequence();
            State s = state(State.SPLIT);
            s.out = p.start;
            s.other = q.start;
            p = new Piece(s).add(p.loose).add(q.loose);
        }
        return p;
    }

    private Piece sequence() throws PatternException {
        if (!more()) {
            State s = state(State.SPLIT);
            Piece empty = new Piece(s);
            empty.loose.addElement(s);
            return empty;
        }
        Piece p = repeated();
        while (more()) {
            Piece q = repeated();
            p.join(q.start);
            p.add(q.loose);
        }
        return p;
    }

    private Piece repeated() throws PatternException {
        Piece p = atom();
        for (; more(); ) {
            char c = text.charAt(at);
            if (c != '*' && c != '+' && c != '?') break;
            at++;
            State s = state(State.SPLIT);
            s.out = p.start;
            switch (c) {
                case '*':
                    p.join(s);
                    p = new Piece(s);
                    break;
                case '+':
                    p.join(s);
                    p = new Piece(p.start);
                    break;
                case '?':
                    Vector loose = p.loose;
                    p = new Piece(s).add(loose);
            }
            p.loose.addElement(s);
        }
        return p;
    }

    private Piece atom() throws PatternException {
        char c = text.charAt(at++);
        State s;
        switch (c) {
            case '(': {
                int g = ++groups;
                Piece p = alternatives();
                if (!accept(')')) throw fault(") expected");
                State open = state(State.OPEN), close = state(State.OPEN);
                open.group = 2 * g;
                close.group = 2 * g + 1;
                open.out = p.start;
                p.join(close);
                Piece whole = new Piece(open);
                whole.loose.addElement(close);
                return whole;
            }
            case '.': s = state(State.ANY); break;
            case '^': s = state(State.START); break;
            case '$': s = state(State.END); break;
            case '[': s = set(); break;
            case '*': case '+': case '?': at--; throw fault("nothing to repeat");
            case '\\':
                if (at == text.length()) throw fault("\\ at the end");
                c = text.charAt(at++);
                if (c == 'd' || c == 'w') {
                    s = state(State.SET);
                    s.set = new boolean[256];
                    for (char k = 0; k < 128; k++) s.set[k] = k >= '0' && k <= '9' || c == 'w' && (Character.isLetter(k) || k == '_');
                    break;
                }
            default: s = state(c);
        }
        Piece p = new Piece(s);
        p.loose.addElement(s);
        return p;
    }

    private State set() throws PatternException {
        State s = state(State.SET);
        boolean not = accept('^');
        s.set = new boolean[256];
        for (boolean first = true; ; first = false) {
            if (at >= text.length()) throw fault("] expected");
            char c = text.charAt(at++);
            if (c == ']' && !first) break;
            char last = c;
            if (at + 1 < text.length() && text.charAt(at) == '-' && text.charAt(at + 1) != ']') {
                last = text.charAt(at + 1);
                at += 2;
                if (last < c) throw fault("range " + c + "-" + last);
            }
            for (; c <= last; c++) s.set[c & 255] = true;
        }
        if (not) for (int i = 0; i < 256; i++) s.set[i] ^= true;
        return s;
    }

    int groups() {
        return groups;
    }

    /** Whether the whole text matches, by all states at once. */
    boolean matches(String s) {
        boolean[] now = new boolean[states], next;
        follow(first, now, s, 0);
        for (int i = 0; i < s.length(); i++) {
            next = new boolean[states];
            step(first, now, next, s, i, new boolean[states]);
            now = next;
        }
        return reached(first, now, new boolean[states]);
    }

    private void follow(State s, boolean[] set, String text, int at) {
        if (s == null || set[s.id]) return;
        switch (s.kind) {
            case State.SPLIT:
                set[s.id] = true;
                follow(s.out, set, text, at);
                follow(s.other, set, text, at);
                return;
            case State.START: if (at != 0) return; break;
            case State.END: if (at != text.length()) return; break;
            case State.OPEN: break;
            default: set[s.id] = true; return;
        }
        set[s.id] = true;
        follow(s.out, set, text, at);
    }

    private void step(State s, boolean[] now, boolean[] next, String text, int i, boolean[] seen) {
        if (s == null || seen[s.id]) return;
        seen[s.id] = true;
        if (now[s.id] && (s.kind >= 0 || s.kind == State.ANY || s.kind == State.SET) && s.accepts(text.charAt(i))) follow(s.out, next, text, i + 1);
        step(s.out, now, next, text, i, seen);
        step(s.other, now, next, text, i, seen);
    }

    private boolean reached(State s, boolean[] now, boolean[] seen) {
        if (s == null || seen[s.id]) return false;
        seen[s.id] = true;
        return s.kind == State.MATCH && now[s.id] || reached(s.out, now, seen) || reached(s.other, now, seen);
    }

    /** The first match with its groups, by trying one way after the other; null if there is none. */
    String[] search(String s) {
        for (int from = 0; from <= s.length(); from++) {
            int[] ends = new int[2 * groups + 2];
            for (int i = 0; i < ends.length; i++) ends[i] = -1;
            int end = backtrack(first, s, from, ends, 0);
            if (end < 0) continue;
            ends[0] = from;
            ends[1] = end;
            String[] r = new String[groups + 1];
            for (int g = 0; g <= groups; g++) r[g] = ends[2 * g] < 0 || ends[2 * g + 1] < 0 ? null : s.substring(ends[2 * g], ends[2 * g + 1]);
            return r;
        }
        return null;
    }

    private int backtrack(State p, String s, int i, int[] ends, int idle) {
        while (p != null) {
            switch (p.kind) {
                case State.MATCH: return i;
                case State.SPLIT: {
                    if (idle > states) return -1;
                    int end = backtrack(p.out, s, i, ends, idle + 1);
                    if (end >= 0) return end;
                    p = p.other;
                    idle++;
                    continue;
                }
                case State.OPEN: {
                    int old = ends[p.group];
                    ends[p.group] = i;
                    int end = backtrack(p.out, s, i, ends, idle + 1);
                    if (end < 0) ends[p.group] = old;
                    return end;
                }
                case State.START: if (i != 0) return -1; break;
                case State.END: if (i != s.length()) return -1; break;
                default:
                    if (i == s.length() || !p.accepts(s.charAt(i))) return -1;
                    i++;
                    idle = 0;
            }
            p = p.out;
        }
        return -1;
    }
}

public class Main {
    public static void main(String[] args) {
        String[][] cases = { { "abc", "abc", "xabcx", "ab" }, { "a*b", "b", "aaab", "aaa" }, { "(a|b)*abb", "abb", "babaabb", "abab" }, { "a(b|cd)?e+", "ae", "acdee", "abcd" },
            { "[a-c]+[^x-z0]", "abcq", "aax", "q" }, { "^\\d+\\.\\d+$", "3.14", "3x14", "v3.14" }, { "\\w+@(\\w+\\.)+(com|org)", "me_1@a.b.org", "to joe@x.com now", "@x.com" },
            { "(x+x+)+y", "xxxxxxxxxxy", "xxxxxxxxxx", "y" }, { "", "", "a", "b" }, { "a||b", "a", "", "c" }, { ".*=(.*);", "k=v;w;", "=;", "k=v" }, { "[]a-]+", "]-a", "b]", "b" },
            { "(a*)*", "aaa", "b", "" }, { "\\(\\*|\\\\", "(*", "a\\b", "*" } };
        for (int i = 0; i < cases.length; i++) {
            try {
                Pattern p = new Pattern(cases[i][0]);
                System.out.print(cases[i][0] + ":");
                for (int k = 1; k < cases[i].length; k++) {
                    String s = cases[i][k];
                    System.out.print(" " + s + (p.matches(s) ? " yes" : " no"));
                    String[] groups = p.search(s);
                    if (groups == null) System.out.print(";");
                    else for (int g = 0; g < groups.length; g++) System.out.print((g == 0 ? " <" : " ") + groups[g] + (g == groups.length - 1 ? ">;" : ""));
                }
                System.out.println();
            } catch (PatternException e) {
                System.out.println(e);
            }
        }
        String[] bad = { "(a", "a)", "*a", "[a", "[z-a]", "a\\", "(|" };
        for (int i = 0; i < bad.length; i++)
            try {
                new Pattern(bad[i]);
                System.out.println("accepted " + bad[i]);
            } catch (PatternException e) {
                System.out.println(bad[i] + ": " + e.getMessage());
            }
    }
}
