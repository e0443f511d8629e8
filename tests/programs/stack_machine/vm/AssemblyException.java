package vm;

public class AssemblyException extends Exception {
    public AssemblyException(String what, int line) {
        super("line " + (line + 1) + ": " + what);
    }
}
