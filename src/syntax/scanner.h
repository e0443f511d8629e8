#pragma once

#include "driver/messages.h"
#include "store/store.h"
#include "syntax/name.h"
#include "syntax/position.h"
#include "syntax/token.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace tarn {

template <class Float>
struct ParsedFloat;

/// Turns one source into tokens, for one parse from the first token to END_OF_INPUT.
///
/// It works on the bytes of the decoded text, in which a character above 127 is either an escape \uXXXX or, without an
/// encoding, a Latin-1 byte. There are no token objects: the fields below describe the current token. The text lies
/// in one buffer of the process, so that only the scanner made last is valid.
///
/// An error of the text is reported with its position, and the token is BAD_SYMBOL or a best guess; scanning always
/// goes on, and ends at END_OF_INPUT, which repeats itself.
class Scanner {
public:
    /// Reads the whole source and its first token. `encoding` names the converter of the source's bytes; absent for
    /// bytes as they are. Throws IoFailure if the source can't be read, MalformedInput and UnsupportedEncoding if it
    /// can't be decoded.
    Scanner(Store& source, const std::optional<std::string>& encoding);
    Scanner(const Scanner&) = delete;
    Scanner& operator=(const Scanner&) = delete;

    /// Moves to the next token.
    void nextToken();
    /// Moves from the brace that opens a block to the one that closes it, without a look at its tokens. False, and
    /// nothing was done, if there may be a class in the block or its end is in doubt.
    [[nodiscard]] bool skipBlock();

    Token token = Token::BAD_SYMBOL;   ///< kind of the current token
    Position pos = NO_POSITION;        ///< its start
    Position prevEndPos = NO_POSITION; ///< just behind the token before
    Name* name = nullptr;              ///< text of an identifier, keyword or operator; else of one before
    std::int64_t longValue = 0;  ///< of a CHAR_LITERAL (a UTF-16 unit), INT_LITERAL (sign-extended) or LONG_LITERAL
    double doubleValue = 0;      ///< of a FLOAT_LITERAL (exactly the float) or DOUBLE_LITERAL
    Name* stringValue = nullptr; ///< of a STRING_LITERAL, with all escapes resolved
    Position errorPos = -1;      ///< of the last syntax error, which the parser sets too; -1 at first
    bool deprecatedFlag = false; ///< a doc comment said "@deprecated"; cleared by who uses it
    /// Set by the parser if a unary minus stands before the next token, so that the smallest int and long are literals.
    /// It counts only while the current token is that MINUS; the parser clears it at a binary minus.
    bool negativeLiteral = false;

private:
    /// One character of the text: a byte, or an escape that stands for one.
    struct Char {
        const std::uint8_t* at;   ///< its first byte
        const std::uint8_t* next; ///< behind its last byte
        int code;                 ///< the byte; of an escape the ASCII character, or one of the classes below
        bool escaped;
    };
    /// Codes of escaped characters above 127: what may start an identifier passes for a letter, what is no part of one
    /// for a character that nothing begins with, and what may only continue one has a code that no byte has.
    enum : int { ESCAPED_LETTER = 'Z', ESCAPED_OTHER = 0x7F, ESCAPED_PART = 0x100 };
    /// Whether a backslash without `u` is an error, as it is outside of comments and literals.
    enum Mode : bool { LENIENT, STRICT };

    Char plain(const std::uint8_t* at) const { return {at, at + 1, *at, false}; }
    Char look(const std::uint8_t* at, Mode mode) { return *at != '\\' ? plain(at) : lookAtBackslash(at, mode); }
    Char lookAtBackslash(const std::uint8_t* at, Mode mode);
    Char firstBehindBackslashes(const std::uint8_t* at);

    void identifier(const std::uint8_t* start);
    void identifierWithEscapes(const std::uint8_t* start, const std::uint8_t* at);
    void enterWord(Name* word, const std::uint8_t* end);
    void operatorToken(Char first);
    bool otherToken(Char first, const std::uint8_t* start);
    const std::uint8_t* slash(Char first);
    const std::uint8_t* lineComment(const std::uint8_t* at);
    const std::uint8_t* blockComment(const std::uint8_t* at);
    const std::uint8_t* commentEscape(const std::uint8_t* at, Char& resolved);
    const std::uint8_t* endLine(const std::uint8_t* at);

    void decimalNumber(const std::uint8_t* start);
    void zero(Char first);
    void dot(Char first);
    void number(Char at, int radix);
    Char digits(Char at, int radix);
    void fraction(Char at);
    template <class Float>
    void floatingValue(const ParsedFloat<Float>& parsed);
    void integerValue(int radix, std::int64_t limit);

    void characterLiteral(Char quote);
    void stringLiteral(const std::uint8_t* quote);
    void stringWithEscapes(const std::uint8_t* start, const std::uint8_t* plainEnd);
    static bool endsLiteral(Char at);
    Char literalCharacter(Char at);
    Char escapeSequence(Char backslash);
    Char octalEscape(Char at);

    void finish(Token kind, const std::uint8_t* end) {
        token = kind;
        at_ = end;
    }
    void error(Position where, MessageId message);
    void numberError(MessageId message);
    Position positionOf(const std::uint8_t* at) const {
        return makePosition(line_, static_cast<unsigned>(at - lineStart_) + 1);
    }

    const std::uint8_t* at_;        ///< the next byte
    const std::uint8_t* lineStart_; ///< first byte of the current line
    unsigned line_ = 1;
    std::string literal_; ///< text of the literal being scanned
};

} // namespace tarn
