// Numbers, characters and strings. What is a plain run of bytes is taken from the text as it stands; anything else
// is collected in `literal_`: the digits of a number, or the text of a quoted literal with its escapes, which the name
// table resolves.

#include "driver/reporter.h"
#include "runtime/java_number.h"
#include "runtime/unicode.h"
#include "syntax/char_class.h"
#include "syntax/scanner.h"

#include <limits>

namespace tarn {

namespace {

const std::uint8_t* bytesOf(const std::string& text) {
    return reinterpret_cast<const std::uint8_t*>(text.data());
}

bool isOctal(int code) {
    return code >= '0' && code <= '7';
}

bool isOneOf(int code, char a, char b) {
    return code == a || code == b;
}

} // namespace

/// An error that leaves the token its kind.
void Scanner::numberError(MessageId message) {
    errorPos = pos;
    reportError(pos, message);
}

/// A number from 1 up. Up to nine digits and nothing else are surely an int.
void Scanner::decimalNumber(const std::uint8_t* start) {
    const std::uint8_t* at = start;
    std::int64_t value = 0;
    do value = value * 10 + (*at++ - '0');
    while (isIn(*at, DIGIT_SET) && at - start < 9);
    if (isIn(*at, NUMBER_MORE)) {
        literal_.clear();
        return number(plain(start), 10);
    }
    longValue = value;
    finish(Token::INT_LITERAL, at);
}

void Scanner::zero(Char first) {
    literal_ = '0';
    Char next = look(first.next, STRICT);
    if (isOneOf(next.code, 'x', 'X')) return number(look(next.next, STRICT), 16);
    number(next, 8);
}

void Scanner::dot(Char first) {
    Char next = look(first.next, STRICT);
    if (digitValue(next.code, 10) < 0) return finish(Token::DOT, first.next);
    literal_ = '.';
    fraction(next);
}

/// Collects digits from `at` on and returns the character behind them.
Scanner::Char Scanner::digits(Char at, int radix) {
    for (; digitValue(at.code, radix) >= 0; at = look(at.next, STRICT)) literal_ += static_cast<char>(at.code);
    return at;
}

/// Takes over a parsed value, or what is wrong with it.
template <class Float>
void Scanner::floatingValue(const ParsedFloat<Float>& parsed) {
    doubleValue = parsed.value;
    switch (parsed.status) {
    case ParsedFloat<Float>::FINE: break;
    case ParsedFloat<Float>::MALFORMED: return numberError(messages::malformedFloatingPointNumber);
    case ParsedFloat<Float>::UNDERFLOWN: return numberError(messages::numericUnderflow);
    case ParsedFloat<Float>::OVERFLOWN: return numberError(messages::numericOverflow);
    }
}

/// The rest of a number, `literal_` holding what came before `at`. An octal number takes 8 and 9 too, since it may turn
/// out to be a floating point number.
void Scanner::number(Char at, int radix) {
    at = digits(at, radix == 8 ? 10 : radix);
    if (radix <= 10 && at.code == '.') {
        literal_ += '.';
        return fraction(look(at.next, STRICT));
    }
    if (radix <= 10 && (isOneOf(at.code, 'e', 'E') || isOneOf(at.code, 'f', 'F') || isOneOf(at.code, 'd', 'D')))
        return fraction(at);
    if (isOneOf(at.code, 'l', 'L')) {
        integerValue(radix, std::numeric_limits<std::int64_t>::max());
        return finish(Token::LONG_LITERAL, at.next);
    }
    integerValue(radix, std::numeric_limits<std::int32_t>::max());
    longValue = static_cast<std::int32_t>(longValue);
    finish(Token::INT_LITERAL, at.at);
}

/// Sets `longValue` to the value of the digits in `literal_`, or of those before the fault that is reported. `limit` is
/// the greatest value of the type. Only a decimal number is held to it; others may use the sign bit. The token before
/// still stands in `token`.
void Scanner::integerValue(int radix, std::int64_t limit) {
    const std::int64_t divisor = radix == 10 ? 10 : radix / 2;
    const int half = radix == 10 ? 1 : 2;
    const int slack = negativeLiteral && token == Token::MINUS ? 1 : 0;
    longValue = 0;
    for (char code : literal_) {
        int digit = digitValue(code, radix);
        if (digit < 0) return numberError(messages::malformedIntegerNumber);
        if (longValue < 0 || longValue > limit / divisor || longValue * divisor - slack > limit - digit / half)
            return numberError(messages::integerNumberTooLarge);
        longValue = static_cast<std::int64_t>(static_cast<std::uint64_t>(longValue) * static_cast<unsigned>(radix) +
                                              static_cast<unsigned>(digit));
    }
}

/// The rest of a floating point number, `literal_` holding all up to a point or before the character at `at`.
void Scanner::fraction(Char at) {
    at = digits(at, 10);
    if (isOneOf(at.code, 'e', 'E')) {
        literal_ += 'e';
        at = look(at.next, STRICT);
        if (isOneOf(at.code, '+', '-')) {
            Char sign = at;
            at = look(sign.next, STRICT);
            if (digitValue(at.code, 10) >= 0)
                literal_ += static_cast<char>(sign.code);
            else
                at = sign;
        }
        at = digits(at, 10);
    }
    bool isFloat = isOneOf(at.code, 'f', 'F');
    bool hasSuffix = isFloat || isOneOf(at.code, 'd', 'D');
    if (isFloat)
        floatingValue(parseFloat(literal_));
    else
        floatingValue(parseDouble(literal_));
    finish(isFloat ? Token::FLOAT_LITERAL : Token::DOUBLE_LITERAL, hasSuffix ? at.next : at.at);
}

/// A character literal; one character, and the closing quote.
void Scanner::characterLiteral(Char quote) {
    literal_.clear();
    Char at = look(quote.next, LENIENT);
    if (at.code == '\'') {
        at_ = at.next;
        return error(pos, messages::emptyCharacterLiteral);
    }
    at = literalCharacter(at);
    if (at.code != '\'') {
        at_ = at.at;
        return error(pos, messages::unclosedCharacterLiteral);
    }
    longValue = Name::firstUnitOfSource(bytesOf(literal_), literal_.size());
    finish(Token::CHAR_LITERAL, at.next);
}

void Scanner::stringLiteral(const std::uint8_t* quote) {
    const std::uint8_t* start = quote + 1;
    const std::uint8_t* at = start;
    while (!isIn(*at, STRING_STOP)) at++;
    auto length = static_cast<std::size_t>(at - start);
    if (*at != '"') return stringWithEscapes(start, at);
    stringValue = Name::fromBytes(start, length);
    finish(Token::STRING_LITERAL, at + 1);
}

/// The rest of a string literal, whose text up to `plainEnd` is plain.
void Scanner::stringWithEscapes(const std::uint8_t* start, const std::uint8_t* plainEnd) {
    literal_.assign(start, plainEnd);
    Char at = look(plainEnd, LENIENT);
    while (at.code != '"') {
        if (endsLiteral(at)) {
            at_ = at.at;
            return error(pos, messages::unclosedCharacterLiteral);
        }
        at = literalCharacter(at);
        const std::uint8_t* run = at.at;
        while (!at.escaped && !isIn(*at.at, STRING_STOP)) at.at++;
        if (at.at == run) continue;
        literal_.append(run, at.at);
        at = look(at.at, LENIENT);
    }
    stringValue = Name::fromSource(bytesOf(literal_), literal_.size());
    finish(Token::STRING_LITERAL, at.next);
}

/// Whether a quoted literal can't go on: at a line end, even an escaped one, and at the end of the text.
bool Scanner::endsLiteral(Char at) {
    return at.code == '\n' || at.code == '\r' || (at.code == END_MARKER && !at.escaped);
}

/// Adds the character at `at`, which may be an escape sequence, to `literal_` and returns the one behind it.
Scanner::Char Scanner::literalCharacter(Char at) {
    if (at.code == '\\') return escapeSequence(at);
    if (endsLiteral(at)) return at;
    literal_.append(at.at, at.next);
    return look(at.next, LENIENT);
}

/// The same for an escape sequence. Behind a plain backslash `u` begins no escape, and behind an escaped one it does.
Scanner::Char Scanner::escapeSequence(Char backslash) {
    Char at = backslash.escaped ? look(backslash.next, LENIENT) : plain(backslash.next);
    switch (at.code) {
    case '0':
    case '1':
    case '2':
    case '3':
    case '4':
    case '5':
    case '6':
    case '7': return octalEscape(at);
    case 'b':
    case 't':
    case 'n':
    case 'f':
    case 'r':
    case '"':
    case '\'':
    case '\\': literal_ += '\\'; break;
    default:
        if (at.code < ' ') return at;
        error(positionOf(at.next - 1), messages::invalidEscapeCharacter);
        if (at.escaped) {
            literal_.append(at.at, at.next);
            return look(at.next, LENIENT);
        }
    }
    literal_ += static_cast<char>(at.code);
    return look(at.next, LENIENT);
}

/// Up to three digits, the third only if the value stays below 256.
Scanner::Char Scanner::octalEscape(Char at) {
    const int most = at.code <= '3' ? 3 : 2;
    int value = 0;
    for (int count = 0; count < most && isOctal(at.code); count++) {
        value = value * 8 + (at.code - '0');
        at = look(at.next, LENIENT);
    }
    if (value == '\\') literal_ += '\\';
    literal_ += static_cast<char>(value);
    return at;
}

} // namespace tarn
