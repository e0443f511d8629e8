package vm;

public class Main {
    static void run(String name, String source) {
        try {
            byte[] code = new Assembler().assemble(source);
            Machine m = new Machine(code);
            System.out.println(name + ": " + m.run() + "(" + code.length + " bytes, " + m.steps + " steps)");
        } catch (AssemblyException e) {
            System.out.println(name + " fails in " + e.getMessage());
        }
    }

    public static void main(String[] args) throws AssemblyException {
        System.out.print(Assembler.list(new Assembler().assemble("push -2 ; push 'A ; add ; store 3 ; x: call x 2 ; halt")));
        run("arithmetic", "push 7; push 3; sub; dup; mul; push 5; div; print; push 1; push 40; shl; print; push 3; neg; print; halt");
        run("count down", "push 5 store 0 loop: load 0 print load 0 push 1 sub dup store 0 jnz loop halt");
        run("factorial", "push 20 call fact 1 print halt\n fact: arg 0 push 2 less jz more push 1 ret\n more: arg 0 push 1 sub call fact 1 arg 0 mul ret");
        run("fibonacci", "push 15 call fib 1 print halt fib: arg 0 push 2 less jnz small arg 0 push 1 sub call fib 1 arg 0 push 2 sub call fib 1 add ret small: arg 0 ret");
        run("ackermann", "push 2 push 3 call ack 2 print halt\n ack: arg 0 jnz a\n arg 1 push 1 add ret\n a: arg 1 jnz b\n arg 0 push 1 sub push 1 call ack 2 ret\n"
            + " b: arg 0 push 1 sub arg 0 arg 1 push 1 sub call ack 2 call ack 2 ret");
        run("squares", "push 10 new store 1 push 0 store 0\n fill: load 0 push 10 less jz done load 1 load 0 load 0 dup mul put load 0 push 1 add store 0 jump fill\n"
            + " done: load 1 push 9 get print load 1 push 3 get print halt");
        run("text", "push 'H putc push 'i putc push 10 putc halt");
        run("handler", "try h push 1 push 0 div print halt h: print push 77 print halt");
        run("raise through calls", "try h push 9 call f 1 print halt f: arg 0 call g 1 ret g: arg 0 push 1 add raise h: print halt");
        run("uncaught", "push 3 call f 1 halt f: push 42 raise");
        run("bounds", "push 2 new push 5 get print halt");
        run("swap and compare", "push 1 push 2 swap less print push 4 push 4 eq print push 1 pop halt # a comment\n");
        run("unknown", "push 1\n fly");
        run("no label", "jump nowhere");
        run("twice", "a: a: halt");
        run("cut", "push");
    }
}
