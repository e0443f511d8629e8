class Characters {
    int a = 1 # 2;
    //        ^ error 100: illegal character
    char tooLong = 'ab';
    //             ^ error 106: unclosed character literal
    //                ^ error 106: unclosed character literal
    ;
    char empty = '';
    //           ^ error 110: empty character literal
    char escaped = '\q';
    //               ^ error 101: invalid escape character
    String open = "abc
    //            ^ error 106: unclosed character literal
    ;
    int backslash = 1 \ ;
    //                ^ error 101: invalid escape character
    int f\u00g1 = 2;
    //       ^ error 101: invalid escape character
	int tab = 1 ` 2;
	//          ^ error 100: illegal character
    char ok = '\u0041', quote = '\'', octal = '\377';
    String allEscapes = "\b\t\n\f\r\"\'\\\0\12\123\u0041\uuu0041";
}
