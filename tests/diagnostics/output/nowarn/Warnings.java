public class OtherName {
    void f() {
        return;
        f();
    }
    boolean space = Character.isSpace(' ');
}
