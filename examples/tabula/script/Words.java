package tabula.script;

import tabula.cell.Address;
import tabula.cell.Area;

/** The words of a command line, taken one after the other. */
class Words {
    private final String line;
    private int next;

    Words(String line) {
        this.line = line.trim();
    }

    boolean hasMore() {
        return next < line.length();
    }

    String word(String what) throws ScriptException {
        if (!hasMore()) throw new ScriptException(what + " expected");
        int end = line.indexOf(' ', next);
        if (end < 0) end = line.length();
        String word = line.substring(next, end);
        next = end;
        while (hasMore() && line.charAt(next) == ' ') next++;
        return word;
    }

    /** All that is left, as it stands. */
    String rest() {
        String rest = line.substring(next);
        next = line.length();
        return rest;
    }

    /** Takes the word if it comes next. */
    boolean take(String word) throws ScriptException {
        int here = next;
        if (hasMore() && word("word").equals(word)) return true;
        next = here;
        return false;
    }

    int number(int otherwise) throws ScriptException {
        if (!hasMore()) return otherwise;
        String word = word("number");
        try {
            return Integer.parseInt(word);
        } catch (NumberFormatException e) {
            throw new ScriptException(word + " is no number");
        }
    }

    Address address() throws ScriptException {
        String word = word("cell");
        Address address = Address.parse(word);
        if (address == null) throw new ScriptException(word + " is no cell");
        return address;
    }

    Area area() throws ScriptException {
        String word = word("area");
        Area area = Area.parse(word);
        if (area == null) throw new ScriptException(word + " is no area");
        return area;
    }

    void end() throws ScriptException {
        if (hasMore()) throw new ScriptException("too much: " + rest());
    }
}
