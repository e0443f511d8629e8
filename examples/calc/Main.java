package calc;

import calc.run.CalcException;
import calc.run.Machine;
import calc.syntax.Parser;
import calc.syntax.SyntaxException;
import calc.tree.Outline;
import calc.tree.Program;
import java.io.BufferedReader;
import java.io.FileReader;
import java.io.IOException;
import java.io.PrintWriter;
import java.io.Reader;

/** Runs the programs named on the command line, or else three of its own. */
public class Main {
    private static final String[] TITLES = { "Prime numbers", "Functions and recursion", "Lists and texts" };

    private static final String[] PROGRAMS = {
        "# The sieve, with a list of truth values\n"
            + "let limit = 60;\n"
            + "let composite = list(limit + 1, false);\n"
            + "let primes = [];\n"
            + "let i = 2;\n"
            + "while i <= limit {\n"
            + "    if not composite[i] {\n"
            + "        primes = primes + [i];\n"
            + "        let k = i * i;\n"
            + "        while k <= limit { composite[k] = true; k = k + i; }\n"
            + "    }\n"
            + "    i = i + 1;\n"
            + "}\n"
            + "print size(primes), \"primes up to\", limit, \":\", primes;\n",

        "function factorial(n) { if n < 2 { return 1; } return n * factorial(n - 1); }\n"
            + "function power(base, exponent) {\n"
            + "    if exponent == 0 { return 1; }\n"
            + "    let half = power(base, floor(exponent / 2));\n"
            + "    if exponent % 2 == 0 { return half * half; } else { return half * half * base; }\n"
            + "}\n"
            + "function newton(x) {\n"
            + "    let guess = x;\n"
            + "    while true {\n"
            + "        let better = (guess + x / guess) / 2;\n"
            + "        if abs(better - guess) < 0.000001 { return round(better, 4); }\n"
            + "        guess = better;\n"
            + "    }\n"
            + "}\n"
            + "function compose(f, g, x) { return f(g(x)); }\n"
            + "print \"10! =\", factorial(10);\n"
            + "print \"2^30 =\", power(2, 30);\n"
            + "print \"the root of 2 is about\", newton(2);\n"
            + "print \"the factorial of the floor of 5.7 is\", compose(factorial, floor, 5.7);\n",

        "let words = split(\"the quick brown fox jumps over the lazy dog and the cat\", \" \");\n"
            + "let seen = [];\n"
            + "let counts = [];\n"
            + "for word in words {\n"
            + "    let at = find(seen, word);\n"
            + "    if at < 0 { seen = seen + [word]; counts = counts + [1]; }\n"
            + "    else { counts[at] = counts[at] + 1; }\n"
            + "}\n"
            + "let line = \"\";\n"
            + "for word in sort(seen) {\n"
            + "    if line != \"\" { line = line + \", \"; }\n"
            + "    line = line + word + \" \" + counts[find(seen, word)];\n"
            + "}\n"
            + "print line;\n"
            + "print \"longest:\", sort(words)[size(words) - 1], \"/ upper case:\", upper(words[1]);\n"
            + "print words[99];\n"
    };

    private final PrintWriter out = new PrintWriter(System.out, true);
    private int faults;

    private void run(String title, String source, boolean outline) {
        out.println("== " + title + " ==");
        try {
            Program program = new Parser(source).program();
            if (outline) {
                Outline o = new Outline();
                program.accept(o);
                out.print(o);
            }
            Machine machine = new Machine(out);
            program.run(machine);
            out.println("(" + program.statements() + " statements, " + machine.steps() + " steps)");
        } catch (SyntaxException e) {
            faults++;
            out.println("syntax: " + e.getMessage());
        } catch (CalcException e) {
            faults++;
            out.println("stopped: " + e.getMessage());
        }
        out.println();
    }

    private static String read(String name) throws IOException {
        StringBuffer text = new StringBuffer();
        Reader in = new BufferedReader(new FileReader(name));
        try {
            for (int c; (c = in.read()) != -1; ) text.append((char) c);
        } finally {
            in.close();
        }
        return text.toString();
    }

    public static void main(String[] args) {
        Main main = new Main();
        if (args.length == 0) {
            for (int i = 0; i < PROGRAMS.length; i++) main.run(TITLES[i], PROGRAMS[i], i == 0);
            main.run("A mistake", "let x = (1 + 2;\nprint x;\n", false);
            main.out.println("3 programs were run; the last one stopped at an index on purpose, and the mistake was found.");
            return;
        }
        for (int i = 0; i < args.length; i++) {
            try {
                main.run(args[i], read(args[i]), false);
            } catch (IOException e) {
                main.faults++;
                main.out.println("cannot read " + args[i] + ": " + e.getMessage());
            }
        }
        System.exit(main.faults == 0 ? 0 : 1);
    }
}
