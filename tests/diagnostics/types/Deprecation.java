class Deprecation {
// warning 369 (-): There have been deprecation warnings. Please consult the documentation for a better alternative
    boolean space = Character.isSpace(' ');
    //                        ^ warning 368: method isSpace(char) in class java.lang.Character has been deprecated
    Object text = new String(new byte[1], 0);
    //                ^ warning 368: constructor String(byte[], int) in class java.lang.String has been deprecated
    /** @deprecated */
    void own() { own(); }
}
