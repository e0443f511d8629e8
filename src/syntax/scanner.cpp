// Tokens, words, operators and comments; numbers and quoted literals are in scanner_literals.cpp.
//
// The hot paths work on bytes: a table of 256 entries says what a token begins with and where a run of blanks, of a
// word or of a comment ends. Only a backslash leads to `look`, which reads an escape and tells which character it
// stands for. A token that ends before an escape leaves `at_` on the escape's backslash, so nothing is carried over
// from token to token.

#include "syntax/scanner.h"

#include "driver/reporter.h"
#include "runtime/unicode.h"
#include "syntax/char_class.h"
#include "syntax/source_text.h"

#include <array>
#include <cstring>

namespace tarn {

namespace {

constinit SourceText sourceText;

constexpr std::string_view DEPRECATED = "@deprecated";

constexpr std::string_view OPERATOR_CHARACTERS = "!%&*+-:<=>?^|~";

/// The operator that a character makes of an operator (of none: by itself); the token number, 0 if there is none. The
/// first index is the operator's number, 0 for none.
constexpr auto operatorSteps = [] {
    constexpr std::size_t operators = static_cast<std::size_t>(Token::AND_AND) + 1;
    std::array<std::array<std::uint8_t, 128>, operators> steps{};
    auto number = [](std::string_view text) {
        std::uint8_t found = 0;
#define TARN_TOKEN(value, constant, spelling)                                                                          \
    if (value >= 20 && value < operators && text == spelling) found = value;
        TARN_TOKENS(TARN_TOKEN)
#undef TARN_TOKEN
        return found;
    };
#define TARN_TOKEN(value, constant, spelling)                                                                          \
    if (value >= 20 && value < operators) {                                                                            \
        std::string_view text = spelling;                                                                              \
        char last = text.back();                                                                                       \
        if (OPERATOR_CHARACTERS.find(last) != text.npos)                                                               \
            steps[number(text.substr(0, text.size() - 1))][static_cast<std::size_t>(last)] = value;                    \
    }
    TARN_TOKENS(TARN_TOKEN)
#undef TARN_TOKEN
    return steps;
}();

/// The operator `kind` (0 for none) prolonged by the character; 0 if that is none.
std::uint8_t operatorStep(std::uint8_t kind, int code) {
    return code < 128 ? operatorSteps[kind][code] : 0;
}

Token separator(int code) {
    switch (code) {
    case ',': return Token::COMMA;
    case ';': return Token::SEMICOLON;
    case '(': return Token::LPAREN;
    case ')': return Token::RPAREN;
    case '[': return Token::LBRACKET;
    case ']': return Token::RBRACKET;
    case '{': return Token::LBRACE;
    default: return Token::RBRACE;
    }
}

/// Whether only blanks and stars stand in the range, as before a tag of a doc comment.
bool isMargin(const std::uint8_t* begin, const std::uint8_t* end) {
    while (begin != end && (*begin <= ' ' || *begin == '*')) begin++;
    return begin == end;
}

bool isDeprecation(const std::uint8_t* margin, const std::uint8_t* at) {
    return std::memcmp(at, DEPRECATED.data(), DEPRECATED.size()) == 0 && isMargin(margin, at);
}

} // namespace

Scanner::Scanner(Store& source, const std::optional<std::string>& encoding)
    : at_(sourceText.load(source, encoding)), lineStart_(at_) {
    Name::fromBytes(DEPRECATED); // opens the name table, so that the operators have names
    nextToken();
}

void Scanner::error(Position where, MessageId message) {
    token = Token::BAD_SYMBOL;
    errorPos = where;
    reportError(where, message);
}

/// The character that the backslash at `at` begins. A backslash without `u` is itself, or in strict mode an error,
/// after which the next byte takes its place; so does the byte at which an escape turns out to be none.
Scanner::Char Scanner::lookAtBackslash(const std::uint8_t* at, Mode mode) {
    const std::uint8_t* digit = at + 1;
    if (*digit != 'u') {
        if (mode == LENIENT) return plain(at);
        error(positionOf(at), messages::invalidEscapeCharacter);
        return plain(digit);
    }
    while (*digit == 'u') digit++;
    int unit = 0;
    for (const std::uint8_t* end = digit + 4; digit != end; digit++) {
        int value = digitValue(*digit, 16);
        if (value < 0) {
            error(positionOf(digit), messages::invalidEscapeCharacter);
            return plain(digit);
        }
        unit = unit << 4 | value;
    }
    int code = unit;
    if (unit > 0x7F) {
        auto character = static_cast<char16_t>(unit);
        code = isJavaIdentifierStart(character)  ? ESCAPED_LETTER
               : isJavaIdentifierPart(character) ? ESCAPED_PART
                                                 : ESCAPED_OTHER;
    }
    return {at, digit, code, true};
}

/// The first character that is no bad backslash, each of which has been reported.
Scanner::Char Scanner::firstBehindBackslashes(const std::uint8_t* at) {
    Char first = look(at, STRICT);
    while (first.code == '\\' && !first.escaped) first = look(first.at, STRICT);
    return first;
}

const std::uint8_t* Scanner::endLine(const std::uint8_t* at) {
    line_++;
    lineStart_ = at;
    return at;
}

void Scanner::nextToken() {
    const std::uint8_t* at = at_;
    prevEndPos = positionOf(at);
    for (;;) {
        switch (STARTS[*at]) {
        case Start::BLANK: at = behindBlanks(at + 1); continue;
        case Start::LINE_END: at = behindBlanks(endLine(at + 1)); continue;
        case Start::CARRIAGE_RETURN: at = endLine(at + (at[1] == '\n' ? 2 : 1)); continue;
        case Start::LETTER: pos = positionOf(at); return identifier(at);
        case Start::DIGIT: pos = positionOf(at); return decimalNumber(at);
        case Start::SEPARATOR: pos = positionOf(at); return finish(separator(*at), at + 1);
        case Start::OPERATOR: pos = positionOf(at); return operatorToken(plain(at));
        case Start::DOUBLE_QUOTE: pos = positionOf(at); return stringLiteral(at);
        case Start::SLASH:
            pos = positionOf(at);
            at = slash(plain(at));
            if (at == nullptr) return;
            continue;
        default:
            pos = positionOf(at);
            if (otherToken(firstBehindBackslashes(at), at)) return;
            at = at_;
        }
    }
}

/// A token whose first character is rare or an escape; `start` is where it begins. False if it was no token but blank,
/// a line end or a comment, behind which `at_` then stands.
bool Scanner::otherToken(Char first, const std::uint8_t* start) {
    switch (STARTS[static_cast<std::size_t>(first.code)]) {
    case Start::BLANK: at_ = first.next; return false;
    case Start::LINE_END: at_ = endLine(first.next); return false;
    case Start::CARRIAGE_RETURN: at_ = endLine(first.next + (*first.next == '\n' ? 1 : 0)); return false;
    case Start::LETTER: identifierWithEscapes(start, first.next); return true;
    case Start::ZERO: zero(first); return true;
    case Start::DIGIT:
        literal_.clear();
        number(first, 10);
        return true;
    case Start::DOT: dot(first); return true;
    case Start::SEPARATOR: finish(separator(first.code), first.next); return true;
    case Start::OPERATOR: operatorToken(first); return true;
    case Start::QUOTE: characterLiteral(first); return true;
    case Start::DOUBLE_QUOTE: stringWithEscapes(first.next, first.next); return true;
    case Start::SLASH: {
        const std::uint8_t* behind = slash(first);
        if (behind != nullptr) at_ = behind;
        return behind == nullptr;
    }
    case Start::END:
        // An escaped one ends nothing, but may stand at the very end of a program.
        if (first.escaped && *first.next != END_MARKER) break;
        finish(Token::END_OF_INPUT, first.escaped ? first.next : first.at);
        return true;
    case Start::BACKSLASH: // an escaped one
    case Start::OTHER: break;
    }
    if (!first.escaped && first.code >= 0x80 && isJavaIdentifierStart(static_cast<char16_t>(first.code))) {
        identifierWithEscapes(start, first.next);
        return true;
    }
    at_ = first.next;
    error(pos, messages::illegalCharacter);
    return true;
}

void Scanner::enterWord(Name* word, const std::uint8_t* end) {
    name = word;
    finish(tokenOf(word), end);
}

void Scanner::identifier(const std::uint8_t* start) {
    const std::uint8_t* at = start;
    do at++;
    while (isIn(*at, WORD));
    if (isIn(*at, WORD_ODD)) [[unlikely]]
        return identifierWithEscapes(start, at);
    enterWord(Name::fromBytes(start, static_cast<std::size_t>(at - start)), at);
}

/// The rest of a word that begins at `start` and holds, or may hold, escapes or bytes from 128 up.
void Scanner::identifierWithEscapes(const std::uint8_t* start, const std::uint8_t* at) {
    for (;;) {
        while (isIn(*at, WORD) || *at >= 0x80) at++;
        if (*at != '\\') break;
        Char part = look(at, STRICT);
        if (!isIn(part.code, WORD) && part.code < 0x80) break;
        at = part.next;
    }
    enterWord(Name::fromSource(start, static_cast<std::size_t>(at - start)), at);
}

void Scanner::operatorToken(Char first) {
    std::uint8_t kind = operatorStep(0, first.code);
    const std::uint8_t* end = first.next;
    for (;;) {
        Char next = look(end, STRICT);
        std::uint8_t longer = operatorStep(kind, next.code);
        if (longer == 0) break;
        kind = longer;
        end = next.next;
    }
    finish(static_cast<Token>(kind), end);
    name = spellingOf(token);
}

/// A division, which is a token, or a comment. Returns where to go on behind a comment, null if there is a token.
const std::uint8_t* Scanner::slash(Char first) {
    Char next = look(first.next, LENIENT);
    switch (next.code) {
    case '/': return lineComment(next.next);
    case '*': return blockComment(next.next);
    case '=': finish(Token::SLASH_ASSIGN, next.next); break;
    default: finish(Token::SLASH, first.next);
    }
    name = spellingOf(token);
    return nullptr;
}

/// Steps over the backslash at `at` and what belongs to it; `resolved` is the character. Two backslashes are a pair,
/// behind which `u` begins no escape.
const std::uint8_t* Scanner::commentEscape(const std::uint8_t* at, Char& resolved) {
    resolved = look(at, LENIENT);
    if (resolved.escaped) return resolved.next;
    if (resolved.at != at) return resolved.at; // no escape: from the byte that says so
    return at + (at[1] == '\\' ? 2 : 1);
}

/// Up to the line end, which is not part of it; an escaped line end is, and counts no line.
const std::uint8_t* Scanner::lineComment(const std::uint8_t* at) {
    for (;;) {
        while (!isIn(*at, LINE_STOP)) at++;
        if (*at != '\\') return at;
        Char escape;
        at = commentEscape(at, escape);
        if (escape.escaped && (escape.code == '\n' || escape.code == '\r')) return at;
    }
}

/// The comment whose text begins at `at`. Returns where to go on; null if it is not closed, which is a bad symbol.
const std::uint8_t* Scanner::blockComment(const std::uint8_t* at) {
    const bool isDoc = *at == '*';
    const std::uint8_t* margin = at; // where the current line of the comment begins, or anything but blanks and stars
    bool afterStar = false;
    for (;;) {
        const std::uint8_t* run = at;
        while (!isIn(*at, BLOCK_STOP)) at++;
        afterStar = afterStar && at == run;
        Char c = plain(at);
        const std::uint8_t* next = at + 1;
        if (c.code == '\\') {
            next = commentEscape(at, c);
            if (!c.escaped) c.code = '\\'; // nothing special, whatever comes behind it
        }
        switch (c.code) {
        case '*':
            while (*next == '*') next++;
            if (*next == '/') return next + 1;
            if (c.escaped && isMargin(margin, at)) margin = next;
            break;
        case '/':
            if (afterStar) return next;
            break;
        case '@':
            if (isDoc && isDeprecation(margin, at)) deprecatedFlag = true;
            break;
        case '\r':
            if (*next == '\n') next++;
            [[fallthrough]];
        case '\n': margin = endLine(next); break;
        case END_MARKER:
            if (c.escaped) break;
            at_ = at;
            error(pos, messages::unclosedComment);
            return nullptr;
        default:
            if (c.escaped && c.code <= ' ' && isMargin(margin, at)) margin = next;
        }
        afterStar = c.code == '*';
        at = next;
    }
}

} // namespace tarn
