// Passing over code in which no class is defined, for a parse that only looks for classes.
//
// Bytes are all that is looked at: comments, quoted literals, words and brackets. Whatever makes this uncertain, such
// as an escape or a bracket without its partner, is left to a full parse.

#include "syntax/char_class.h"
#include "syntax/scanner.h"

#include <cstring>
#include <string_view>

namespace tarn {

namespace {

/// Looks for the brace that closes a block.
class BlockEnd {
public:
    const std::uint8_t* lineStart; ///< first byte of the line that `find` came to
    unsigned lines = 0;            ///< ended on the way

    explicit BlockEnd(const std::uint8_t* lineStart) : lineStart(lineStart) {}

    /// The closing brace of the block that was opened before `at`; null if there may be a class in it, or if it can't
    /// be told where it ends.
    const std::uint8_t* find(const std::uint8_t* at);

private:
    /// What was passed last, as far as it matters.
    enum class Last { OTHER, DOT, CREATOR_NAME, CREATOR_ARGUMENTS };

    const std::uint8_t* word(const std::uint8_t* at);
    const std::uint8_t* separator(const std::uint8_t* at);
    const std::uint8_t* slash(const std::uint8_t* at);
    const std::uint8_t* blockComment(const std::uint8_t* at);
    const std::uint8_t* lineEnd(const std::uint8_t* at);
    bool closeParenthesis();

    static constexpr int MOST_PARENTHESES = 64;

    Last last_ = Last::OTHER;
    int braces_ = 1;
    int parentheses_ = 0;
    std::uint64_t creators_ = 0; ///< a bit for each open parenthesis, the innermost lowest: whether it belongs to `new`
};

const std::uint8_t* BlockEnd::lineEnd(const std::uint8_t* at) {
    at += at[0] == '\r' && at[1] == '\n' ? 2 : 1;
    lines++;
    return lineStart = at;
}

/// Behind the word at `at`; null if it defines a class.
const std::uint8_t* BlockEnd::word(const std::uint8_t* at) {
    const std::uint8_t* start = at;
    do at++;
    while (isIn(*at, WORD));
    std::string_view text(reinterpret_cast<const char*>(start), static_cast<std::size_t>(at - start));
    if (text == "new") {
        last_ = Last::CREATOR_NAME;
        return at;
    }
    if ((text == "class" && last_ != Last::DOT) || text == "interface") return nullptr;
    if (last_ != Last::CREATOR_NAME) last_ = Last::OTHER;
    return at;
}

/// False if none is open.
bool BlockEnd::closeParenthesis() {
    if (parentheses_-- == 0) return false;
    last_ = (creators_ & 1) != 0 ? Last::CREATOR_ARGUMENTS : Last::OTHER;
    creators_ >>= 1;
    return true;
}

/// Behind the separator at `at`; null if it begins the body of an anonymous class or has no partner.
const std::uint8_t* BlockEnd::separator(const std::uint8_t* at) {
    Last last = last_;
    last_ = Last::OTHER;
    switch (*at) {
    case '(':
        if (parentheses_++ == MOST_PARENTHESES) return nullptr;
        creators_ = creators_ << 1 | (last == Last::CREATOR_NAME ? 1 : 0);
        break;
    case ')':
        if (!closeParenthesis()) return nullptr;
        break;
    case '{':
        if (last == Last::CREATOR_ARGUMENTS) return nullptr;
        braces_++;
        break;
    case '}': braces_--; break;
    default: break;
    }
    return at + 1;
}

/// Behind the comment or operator at `at`; null if the comment's end is unclear.
const std::uint8_t* BlockEnd::slash(const std::uint8_t* at) {
    if (at[1] == '*') return blockComment(at + 2);
    if (at[1] != '/') {
        last_ = Last::OTHER;
        return at + 1;
    }
    at += 2;
    while (!isIn(*at, LINE_STOP)) at++;
    return *at == '\\' ? nullptr : at;
}

const std::uint8_t* BlockEnd::blockComment(const std::uint8_t* at) {
    for (;;) {
        while (!isIn(*at, BLOCK_STOP)) at++;
        switch (*at) {
        case '*':
            if (at[1] == '/') return at + 2;
            at++;
            break;
        case '\n':
        case '\r': at = lineEnd(at); break;
        case '\\':
        case END_MARKER: return nullptr;
        default: at++;
        }
    }
}

/// Behind the literal at `at`; null if it holds anything but plain characters and escape sequences of one.
const std::uint8_t* quoted(const std::uint8_t* at) {
    const std::uint8_t quote = *at++;
    for (; *at != quote; at++) {
        if (*at == '\\' && *++at == 'u') return nullptr;
        if (*at == '\n' || *at == '\r' || *at == END_MARKER) return nullptr;
    }
    return at + 1;
}

const std::uint8_t* BlockEnd::find(const std::uint8_t* at) {
    while (at != nullptr) {
        switch (STARTS[*at]) {
        case Start::BLANK: at = behindBlanks(at + 1); break;
        case Start::LINE_END:
        case Start::CARRIAGE_RETURN: at = lineEnd(at); break;
        case Start::LETTER: at = word(at); break;
        case Start::SLASH: at = slash(at); break;
        case Start::SEPARATOR: {
            const std::uint8_t* here = at;
            at = separator(at);
            if (braces_ == 0) return parentheses_ == 0 ? here : nullptr;
            break;
        }
        case Start::DOT:
            if (last_ != Last::CREATOR_NAME) last_ = Last::DOT;
            at++;
            break;
        case Start::QUOTE:
        case Start::DOUBLE_QUOTE:
            last_ = Last::OTHER;
            at = quoted(at);
            break;
        case Start::ZERO:
        case Start::DIGIT:
        case Start::OPERATOR:
            last_ = Last::OTHER;
            at++;
            break;
        default: return nullptr; // the end, an escape, or a letter beyond ASCII
        }
    }
    return nullptr;
}

} // namespace

bool Scanner::skipBlock() {
    BlockEnd end(lineStart_);
    const std::uint8_t* brace = end.find(at_);
    if (brace == nullptr) return false;
    line_ += end.lines;
    lineStart_ = end.lineStart;
    at_ = brace;
    nextToken();
    return true;
}

} // namespace tarn
