#pragma once

#include "syntax/name.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tarn {

/// All tokens: kind number, constant, text as messages show it. The numbers order the kinds: literals, separators,
/// operators, keywords. The text of a kind from `+` to `false` is its spelling.
#define TARN_TOKENS(X)                                                                                                 \
    X(1, IDENTIFIER, "<identifier>")                                                                                   \
    X(2, CHAR_LITERAL, "<character>")                                                                                  \
    X(3, STRING_LITERAL, "<string>")                                                                                   \
    X(4, INT_LITERAL, "<integer>")                                                                                     \
    X(5, LONG_LITERAL, "<long integer>")                                                                               \
    X(6, FLOAT_LITERAL, "<float>")                                                                                     \
    X(7, DOUBLE_LITERAL, "<double>")                                                                                   \
    X(10, DOT, "'.'")                                                                                                  \
    X(11, COMMA, "','")                                                                                                \
    X(12, SEMICOLON, "';'")                                                                                            \
    X(13, LPAREN, "'('")                                                                                               \
    X(14, RPAREN, "')'")                                                                                               \
    X(15, LBRACKET, "'['")                                                                                             \
    X(16, RBRACKET, "']'")                                                                                             \
    X(17, LBRACE, "'{'")                                                                                               \
    X(18, RBRACE, "'}'")                                                                                               \
    X(20, PLUS, "+")                                                                                                   \
    X(21, MINUS, "-")                                                                                                  \
    X(22, NOT, "!")                                                                                                    \
    X(23, PERCENT, "%")                                                                                                \
    X(24, CARET, "^")                                                                                                  \
    X(25, AMPERSAND, "&")                                                                                              \
    X(26, STAR, "*")                                                                                                   \
    X(27, BAR, "|")                                                                                                    \
    X(28, TILDE, "~")                                                                                                  \
    X(29, SLASH, "/")                                                                                                  \
    X(30, GREATER, ">")                                                                                                \
    X(31, LESS, "<")                                                                                                   \
    X(32, QUESTION, "?")                                                                                               \
    X(33, COLON, ":")                                                                                                  \
    X(34, ASSIGN, "=")                                                                                                 \
    X(35, INCREMENT, "++")                                                                                             \
    X(36, DECREMENT, "--")                                                                                             \
    X(37, EQUAL, "==")                                                                                                 \
    X(38, LESS_EQUAL, "<=")                                                                                            \
    X(39, GREATER_EQUAL, ">=")                                                                                         \
    X(40, NOT_EQUAL, "!=")                                                                                             \
    X(41, SHIFT_LEFT, "<<")                                                                                            \
    X(42, SHIFT_RIGHT, ">>")                                                                                           \
    X(43, UNSIGNED_SHIFT_RIGHT, ">>>")                                                                                 \
    X(44, PLUS_ASSIGN, "+=")                                                                                           \
    X(45, MINUS_ASSIGN, "-=")                                                                                          \
    X(46, STAR_ASSIGN, "*=")                                                                                           \
    X(47, SLASH_ASSIGN, "/=")                                                                                          \
    X(48, AND_ASSIGN, "&=")                                                                                            \
    X(49, OR_ASSIGN, "|=")                                                                                             \
    X(50, XOR_ASSIGN, "^=")                                                                                            \
    X(51, PERCENT_ASSIGN, "%=")                                                                                        \
    X(52, SHIFT_LEFT_ASSIGN, "<<=")                                                                                    \
    X(53, SHIFT_RIGHT_ASSIGN, ">>=")                                                                                   \
    X(54, UNSIGNED_SHIFT_RIGHT_ASSIGN, ">>>=")                                                                         \
    X(55, OR_OR, "||")                                                                                                 \
    X(56, AND_AND, "&&")                                                                                               \
    X(60, ABSTRACT, "abstract")                                                                                        \
    X(61, BREAK, "break")                                                                                              \
    X(62, CASE, "case")                                                                                                \
    X(63, CATCH, "catch")                                                                                              \
    X(64, CLASS, "class")                                                                                              \
    X(65, CONST, "const")                                                                                              \
    X(66, CONTINUE, "continue")                                                                                        \
    X(67, DEFAULT, "default")                                                                                          \
    X(68, DO, "do")                                                                                                    \
    X(69, ELSE, "else")                                                                                                \
    X(70, EXTENDS, "extends")                                                                                          \
    X(71, FINAL, "final")                                                                                              \
    X(72, FINALLY, "finally")                                                                                          \
    X(73, FOR, "for")                                                                                                  \
    X(74, IF, "if")                                                                                                    \
    X(75, IMPLEMENTS, "implements")                                                                                    \
    X(76, IMPORT, "import")                                                                                            \
    X(77, INTERFACE, "interface")                                                                                      \
    X(78, NATIVE, "native")                                                                                            \
    X(79, NEW, "new")                                                                                                  \
    X(80, PACKAGE, "package")                                                                                          \
    X(81, PRIVATE, "private")                                                                                          \
    X(82, PROTECTED, "protected")                                                                                      \
    X(83, PUBLIC, "public")                                                                                            \
    X(84, RETURN, "return")                                                                                            \
    X(85, STATIC, "static")                                                                                            \
    X(86, SUPER, "super")                                                                                              \
    X(87, SWITCH, "switch")                                                                                            \
    X(88, SYNCHRONIZED, "synchronized")                                                                                \
    X(89, THIS, "this")                                                                                                \
    X(90, VOLATILE, "volatile")                                                                                        \
    X(91, THROW, "throw")                                                                                              \
    X(92, THROWS, "throws")                                                                                            \
    X(93, TRANSIENT, "transient")                                                                                      \
    X(94, TRY, "try")                                                                                                  \
    X(95, WHILE, "while")                                                                                              \
    X(96, INSTANCEOF, "instanceof")                                                                                    \
    X(97, BOOLEAN, "boolean")                                                                                          \
    X(98, BYTE, "byte")                                                                                                \
    X(99, CHAR, "char")                                                                                                \
    X(100, DOUBLE, "double")                                                                                           \
    X(101, FLOAT, "float")                                                                                             \
    X(102, INT, "int")                                                                                                 \
    X(103, LONG, "long")                                                                                               \
    X(104, SHORT, "short")                                                                                             \
    X(105, VOID, "void")                                                                                               \
    X(106, NULL_LITERAL, "null")                                                                                       \
    X(107, GOTO, "goto")                                                                                               \
    X(108, TRUE_LITERAL, "true")                                                                                       \
    X(109, FALSE_LITERAL, "false")                                                                                     \
    X(110, BAD_SYMBOL, "<bad symbol>")                                                                                 \
    X(111, END_OF_INPUT, "<end of input>")

/// Kind of a token.
enum class Token : std::uint8_t {
#define TARN_TOKEN(number, constant, text) constant = number,
    TARN_TOKENS(TARN_TOKEN)
#undef TARN_TOKEN
};

/// Size of a table that is indexed by token kind.
constexpr std::size_t TOKEN_KINDS = 112;

/// The kind's text for messages, such as "'('", "&&", "class" or "<identifier>"; empty for an unused number.
std::string_view tokenName(Token kind);

/// The operator or keyword that is spelled like this; IDENTIFIER if there is none.
Token tokenOf(const Name* name);

/// The name of an operator's or keyword's spelling; null for the other kinds.
Name* spellingOf(Token kind);

/// Enters the spellings of operators and keywords. The name table calls it once, when it opens, so that they are the
/// first names of all and lie close together: `tokenOf` is one compare and one look into a small constant table.
void enterTokenSpellings();

} // namespace tarn
