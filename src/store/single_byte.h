#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace tarn {

/// The tables of a set in which every byte is a character, as UTF-16 units; U+FFFD for a byte that means nothing.
/// Static data, taken from the Java runtime's sets of the same names.
struct SingleByteSet {
    const char16_t* low;  ///< for the bytes 0x00 to 0x7F; null if they are ASCII
    const char16_t* high; ///< for the bytes 0x80 to 0xFF; null if there is no set of the name
};

/// The set of a canonical name of the "8859_", "Cp" and "Mac" families, but for "8859_1", which needs no table.
SingleByteSet findSingleByteSet(std::string_view canonicalName);

} // namespace tarn
