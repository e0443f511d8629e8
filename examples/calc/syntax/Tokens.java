package calc.syntax;

/** The kinds of tokens. A keyword or operator has its spelling at the index of its kind. */
public interface Tokens {
    int END = 0, NAME = 1, NUMBER = 2, TEXT = 3;
    int LET = 4, IF = 5, ELSE = 6, WHILE = 7, FOR = 8, IN = 9, FUNCTION = 10, RETURN = 11, PRINT = 12, TRUE = 13, FALSE = 14, AND = 15, OR = 16, NOT = 17;
    int PLUS = 18, MINUS = 19, STAR = 20, SLASH = 21, PERCENT = 22, ASSIGN = 23, EQUAL = 24, UNEQUAL = 25, LESS = 26, LESS_EQUAL = 27, GREATER = 28,
        GREATER_EQUAL = 29, OPEN = 30, CLOSE = 31, OPEN_BRACE = 32, CLOSE_BRACE = 33, OPEN_BRACKET = 34, CLOSE_BRACKET = 35, COMMA = 36, SEMICOLON = 37;

    String[] SPELLING = { "the end", "a name", "a number", "a text", "let", "if", "else", "while", "for", "in", "function", "return", "print", "true", "false",
        "and", "or", "not", "+", "-", "*", "/", "%", "=", "==", "!=", "<", "<=", ">", ">=", "(", ")", "{", "}", "[", "]", ",", ";" };

    int FIRST_KEYWORD = LET, LAST_KEYWORD = NOT;
}
