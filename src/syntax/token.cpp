#include "syntax/token.h"

#include "runtime/failure.h"

#include <array>

namespace tarn {

namespace {

constexpr std::array<std::string_view, TOKEN_KINDS> makeTexts() {
    std::array<std::string_view, TOKEN_KINDS> texts{};
#define TARN_TOKEN(number, constant, text) texts[number] = text;
    TARN_TOKENS(TARN_TOKEN)
#undef TARN_TOKEN
    return texts;
}

constexpr auto texts = makeTexts();
constexpr std::size_t firstSpelling = static_cast<std::size_t>(Token::PLUS);
constexpr std::size_t lastSpelling = static_cast<std::size_t>(Token::FALSE_LITERAL);

/// Bytes that the spellings take at the beginning of the name pool.
constexpr std::size_t spellingBytes = [] {
    std::size_t sum = 0;
    for (std::size_t kind = firstSpelling; kind <= lastSpelling; kind++) sum += texts[kind].size();
    return sum;
}();

/// Kind by the `index` of a name.
constexpr std::array<Token, spellingBytes> kindsByIndex = [] {
    std::array<Token, spellingBytes> kinds{};
    std::size_t index = 0;
    for (std::size_t kind = firstSpelling; kind <= lastSpelling; kind++) {
        if (texts[kind].empty()) continue;
        kinds[index] = static_cast<Token>(kind);
        index += texts[kind].size();
    }
    return kinds;
}();

constinit std::array<Name*, TOKEN_KINDS> spellings{};

} // namespace

std::string_view tokenName(Token kind) {
    return texts[static_cast<std::size_t>(kind)];
}

Token tokenOf(const Name* name) {
    return name->index < spellingBytes ? kindsByIndex[name->index] : Token::IDENTIFIER;
}

Name* spellingOf(Token kind) {
    return spellings[static_cast<std::size_t>(kind)];
}

void enterTokenSpellings() {
    for (std::size_t kind = firstSpelling; kind <= lastSpelling; kind++) {
        if (texts[kind].empty()) continue;
        spellings[kind] = Name::fromBytes(texts[kind]);
        require(tokenOf(spellings[kind]) == static_cast<Token>(kind), "token spellings are not the first names");
    }
}

} // namespace tarn
