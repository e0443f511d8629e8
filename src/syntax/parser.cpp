#include "syntax/parser.h"

#include "driver/reporter.h"
#include "syntax/nesting.h"
#include "syntax/well_known_names.h"

namespace tarn {

Parser::Parser(Scanner& scanner, TreeFactory& factory)
    : scanner_(scanner), factory_(factory), depthLimit_(nestingLimit()) {}

// Errors and recovery

/// Reports an error after which parsing goes on with the current token.
void Parser::report(Position at, MessageId message, std::string_view argument) {
    if (!gaveUp_) reportError(at, message, argument);
}

/// Reports an error, but only one for each token that the parser is stuck at, and skips.
void Parser::syntaxError(Position at, MessageId message, std::string_view argument) {
    if (scanner_.pos != scanner_.errorPos) report(at, message, argument);
    skip();
    scanner_.errorPos = scanner_.pos;
}

/// Passes over tokens up to where parsing can go on: the end of the statement or of the block, or a class.
void Parser::skip() {
    int braces = 0;
    int parentheses = 0;
    scanner_.negativeLiteral = true; // nothing is wrong with a -2147483648 that is passed over
    for (;; step()) {
        switch (token()) {
        case Token::SEMICOLON:
            if (braces == 0 && parentheses == 0) return;
            break;
        case Token::LBRACE: braces++; break;
        case Token::RBRACE:
            if (braces == 0) return;
            braces--;
            break;
        case Token::LPAREN: parentheses++; break;
        case Token::RPAREN:
            if (parentheses > 0) parentheses--;
            break;
        case Token::CLASS:
        case Token::INTERFACE:
        case Token::END_OF_INPUT: return;
        default: break;
        }
    }
}

/// Reports that a token of that kind is missing: at the end of the line where it belongs if the next token stands on a
/// later one.
void Parser::expected(Token kind) {
    Position end = scanner_.prevEndPos;
    bool isOnLaterLine = lineOf(pos()) > lineOf(end);
    syntaxError(isOnLaterLine ? end : pos(), messages::tokenExpected, tokenName(kind));
    if (token() == kind) step();
}

/// The identifier that stands here; the error name if there is none.
Name* Parser::ident() {
    if (token() != Token::IDENTIFIER) {
        expected(Token::IDENTIFIER);
        return names().error;
    }
    Name* name = scanner_.name;
    step();
    return name;
}

/// Stands for a construct that is too broken to build. No message about what it turned out to be follows.
Tree* Parser::erroneous() {
    factory_.isExpr = factory_.isType = false;
    factory_.lastTag = treetag::ERRONEOUS;
    factory_.lastPos = pos();
    return Tree::erroneous();
}

/// Ends the parse at a source that is nested too deep: all productions that are open find the end of input.
Tree* Parser::giveUp() {
    if (!gaveUp_) {
        factory_.reportTooDeep(pos());
        gaveUp_ = true;
        ScopedSuppress unread;
        while (token() != Token::END_OF_INPUT) step();
        scanner_.errorPos = pos();
    }
    return erroneous();
}

} // namespace tarn
