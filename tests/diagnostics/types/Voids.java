class Voids {
    void field;
  //^ error 358: 'void' type not allowed here
    void[] array;
  //^ error 358: 'void' type not allowed here
    int f(void parameter) {
    //    ^ error 358: 'void' type not allowed here
        String s = "s" + g();
        //                ^ error 358: 'void' type not allowed here
        Object o = (void) null;
        //          ^ error 358: 'void' type not allowed here
        return 1;
    }
    void g() { }
}
