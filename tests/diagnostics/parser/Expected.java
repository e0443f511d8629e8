class Expected {
    int semicolon
    //           ^ error 200: ';' expected
    int swallowed;
    int parenthesis = (1 + 2;
    //                      ^ error 200: ')' expected
    int = 5;
    //  ^ error 200: <identifier> expected
    int[] bracket = new int[5;
    //                       ^ error 200: ']' expected
    int[] creator = new int;
    //                     ^ error 201: '(' or '[' expected
    int[] brace = new int[];
    //                     ^ error 200: '{' expected
    int choice = true ? 1 ;
    //                    ^ error 200: : expected
    Class literal = int[].name;
    //                    ^ error 200: class expected

    void f() {
        do ; if (true) ;
        //   ^ error 200: while expected
        abstract int x;
        //       ^ error 200: 'class' expected
    }
}
