#pragma once

#include "syntax/source_text.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace tarn {

/// What a token begins with, by its first character.
enum class Start : std::uint8_t {
    OTHER,
    BLANK,
    LINE_END,
    CARRIAGE_RETURN,
    LETTER,
    ZERO,
    DIGIT,
    DOT,
    SEPARATOR,
    OPERATOR,
    SLASH,
    QUOTE,
    DOUBLE_QUOTE,
    END,
    BACKSLASH
};

/// Sets of characters, as bits.
enum CharSet : std::uint8_t {
    WORD = 1,         ///< letters, digits, `$`, `_`
    WORD_ODD = 2,     ///< what a word may go on with, but not by its byte alone: backslashes, bytes from 128 up
    NUMBER_MORE = 4,  ///< what keeps a run of decimal digits from being a whole int literal
    LINE_STOP = 8,    ///< what a line comment must look at
    BLOCK_STOP = 16,  ///< what a block comment must look at
    STRING_STOP = 32, ///< what a string literal must look at
    DIGIT_SET = 64,
};

/// Tables of this size are indexed by a byte, or by the code 256, which stands for an escaped character that may only
/// continue an identifier.
constexpr std::size_t CHAR_CODES = 257;

constexpr std::array<Start, CHAR_CODES> STARTS = [] {
    std::array<Start, CHAR_CODES> starts{};
    auto set = [&starts](std::string_view characters, Start start) {
        for (char c : characters) starts[static_cast<std::uint8_t>(c)] = start;
    };
    set("\t ", Start::BLANK);
    set("\n\f", Start::LINE_END);
    set("\r", Start::CARRIAGE_RETURN);
    for (int c = 'a'; c <= 'z'; c++) starts[c] = starts[c - 'a' + 'A'] = Start::LETTER;
    set("$_", Start::LETTER);
    set("0", Start::ZERO);
    set("123456789", Start::DIGIT);
    set(".", Start::DOT);
    set(",;()[]{}", Start::SEPARATOR);
    set("!%&*+-:<=>?^|~", Start::OPERATOR);
    set("/", Start::SLASH);
    set("'", Start::QUOTE);
    set("\"", Start::DOUBLE_QUOTE);
    set("\\", Start::BACKSLASH);
    starts[END_MARKER] = Start::END;
    return starts;
}();

constexpr std::array<std::uint8_t, CHAR_CODES> CHAR_SETS = [] {
    std::array<std::uint8_t, CHAR_CODES> sets{};
    auto add = [&sets](std::string_view characters, int set) {
        for (char c : characters) sets[static_cast<std::uint8_t>(c)] |= static_cast<std::uint8_t>(set);
    };
    for (int c = 'a'; c <= 'z'; c++) sets[c] = sets[c - 'a' + 'A'] = WORD;
    add("$_", WORD);
    add("0123456789", WORD | NUMBER_MORE | DIGIT_SET);
    add(".eEfFdDlL\\", NUMBER_MORE);
    add("\\", WORD_ODD | LINE_STOP | BLOCK_STOP | STRING_STOP);
    add("\r\n\x1A", LINE_STOP | BLOCK_STOP | STRING_STOP);
    add("*@", BLOCK_STOP);
    add("\"", STRING_STOP);
    add(std::string_view("\0", 1), STRING_STOP);
    for (int c = 128; c < 256; c++) sets[c] = WORD_ODD | STRING_STOP;
    sets[256] = WORD;
    return sets;
}();

/// Behind the blanks at `at`. Indentation is a large part of a source, so it goes by eight bytes; there are always as
/// many behind the text.
inline const std::uint8_t* behindBlanks(const std::uint8_t* at) {
    for (;; at += 8) {
        std::uint64_t bytes;
        std::memcpy(&bytes, at, sizeof bytes);
        std::uint64_t others = bytes ^ 0x2020202020202020;
        if (others == 0) continue;
        constexpr bool isLittle = std::endian::native == std::endian::little;
        return at + (isLittle ? std::countr_zero(others) : std::countl_zero(others)) / 8;
    }
}

constexpr bool isIn(int code, int set) {
    return (CHAR_SETS[static_cast<std::size_t>(code)] & set) != 0;
}

} // namespace tarn
