class Statements {
    void expressions(int a, int b, int[] array) {
        int;
      //^ error 205: malformed declaration
      //^ error 300: variable int not found in class Statements
        a + b;
        //^ error 207: not a statement
        5;
      //^ error 207: not a statement
        a;
      //^ error 207: not a statement
        array[*];
        //    ^ error 204: illegal start of expression
        a++;
        (a) = b;
        new Object();
        label: label2: a = b;
    }

    void tries() {
        finally ;
      //^ error 211: 'finally' without 'try'
        try { }
      //^ error 209: 'try' without 'catch' or 'finally'
        ;
        catch ;
      //^ error 212: 'catch' without 'try'
        try tries(); catch (RuntimeException e) tries();
        //  ^ warning 218: obsolete syntax: '{' now required here
        //                                      ^ warning 218: obsolete syntax: '{' now required here
    }

    void ifs() {
        if (true) ; else ;
        else ;
      //^ error 210: 'else' without 'if'
    }

    void caseLabel() { case 1: }
    //                 ^ error 213: 'case' outside of switch

    void defaultLabel() { default: }
    //                    ^ error 213: 'default' outside of switch
}
