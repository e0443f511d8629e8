import java.io.*;

class Catches {
    void f() throws Exception {
        try { f(); } catch (Exception e) { } catch (IOException e) { }
        //                                   ^ warning 551: catch is unreachable
        try { f(); } catch (IOException e) { } catch (Exception e) { }
        try { f(); } catch (IOException e) { } catch (IOException e) { } finally { }
        //                                     ^ warning 551: catch is unreachable
    }
}
