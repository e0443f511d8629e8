package vm;

import java.util.Stack;

class Frame {
    final Frame caller;
    final int returnTo, base;
    final long[] locals = new long[8];
    int handler = -1, handlerHeight;

    Frame(Frame caller, int returnTo, int base) {
        this.caller = caller;
        this.returnTo = returnTo;
        this.base = base;
    }
}

/** Runs code; values are longs, arrays live in a heap and are named by negative numbers. */
public class Machine implements Op {
    private final byte[] code;
    private final long[] stack = new long[256];
    private int sp;
    private Frame frame = new Frame(null, -1, 0);
    private Stack heap = new Stack();
    private final StringBuffer out = new StringBuffer();
    long steps;

    public Machine(byte[] code) {
        this.code = code;
    }

    private int operand(int pc, int bytes) {
        int v = 0;
        while (--bytes >= 0) v = v << 8 | code[pc++] & 0xFF;
        return v;
    }

    private long[] array(long reference) {
        return (long[]) heap.elementAt((int) ~reference);
    }

    /** Leaves frames until one has a handler; the value is then on its stack. False if there is none. */
    private boolean unwind() {
        long value = stack[--sp];
        for (; frame != null; frame = frame.caller) {
            if (frame.handler < 0) continue;
            sp = frame.handlerHeight;
            stack[sp++] = value;
            return true;
        }
        out.append("uncaught ").append(value);
        return false;
    }

    public String run() {
        int pc = 0;
        running:
        for (;;) {
            steps++;
            int op = code[pc++], n = OPERANDS[op], at = pc;
            pc += n;
            try {
                switch (op) {
                    case HALT: break running;
                    case PUSH: stack[sp++] = operand(at, 4); continue;
                    case ADD: sp--; stack[sp - 1] += stack[sp]; continue;
                    case SUB: sp--; stack[sp - 1] -= stack[sp]; continue;
                    case MUL: sp--; stack[sp - 1] *= stack[sp]; continue;
                    case DIV: --sp; stack[sp - 1] /= stack[sp]; continue;
                    case SHL: --sp; stack[sp - 1] <<= stack[sp]; continue;
                    case NEG: stack[sp - 1] = -stack[sp - 1]; continue;
                    case LESS: sp--; stack[sp - 1] = stack[sp - 1] < stack[sp] ? 1 : 0; continue;
                    case EQ: sp--; stack[sp - 1] = stack[sp - 1] == stack[sp] ? 1 : 0; continue;
                    case DUP: stack[sp] = stack[sp++ - 1]; continue;
                    case SWAP: { long t = stack[sp - 1]; stack[sp - 1] = stack[sp - 2]; stack[sp - 2] = t; continue; }
                    case POP: sp--; break;
                    case LOAD: stack[sp++] = frame.locals[operand(at, n)]; break;
                    case STORE: frame.locals[operand(at, n)] = stack[--sp]; break;
                    case ARG: stack[sp++] = stack[frame.base + operand(at, n)]; break;
                    case JNZ: if (stack[--sp] == 0) break; pc = operand(at, 2); break;
                    case JZ: if (stack[--sp] != 0) break;
                    case JUMP: pc = operand(at, 2); break;
                    case CALL:
                        frame = new Frame(frame, pc, sp - code[at]);
                        pc = operand(at + 1, 2);
                        break;
                    case RET:
                        stack[frame.base] = stack[sp - 1];
                        sp = frame.base + 1;
                        pc = frame.returnTo;
                        frame = frame.caller;
                        break;
                    case PRINT: out.append(stack[--sp]).append(' '); break;
                    case PUTC: out.append((char) stack[--sp]); break;
                    case NEW: heap.push(new long[(int) stack[sp - 1]]); stack[sp - 1] = ~(heap.size() - 1); break;
                    case GET: sp--; stack[sp - 1] = array(stack[sp - 1])[(int) stack[sp]]; break;
                    case PUT: sp -= 3; array(stack[sp])[(int) stack[sp + 1]] = stack[sp + 2]; break;
                    case TRY: frame.handler = operand(at, 2); frame.handlerHeight = sp; break;
                    case ENDTRY: frame.handler = -1; break;
                    case RAISE:
                        if (!unwind()) break running;
                        pc = frame.handler;
                        frame.handler = -1;
                        break;
                    default: throw new InternalError("op " + op);
                }
            } catch (ArithmeticException e) {
                stack[sp++] = -1;
                if (!unwind()) break;
                pc = frame.handler;
                frame.handler = -1;
            } catch (ArrayIndexOutOfBoundsException e) {
                stack[sp++] = -2;
                if (!unwind()) return out + "!";
                pc = frame.handler;
                frame.handler = -1;
            }
        }
        return out.toString();
    }
}
