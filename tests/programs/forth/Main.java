import java.util.*;

/** A word of the dictionary. */
abstract class Word {
    final String name;
    boolean immediate;

    Word(String name) {
        this.name = name;
    }

    abstract void run(Forth f) throws ForthException;
}

class ForthException extends Exception {
    ForthException(String s) {
        super(s);
    }
}

/** Built in, by number. */
class Primitive extends Word {
    static final String[] NAMES = { "+", "-", "*", "/mod", "dup", "drop", "swap", "over", "rot", ".", "cr", "emit", "=", "<", "and", "or", "xor", "invert",
        "@", "!", "variable", ":", ";", "if", "else", "then", "begin", "until", "do", "loop", "i", "j", "recurse", ".s", "constant", "while", "repeat", "exit",
        "?dup", "negate", "+!", "allot", "leave", ".\"", "max" };
    private final int code;

    Primitive(int code) {
        super(NAMES[code]);
        this.code = code;
        immediate = code >= 22 && code <= 29 || code == 32 || code == 35 || code == 36 || code == 43;
    }

    void run(Forth f) throws ForthException {
        int a, b;
        switch (code) {
            case 0: f.push(f.pop() + f.pop()); break;
            case 1: b = f.pop(); f.push(f.pop() - b); break;
            case 2: f.push(f.pop() * f.pop()); break;
            case 3:
                b = f.pop();
                a = f.pop();
                if (b == 0) throw new ForthException("division by zero");
                f.push(a % b);
                f.push(a / b);
                break;
            case 4: a = f.pop(); f.push(a); f.push(a); break;
            case 5: f.pop(); break;
            case 6: b = f.pop(); a = f.pop(); f.push(b); f.push(a); break;
            case 7: b = f.pop(); a = f.pop(); f.push(a); f.push(b); f.push(a); break;
            case 8: { int c = f.pop(); b = f.pop(); a = f.pop(); f.push(b); f.push(c); f.push(a); break; }
            case 9: f.out.append(f.pop()).append(' '); break;
            case 10: f.out.append('\n'); break;
            case 11: f.out.append((char) f.pop()); break;
            case 12: f.push(f.pop() == f.pop() ? -1 : 0); break;
            case 13: f.push(f.pop() > f.pop() ? -1 : 0); break;
            case 14: f.push(f.pop() & f.pop()); break;
            case 15: f.push(f.pop() | f.pop()); break;
            case 16: f.push(f.pop() ^ f.pop()); break;
            case 17: f.push(~f.pop()); break;
            case 18: f.push(f.memory[f.pop()]); break;
            case 19: a = f.pop(); f.memory[a] = f.pop(); break;
            case 20: f.define(new Constant(f.next(), f.here++)); break;
            case 21: f.begin(new Colon(f.next())); break;
            case 22: f.end(); break;
            case 23: f.mark(f.compile(Colon.JUMP_IF_ZERO, 0)); break;
            case 24: a = f.compile(Colon.JUMP, 0); f.patch(f.mark()); f.mark(a); break;
            case 25: f.patch(f.mark()); break;
            case 26: f.mark(f.position()); break;
            case 27: f.compile(Colon.JUMP_IF_ZERO, f.mark()); break;
            case 28: f.compile(Colon.DO, 0); f.mark(f.position()); break;
            case 29: f.compile(Colon.LOOP, f.mark()); break;
            case 30: f.push(f.index(0)); break;
            case 31: f.push(f.index(1)); break;
            case 32: f.compileSelf(); break;
            case 33: f.show(); break;
            case 34: f.define(new Constant(f.next(), f.pop())); break;
            case 35: f.mark(f.compile(Colon.JUMP_IF_ZERO, 0)); break;
            case 36: a = f.mark(); f.compile(Colon.JUMP, f.mark()); f.patch(a); break;
            case 38: a = f.pop(); if (a != 0) f.push(a); f.push(a); break;
            case 39: f.push(-f.pop()); break;
            case 40: a = f.pop(); f.memory[a] += f.pop(); break;
            case 41: f.here += f.pop(); break;
            case 43: f.text(); break;
            case 44: f.push(Math.max(f.pop(), f.pop())); break;
            case 37: case 42: throw new ForthException(name + " only inside of a definition");
            default: throw new Error(name);
        }
    }
}

class Constant extends Word {
    private final int value;

    Constant(String name, int value) {
        super(name);
        this.value = value;
    }

    void run(Forth f) throws ForthException {
        f.push(value);
    }
}

class Text extends Word {
    private final String text;

    Text(String text) {
        super("text");
        this.text = text;
    }

    void run(Forth f) {
        f.out.append(text);
    }
}

/** A definition: words and numbers with jumps between them. */
class Colon extends Word {
    static final int CALL = 0, LITERAL = 1, JUMP = 2, JUMP_IF_ZERO = 3, DO = 4, LOOP = 5, LEAVE = 6, EXIT = 7;
    int[] ops = new int[4], args = new int[4];
    Word[] words = new Word[4];
    int length;

    Colon(String name) {
        super(name);
    }

    int add(int op, int arg, Word w) {
        if (length == ops.length) {
            int[] o = new int[length * 2], a = new int[length * 2];
            Word[] ws = new Word[length * 2];
            System.arraycopy(ops, 0, o, 0, length);
            System.arraycopy(args, 0, a, 0, length);
            System.arraycopy(words, 0, ws, 0, length);
            ops = o;
            args = a;
            words = ws;
        }
        ops[length] = op;
        args[length] = arg;
        words[length] = w;
        return length++;
    }

    void run(Forth f) throws ForthException {
        int loops = f.loopDepth;
        if (++f.depth > 500) throw new ForthException("too deep in " + name);
        try {
            for (int pc = 0; pc < length; pc++) {
                switch (ops[pc]) {
                    case CALL: words[pc].run(f); break;
                    case LITERAL: f.push(args[pc]); break;
                    case JUMP_IF_ZERO: if (f.pop() != 0) break;
                    case JUMP: pc = args[pc] - 1; break;
                    case DO: { int from = f.pop(); f.enter(from, f.pop()); break; }
                    case LOOP: if (f.again()) pc = args[pc] - 1; break;
                    case LEAVE: f.leave(); break;
                    case EXIT: return;
                }
            }
        } finally {
            f.depth--;
            f.loopDepth = loops;
        }
    }
}

class Forth {
    final int[] memory = new int[100];
    int here, depth, loopDepth;
    StringBuffer out = new StringBuffer();
    private final int[] stack = new int[64], indices = new int[32], limits = new int[32];
    private int height;
    private final Hashtable words = new Hashtable();
    private StringTokenizer input;
    private Colon current;
    private Stack marks = new Stack();

    Forth() {
        for (int i = 0; i < Primitive.NAMES.length; i++) define(new Primitive(i));
    }

    void push(int i) throws ForthException {
        if (height == stack.length) throw new ForthException("stack full");
        stack[height++] = i;
    }

    int pop() throws ForthException {
        if (height == 0) throw new ForthException("stack empty");
        return stack[--height];
    }

    void enter(int from, int limit) {
        indices[loopDepth] = from;
        limits[loopDepth++] = limit;
    }

    boolean again() {
        if (++indices[loopDepth - 1] < limits[loopDepth - 1]) return true;
        loopDepth--;
        return false;
    }

    void leave() {
        limits[loopDepth - 1] = indices[loopDepth - 1];
    }

    int index(int outer) {
        return indices[loopDepth - 1 - outer];
    }

    void define(Word w) {
        words.put(w.name, w);
    }

    void begin(Colon c) {
        current = c;
    }

    void end() throws ForthException {
        if (!marks.empty()) throw new ForthException("open structure in " + current.name);
        define(current);
        current = null;
    }

    int position() {
        return current.length;
    }

    int compile(int op, int arg) {
        return current.add(op, arg, null);
    }

    void compileSelf() {
        current.add(Colon.CALL, 0, current);
    }

    void mark(int i) {
        marks.push(new Integer(i));
    }

    int mark() throws ForthException {
        try {
            return ((Integer) marks.pop()).intValue();
        } catch (EmptyStackException e) {
            throw new ForthException("structure");
        }
    }

    void patch(int at) {
        current.args[at] = current.length;
    }

    String next() throws ForthException {
        if (!input.hasMoreTokens()) throw new ForthException("name expected");
        return input.nextToken();
    }

    void text() throws ForthException {
        String s = input.nextToken("\"").substring(1);
        input.nextToken(" ");
        if (current == null) out.append(s);
        else current.add(Colon.CALL, 0, new Text(s));
    }

    void show() {
        out.append('<').append(height).append("> ");
        for (int i = 0; i < height; i++) out.append(stack[i]).append(' ');
    }

    void interpret(String line) {
        input = new StringTokenizer(line);
        try {
            while (input.hasMoreTokens()) {
                String token = input.nextToken();
                Word w = (Word) words.get(token);
                if (w != null) {
                    if (current == null || w.immediate) w.run(this);
                    else if (token.equals("exit")) current.add(Colon.EXIT, 0, null);
                    else if (token.equals("leave")) current.add(Colon.LEAVE, 0, null);
                    else current.add(Colon.CALL, 0, w);
                    continue;
                }
                int n;
                try {
                    n = Integer.parseInt(token);
                } catch (NumberFormatException e) {
                    throw new ForthException(token + " ?");
                }
                if (current == null) push(n);
                else current.add(Colon.LITERAL, n, null);
            }
            out.append("ok");
        } catch (ForthException e) {
            out.append(e.getMessage());
            height = depth = loopDepth = 0;
            current = null;
            marks.removeAllElements();
        }
        System.out.println(out);
        out.setLength(0);
    }
}

public class Main {
    public static void main(String[] args) {
        String[] program = {
            "1 2 + 3 * .", "7 2 /mod . . -7 2 /mod . .", ": square dup * ; 12 square .", ": fact dup 2 < if drop 1 else dup 1 - recurse * then ;",
            "10 fact . 13 fact .", ": stars 0 do 42 emit loop ; 5 stars", ": table 4 1 do 4 1 do i j * . loop cr loop ; table",
            "variable x 5 x ! x @ . 3 x +! x @ .", ": countdown begin dup . 1 - dup 0 = until drop ; 5 countdown",
            ": gcd begin ?dup while swap over /mod drop repeat ; 1071 462 gcd .", "10 constant ten ten ten * .", "1 2 3 .s rot .s drop drop drop .s",
            ": greet .\" hello, \" if .\" world\" else .\" nobody\" then ; 1 greet 0 greet", ": find 100 0 do i dup * 50 = if i . then i 7 = if i . leave then loop ; find",
            ": early dup 0 < if .\" negative \" exit then . ; 5 early -5 early .", "drop", "nonsense", ": broken if ; 1 .", "then", "1 0 /mod",
            ": forever recurse ; forever", "6 1 - 3 max . 5 invert . 12 10 xor . 12 10 and . 12 10 or . 5 negate .",
            "variable table 9 allot : fill 10 0 do i dup * table i + ! loop ; fill table 7 + @ .", ": fib dup 2 < if exit then dup 1 - recurse swap 2 - recurse + ; 20 fib ." };
        Forth f = new Forth();
        for (int i = 0; i < program.length; i++) {
            System.out.print("> " + program[i] + "\n");
            f.interpret(program[i]);
        }
    }
}
