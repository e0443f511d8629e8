#pragma once

#include "store/store.h"

#include <optional>
#include <span>
#include <string>

namespace tarn {

/// The encoding of a run for the name that the user gave: absent, or a converter's name. It is not checked here, so a
/// name that no converter has shows when the first source is decoded. An absent name and "null" mean no conversion;
/// "default" means what is usual for the locale (the property "file.encoding"), which as "8859_1" needs no conversion
/// either.
std::optional<std::string> resolveEncoding(const std::optional<std::string>& name);

/// Source bytes as pure ASCII, in which each UTF-16 unit above 0x7F is an escape \uXXXX in lower-case digits; absent if
/// `encoding` is, since then the bytes are taken as they are.
///
/// The scanner's end marker 0x1A is expected as the last byte and comes through as the last byte of the result; only in
/// the UTF-16 sets, where it is half a character, it is lost. A sequence that the set has no character for becomes
/// \ufffd. Throws MalformedInput for one that the set's structure excludes, and UnsupportedEncoding for an unknown
/// name.
std::optional<Bytes> decodeSource(std::span<const std::uint8_t> bytes, const std::optional<std::string>& encoding);

} // namespace tarn
