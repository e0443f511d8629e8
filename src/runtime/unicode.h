#pragma once

namespace tarn {

// The classes of java.lang.Character for the Basic Multilingual Plane (Unicode 13, from JDK 17).

/// Whether the UTF-16 unit may start a Java identifier.
bool isJavaIdentifierStart(char16_t unit);
/// Whether it may stand in one behind the start; holds for all that may start one.
bool isJavaIdentifierPart(char16_t unit);

/// Value of the ASCII digit or letter in a radix of at most 16; -1 if it is no digit there.
constexpr int digitValue(int character, int radix) {
    int value = character >= '0' && character <= '9'   ? character - '0'
                : character >= 'a' && character <= 'f' ? character - 'a' + 10
                : character >= 'A' && character <= 'F' ? character - 'A' + 10
                                                       : 16;
    return value < radix ? value : -1;
}

// A character above U+FFFF is a pair of UTF-16 units, a high and a low surrogate.

constexpr bool isHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
constexpr bool isLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}
constexpr char32_t characterOf(char32_t high, char32_t low) {
    return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}
constexpr char16_t highSurrogate(char32_t character) {
    return static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
}
constexpr char16_t lowSurrogate(char32_t character) {
    return static_cast<char16_t>(0xDC00 + (character & 0x3FF));
}

} // namespace tarn
