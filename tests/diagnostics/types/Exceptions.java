import java.io.IOException;

class Exceptions {
    static int x = g();
    //              ^ error 360: unreported exception: java.io.IOException; must be caught or declared to be thrown
    static int g() throws IOException { return 1; }
    Exceptions() throws IOException { }
    void runtime() throws RuntimeException, Error { runtime(); }

    void f() throws java.io.FileNotFoundException {
        throw new Exception();
      //^ error 360: unreported exception: java.lang.Exception; must be caught or declared to be thrown
        g();
       //^ error 360: unreported exception: java.io.IOException; must be caught or declared to be thrown
        new Exceptions();
        //            ^ error 360: unreported exception: java.io.IOException; must be caught or declared to be thrown
        throw new java.io.FileNotFoundException();
    }

    void caught() {
        try {
            g();
            try { throw new Throwable(); } catch (Exception e) { g(); }
            //    ^ error 360: unreported exception: java.lang.Throwable; must be caught or declared to be thrown
        } catch (IOException e) {
            throw e;
          //^ error 360: unreported exception: java.io.IOException; must be caught or declared to be thrown
        } finally {
            g();
           //^ error 360: unreported exception: java.io.IOException; must be caught or declared to be thrown
        }
        runtime();
        throw null;
    }

    void notThrowable() throws String { }
    //                         ^ error 354: incompatible types; found: java.lang.String, required: java.lang.Throwable
    void caller() { notThrowable(); }
    //              ^ error 357: incompatible throws list; found: java.lang.String, required: java.lang.Throwable

    void catches() {
        try { } catch (String s) { }
        //                    ^ error 354: incompatible types; found: java.lang.String, required: java.lang.Throwable
        try { g(); } catch (Undefined e) { }
        //                  ^ error 300: class Undefined not found in class Exceptions
    }
}

class AllDeclare {
    { Exceptions.g(); }
    int field = Exceptions.g();
    AllDeclare() throws IOException { }
    AllDeclare(int i) throws Exception { }
}

class OneDeclares {
    { Exceptions.g(); }
    //            ^ error 360: unreported exception: java.io.IOException; must be caught or declared to be thrown
    OneDeclares() throws IOException { }
    OneDeclares(int i) { }
}
