class UnclosedComment {
    /* never ends
    // error 105 (2:5): unclosed comment
}
