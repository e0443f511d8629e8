#pragma once

#include "store/store.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace tarn {

/// The end of a source text; an equal byte within the source ends it there.
constexpr std::uint8_t END_MARKER = 0x1A;

/// The text of the source that is being scanned. There is one in the process, with a buffer that is kept from source to
/// source.
class SourceText {
public:
    /// Reads and decodes the source and returns its first byte. The text ends in an END_MARKER, and more of them
    /// follow, so that a few bytes can be compared anywhere without a look at the length. Valid until the next call.
    /// Throws what reading and decoding throw, and IoFailure for a source of 1 GiB and up.
    const std::uint8_t* load(Store& source, const std::optional<std::string>& encoding);

private:
    std::size_t read(Store& source);
    void allocate(std::size_t capacity);

    std::unique_ptr<std::uint8_t[]> buffer_;
    std::size_t capacity_ = 0; ///< what a store may fill
    Bytes decoded_;            ///< in place of the buffer, if the source was converted
};

} // namespace tarn
