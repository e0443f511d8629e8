#include "runtime/unicode.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace tarn {

namespace {

enum Class : std::uint8_t { NONE, PART, START };

/// Characters from `first` up to the next range's have one class.
struct Range {
    std::uint16_t first;
    std::uint8_t identifierClass;
};

constexpr Range ranges[] = {
#include "runtime/unicode_table.inc"
};

std::uint8_t classOf(char16_t unit) {
    auto behind = std::upper_bound(std::begin(ranges), std::end(ranges), unit,
                                   [](char16_t value, const Range& range) { return value < range.first; });
    return std::prev(behind)->identifierClass;
}

} // namespace

bool isJavaIdentifierStart(char16_t unit) {
    return classOf(unit) == START;
}
bool isJavaIdentifierPart(char16_t unit) {
    return classOf(unit) != NONE;
}

} // namespace tarn
