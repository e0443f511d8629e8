package tabula.script;

/** A command that cannot be carried out. */
public class ScriptException extends Exception {
    public ScriptException(String message) {
        super(message);
    }
}
