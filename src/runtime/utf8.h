#pragma once

#include "runtime/unicode.h"

#include <string>
#include <string_view>

namespace tarn {

/// Appends a character in UTF-8. What is no character (a lone surrogate, a value above U+10FFFF) becomes U+FFFD.
inline void appendUtf8(std::string& text, char32_t character) {
    if (isHighSurrogate(character) || isLowSurrogate(character) || character > 0x10FFFF) character = 0xFFFD;
    auto put = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    if (character < 0x80) return put(character);
    if (character < 0x800) {
        put(0xC0 | character >> 6);
    } else {
        if (character < 0x10000) {
            put(0xE0 | character >> 12);
        } else {
            put(0xF0 | character >> 18);
            put(0x80 | (character >> 12 & 0x3F));
        }
        put(0x80 | (character >> 6 & 0x3F));
    }
    put(0x80 | (character & 0x3F));
}

/// Bytes that each stand for the Latin-1 character of that value, as UTF-8.
inline std::string latin1ToUtf8(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (char byte : bytes) appendUtf8(text, static_cast<unsigned char>(byte));
    return text;
}

} // namespace tarn
