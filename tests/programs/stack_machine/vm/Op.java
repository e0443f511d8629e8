package vm;

/** The instructions; the table is the order of the numbers. */
public interface Op {
    byte HALT = 0, PUSH = 1, ADD = 2, SUB = 3, MUL = 4, DIV = 5, DUP = 6, SWAP = 7, POP = 8, LOAD = 9, STORE = 10, JUMP = 11, JZ = 12, JNZ = 13, CALL = 14,
        RET = 15, PRINT = 16, LESS = 17, EQ = 18, NEW = 19, GET = 20, PUT = 21, ARG = 22, TRY = 23, ENDTRY = 24, RAISE = 25, NEG = 26, SHL = 27, PUTC = 28;

    String[] NAMES = { "halt", "push", "add", "sub", "mul", "div", "dup", "swap", "pop", "load", "store", "jump", "jz", "jnz", "call", "ret", "print", "less",
        "eq", "new", "get", "put", "arg", "try", "endtry", "raise", "neg", "shl", "putc" };

    /** Bytes of operand behind each. */
    byte[] OPERANDS = { 0, 4, 0, 0, 0, 0, 0, 0, 0, 1, 1, 2, 2, 2, 3, 0, 0, 0, 0, 0, 0, 0, 1, 2, 0, 0, 0, 0, 0 };
}
