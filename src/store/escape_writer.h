#pragma once

#include "runtime/unicode.h"
#include "store/store.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <span>
#include <utility>

namespace tarn {

/// How many bytes from the first one on are ASCII.
inline std::size_t asciiRun(std::span<const std::uint8_t> bytes) {
    static_assert(std::endian::native == std::endian::little);
    std::size_t at = 0;
    for (std::uint64_t word; at + sizeof word <= bytes.size(); at += sizeof word) {
        std::memcpy(&word, bytes.data() + at, sizeof word);
        word &= 0x8080808080808080;
        if (word != 0) return at + static_cast<std::size_t>(std::countr_zero(word)) / 8;
    }
    while (at < bytes.size() && bytes[at] < 0x80) ++at;
    return at;
}

/// Collects decoded text as pure ASCII: what lies above becomes escapes \uXXXX.
class EscapeWriter {
public:
    /// Makes room for a source of this length with few escapes.
    explicit EscapeWriter(std::size_t sourceLength) { out_.reserve(sourceLength + sourceLength / 8 + 16); }

    void putAscii(std::span<const std::uint8_t> bytes) { out_.insert(out_.end(), bytes.begin(), bytes.end()); }

    void putUnit(char16_t unit) {
        if (unit < 0x80) {
            out_.push_back(static_cast<std::uint8_t>(unit));
            return;
        }
        constexpr char DIGITS[] = "0123456789abcdef";
        const char escape[] = {
            '\\', 'u', DIGITS[unit >> 12], DIGITS[unit >> 8 & 15], DIGITS[unit >> 4 & 15], DIGITS[unit & 15]};
        out_.insert(out_.end(), std::begin(escape), std::end(escape));
    }

    /// `character` is at most 0x10FFFF; one above 0xFFFF becomes a surrogate pair.
    void putCharacter(char32_t character) {
        if (character >= 0x10000) {
            putUnit(highSurrogate(character));
            character = lowSurrogate(character);
        }
        putUnit(static_cast<char16_t>(character));
    }

    Bytes take() { return std::move(out_); }

private:
    Bytes out_;
};

/// Writes the ASCII that a source begins with and gives the rest.
inline std::span<const std::uint8_t> putAsciiRun(std::span<const std::uint8_t> source, EscapeWriter& out) {
    std::size_t ascii = asciiRun(source);
    out.putAscii(source.first(ascii));
    return source.subspan(ascii);
}

} // namespace tarn
