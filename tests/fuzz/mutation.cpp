#include "mutation.h"

#include "syntax/token.h"

#include <algorithm>
#include <cctype>
#include <cstdint>

namespace tarn::fuzz {

namespace {

// ---- bytes

/// Bytes that mean something in one of the formats.
constexpr char TELLING_BYTES[] =
    "\0\1\2\3\4\7\b\t\n\f\r\x1a \"#$%'()*+./0:;<=>@L[\\]_uxV{|}~\x7f\x80\xc0\xe0\xed\xf0\xfe\xff";

char tellingByte(Random& random) {
    return TELLING_BYTES[random.below(sizeof TELLING_BYTES - 1)];
}

void mutateByte(Random& random, std::string& text) {
    if (text.empty()) text = "x";
    std::size_t at = random.below(text.size());
    std::size_t length = 1 + random.below(random.oneIn(4) ? std::min<std::size_t>(text.size(), 300) : 4);
    switch (random.below(9)) {
    case 0: text[at] = static_cast<char>(text[at] ^ 1 << random.below(8)); break;
    case 1: text[at] = tellingByte(random); break;
    case 2: text[at] = static_cast<char>(text[at] + (random.oneIn(2) ? 1 : -1)); break;
    case 3: text.insert(at, 1, tellingByte(random)); break;
    case 4: text.insert(at, text.substr(random.below(text.size()), length)); break;
    case 5: text.erase(at, length); break;
    case 6:
        if (random.oneIn(3)) text.resize(at);
        break;
    case 7:
        for (std::size_t i = at; i < std::min(text.size(), at + length); ++i)
            text[i] = static_cast<char>(random.next());
        break;
    default: {
        std::size_t from = random.below(text.size());
        text.replace(at, length, text.substr(from, length));
    }
    }
}

// ---- tokens

using Tokens = std::vector<std::string>;

bool isWord(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '$' || (c & 0x80) != 0;
}

/// The end of the token that begins at `at`. Rough: what this takes for a token is only where a mutation may cut.
std::size_t tokenEnd(std::string_view text, std::size_t at) {
    std::size_t end = at + 1;
    char c = text[at];
    if (std::isspace(static_cast<unsigned char>(c)) != 0) {
        while (end < text.size() && std::isspace(static_cast<unsigned char>(text[end])) != 0) ++end;
    } else if (isWord(c)) {
        while (end < text.size() &&
               (isWord(text[end]) || (text[end] == '.' && std::isdigit(static_cast<unsigned char>(c)) != 0)))
            ++end;
    } else if (c == '"' || c == '\'') {
        while (end < text.size() && text[end] != c && text[end] != '\n') end += text[end] == '\\' ? 2 : 1;
        end = std::min(end + 1, text.size());
    } else if (text.substr(at, 2) == "//") {
        end = std::min(text.find('\n', at), text.size());
    } else if (text.substr(at, 2) == "/*") {
        std::size_t close = text.find("*/", at + 2);
        end = close == std::string_view::npos ? text.size() : close + 2;
    } else {
        constexpr std::string_view LONG_OPERATORS[] = {">>>=", ">>>", "<<=", ">>=", "++", "--", "&&", "||",
                                                       "==",   "!=",  "<=",  ">=",  "+=", "-=", "*=", "/=",
                                                       "%=",   "&=",  "|=",  "^=",  "<<", ">>"};
        for (std::string_view op : LONG_OPERATORS)
            if (text.substr(at, op.size()) == op) return at + op.size();
    }
    return end;
}

/// Without blanks and comments.
Tokens tokensOf(std::string_view text) {
    Tokens tokens;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = tokenEnd(text, at);
        bool isComment = text[at] == '/' && at + 1 < text.size() && (text[at + 1] == '/' || text[at + 1] == '*');
        if (std::isspace(static_cast<unsigned char>(text[at])) == 0 && !isComment)
            tokens.emplace_back(text.substr(at, end - at));
        at = end;
    }
    return tokens;
}

std::string textOf(const Tokens& tokens) {
    std::string text;
    for (const std::string& token : tokens) {
        text += token;
        text += token == ";" || token == "{" || token == "}" ? '\n' : ' ';
    }
    return text;
}

/// What mutations put in besides tokens, with a "@" between.
constexpr std::string_view PIECES =
    "0@1@-1@2147483647@2147483648@9223372036854775807L@0x80000000@1e400@1e-400f@0x@08@1.5f@'a'@'\\u0000'@\"\"@\"s\"@"
    "\"\\777\"@Object@String@Class@Main@length@clone@length()@x@this.x@super.x@Main.this@this()@super()@Object.class@"
    "int[].class@void.class@new Object() { }@new int[0]@{ 1, 2 }@(int)@(byte)@(long)@(Object)@(String[])@x:@break x;@"
    "continue x;@return;@return 0;@throw null;@try { } finally { return; }@synchronized (this) { }@static { }@"
    "class L { }@final int x = 1;@interface I { }@case 0:@default:@switch (0) { case 0: }@int x;@extends Object@"
    "implements Cloneable@throws Exception@catch (Throwable t) { }@? 1 : 2@instanceof Object@i++@1 / 0@1 % 0L@"
    "Integer.MIN_VALUE / -1@java.lang.Object@java@java.lang@import java.util.*;@strictfp";

/// The pieces, and the tokens that have one spelling.
const Tokens& dictionary() {
    static const Tokens all = [] {
        Tokens tokens;
        for (std::size_t at = 0; at < PIECES.size(); at = std::min(PIECES.find('@', at), PIECES.size()) + 1)
            tokens.emplace_back(PIECES.substr(at, PIECES.find('@', at) - at));
        for (std::string_view text : {
#define TARN_TOKEN(number, constant, text) std::string_view(text),
                 TARN_TOKENS(TARN_TOKEN)
#undef TARN_TOKEN
             }) {
            if (text.front() == '\'') text = text.substr(1, 1);
            if (text.front() != '<' || !text.ends_with('>')) tokens.emplace_back(text);
        }
        return tokens;
    }();
    return all;
}

bool isName(const std::string& token) {
    return std::isalpha(static_cast<unsigned char>(token.front())) != 0 || token.front() == '_';
}

/// The end (behind the bracket) of the group that opens at `at`; `at` if it does not close.
std::size_t groupEnd(const Tokens& tokens, std::size_t at) {
    int depth = 0;
    for (std::size_t i = at; i < tokens.size(); ++i) {
        char c = tokens[i].size() == 1 ? tokens[i].front() : ' ';
        if (c == '(' || c == '[' || c == '{') ++depth;
        if (c == ')' || c == ']' || c == '}') --depth;
        if (depth == 0) return i + 1;
    }
    return at;
}

struct Range {
    std::size_t begin;
    std::size_t end;
};

/// A range of tokens that is likely to be of one piece: a bracketed group, or what runs up to a ";".
Range piece(Random& random, const Tokens& tokens, std::string_view opening) {
    for (int tries = 0; tries < 30; ++tries) {
        std::size_t at = random.below(tokens.size());
        if (opening == ";") {
            if (tokens[at] != ";" && tokens[at] != "}" && tokens[at] != "{") continue;
            std::size_t end = at + 1;
            while (end < tokens.size() && tokens[end] != ";" && tokens[end] != "}")
                end = tokens[end] == "(" || tokens[end] == "{" ? std::max(groupEnd(tokens, end), end + 1) : end + 1;
            if (end < tokens.size() && tokens[end] == ";") return {at + 1, end + 1};
        } else if (tokens[at] == opening) {
            return {at, groupEnd(tokens, at)};
        }
    }
    return {0, 0};
}

void replace(Tokens& tokens, Range range, const Tokens& with) {
    auto begin = tokens.begin() + static_cast<std::ptrdiff_t>(range.begin);
    tokens.erase(begin, begin + static_cast<std::ptrdiff_t>(range.end - range.begin));
    tokens.insert(tokens.begin() + static_cast<std::ptrdiff_t>(range.begin), with.begin(), with.end());
}

Tokens slice(const Tokens& tokens, Range range) {
    return {tokens.begin() + static_cast<std::ptrdiff_t>(range.begin),
            tokens.begin() + static_cast<std::ptrdiff_t>(range.end)};
}

/// Another name of the donor, in place of one.
void renameOne(Random& random, Tokens& tokens, const Tokens& donor) {
    for (int tries = 0; tries < 50; ++tries) {
        std::string& token = tokens[random.below(tokens.size())];
        const std::string& other = donor[random.below(donor.size())];
        if (!isName(token) || !isName(other)) continue;
        token = other;
        return;
    }
}

void replacePiece(Random& random, Tokens& tokens, const Tokens& donor) {
    constexpr std::string_view OPENINGS[] = {"(", "{", "[", ";", ";", "("};
    std::string_view opening = OPENINGS[random.below(std::size(OPENINGS))];
    Range from = piece(random, donor, opening);
    if (from.begin == from.end) return;
    Tokens inserted = slice(donor, from);
    if (inserted.size() > 400) return;
    Range to = piece(random, tokens, opening);
    if (to.begin == to.end || random.oneIn(3)) to.end = to.begin;
    replace(tokens, to, inserted);
}

/// Puts the same thing around a token, or around a piece, many times.
void nest(Random& random, Tokens& tokens) {
    struct Wrapping {
        std::string_view before;
        std::string_view after;
        std::string_view piece; ///< what is wrapped; empty for a single token
    };
    constexpr Wrapping WRAPPINGS[] = {{"(", ")", ""},
                                      {"-", "", ""},
                                      {"!", "", ""},
                                      {"(int)", "", ""},
                                      {"", "[]", ""},
                                      {"", ".x", ""},
                                      {"1 +", "", ""},
                                      {"\"\" +", "", ""},
                                      {"true ?", ": 1", "("},
                                      {"{", "}", ";"},
                                      {"if (true)", "", ";"},
                                      {"x:", "", ";"},
                                      {"try {", "} finally { }", ";"},
                                      {"for (;;)", "", ";"},
                                      {"do", "while (false);", ";"},
                                      {"synchronized (this)", "", "{"},
                                      {"class L {", "}", ";"},
                                      {"new Object() {", "}", ";"},
                                      {"while (true) {", "}", ";"},
                                      {"x = ", "", "("}};
    const Wrapping& w = WRAPPINGS[random.below(std::size(WRAPPINGS))];
    std::size_t at = random.below(tokens.size());
    Range range = w.piece.empty() ? Range{at, at + 1} : piece(random, tokens, w.piece);
    if (range.begin == range.end) return;
    std::size_t times = random.oneIn(40) ? 1 + random.below(3000) : 1 + random.below(6);
    Tokens wrapped(w.before.empty() ? 0 : times, std::string(w.before));
    Tokens inside = slice(tokens, range);
    wrapped.insert(wrapped.end(), inside.begin(), inside.end());
    wrapped.insert(wrapped.end(), w.after.empty() ? 0 : times, std::string(w.after));
    replace(tokens, range, wrapped);
}

void mutateToken(Random& random, Tokens& tokens, const Tokens& donor) {
    if (tokens.empty()) tokens.emplace_back("class");
    std::size_t at = random.below(tokens.size());
    switch (random.below(16)) {
    case 0: tokens.erase(tokens.begin() + static_cast<std::ptrdiff_t>(at)); break;
    case 1: tokens.insert(tokens.begin() + static_cast<std::ptrdiff_t>(at), tokens[random.below(tokens.size())]); break;
    case 2: std::swap(tokens[at], tokens[random.below(tokens.size())]); break;
    case 3: tokens[at] = random.oneOf(dictionary()); break;
    case 4: tokens.insert(tokens.begin() + static_cast<std::ptrdiff_t>(at), random.oneOf(dictionary())); break;
    case 5: tokens.resize(random.oneIn(6) ? at : tokens.size()); break;
    case 6:
    case 7: nest(random, tokens); break;
    case 8:
    case 9:
    case 10: replacePiece(random, tokens, donor); break;
    default: renameOne(random, tokens, random.oneIn(3) ? donor : Tokens(tokens)); break;
    }
}

} // namespace

void mutateBytes(Random& random, std::string& text) {
    for (std::size_t count = 1 + random.below(random.oneIn(4) ? 12 : 2); count != 0; --count) mutateByte(random, text);
}

void mutateTokens(Random& random, std::string& text, std::span<const File> others) {
    Tokens tokens = tokensOf(text);
    Tokens donor = random.oneIn(2) || others.empty() ? tokens : tokensOf(others[random.below(others.size())].text);
    if (donor.empty()) donor = {"x"};
    for (std::size_t count = 1 + random.below(random.oneIn(4) ? 8 : 2); count != 0; --count)
        mutateToken(random, tokens, donor);
    text = textOf(tokens);
}

} // namespace tarn::fuzz
