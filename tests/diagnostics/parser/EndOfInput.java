class EndOfInput {
    void f() {
    }
   //^ error 200: '}' expected
