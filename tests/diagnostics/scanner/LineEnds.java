class LineEnds {
    // a comment that an escaped line end ends: \u000a int x = #;
    //                                                         ^ error 100: illegal character
    /* a comment
     * of several lines */ int y = #;
     //                            ^ error 100: illegal character
}
