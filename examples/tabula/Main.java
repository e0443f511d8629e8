package tabula;

import java.io.FileReader;
import java.io.IOException;
import java.io.InputStreamReader;
import java.io.PrintWriter;
import java.io.Reader;
import tabula.script.Interpreter;

/** A spreadsheet that is worked by commands, from the files named on the command line or from standard input. */
public class Main {
    private static final PrintWriter OUT = new PrintWriter(System.out);

    private static int run(Reader reader) throws IOException {
        try {
            return new Interpreter(OUT).run(reader);
        } finally {
            reader.close();
        }
    }

    public static void main(String[] files) {
        int faults = 0;
        try {
            if (files.length == 0) faults = run(new InputStreamReader(System.in));
            for (int i = 0; i < files.length; i++) faults += run(new FileReader(files[i]));
        } catch (IOException e) {
            OUT.println("! " + e.getMessage());
            faults++;
        }
        OUT.println(faults + " faults");
        OUT.flush();
    }
}
