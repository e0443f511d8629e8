#pragma once

#include "store/escape_writer.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace tarn {

/// Decodes one of the East Asian sets, by its canonical name. False, with nothing written, if the name is none of them.
///
/// A sequence that the set's structure excludes throws MalformedInput. A well-formed one that means nothing becomes
/// U+FFFD. A sequence that the end of the input cuts off is left out. Throws UnsupportedEncoding if the system's
/// conversion library lacks the set.
bool decodeMultiByte(std::string_view canonicalName, std::span<const std::uint8_t> bytes, EscapeWriter& out);

} // namespace tarn
