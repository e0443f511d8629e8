#include "syntax/source_text.h"

#include "runtime/failure.h"
#include "store/encoding.h"

#include <bit>
#include <cstring>
#include <utility>

namespace tarn {

namespace {

constexpr std::size_t firstCapacity = 65536;
constexpr std::size_t largestSource = std::size_t{1} << 30;
/// End markers behind the text: more than any look-ahead of the scanner.
constexpr std::size_t markers = 32;

} // namespace

const std::uint8_t* SourceText::load(Store& source, const std::optional<std::string>& encoding) {
    decoded_ = Bytes();
    std::size_t length = read(source);
    std::memset(buffer_.get() + length, END_MARKER, markers);
    std::optional<Bytes> converted = decodeSource({buffer_.get(), length + 1}, encoding);
    if (!converted) return buffer_.get();
    // A converter of two-byte characters keeps the marker back, as half a character.
    decoded_ = std::move(*converted);
    decoded_.insert(decoded_.end(), markers, END_MARKER);
    return decoded_.data();
}

/// Fills the buffer and returns the length. Asks again as long as the source turns out to be longer than the buffer.
std::size_t SourceText::read(Store& source) {
    if (!buffer_) allocate(firstCapacity);
    for (;;) {
        std::size_t length = source.readInto({buffer_.get(), capacity_});
        if (length < capacity_) return length;
        if (length >= largestSource) throw IoFailure("source is too large");
        allocate(std::bit_ceil(length + 1));
    }
}

void SourceText::allocate(std::size_t capacity) {
    buffer_ = std::make_unique_for_overwrite<std::uint8_t[]>(capacity + markers);
    capacity_ = capacity;
}

} // namespace tarn
