#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tarn::classlib {

using Bytes = std::span<const std::uint8_t>;

/// A file that was read is not what it should be. The text says what is wrong with it, in English; whoever knows the
/// file's name puts that in front.
class BadInput : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The same bytes in the other order, for a file that was made for the other kind of machine.
[[nodiscard]] constexpr std::uint32_t swapBytes(std::uint32_t value) {
    return value >> 24 | (value >> 8 & 0xFF00) | (value << 8 & 0xFF0000) | value << 24;
}

[[nodiscard]] inline std::string_view asText(Bytes bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// Walks over bytes that somebody else owns; numbers are big-endian. Reading past the end throws BadInput.
class ByteReader {
public:
    explicit ByteReader(Bytes bytes) : bytes_(bytes) {}

    [[nodiscard]] std::size_t position() const { return position_; }
    [[nodiscard]] std::size_t left() const { return bytes_.size() - position_; }

    Bytes take(std::size_t count) {
        if (count > left()) throw BadInput("it is cut short");
        Bytes taken = bytes_.subspan(position_, count);
        position_ += count;
        return taken;
    }

    void skip(std::size_t count) { take(count); }
    std::uint8_t u1() { return take(1)[0]; }
    std::uint16_t u2() { return static_cast<std::uint16_t>(number(2)); }
    std::uint32_t u4() { return static_cast<std::uint32_t>(number(4)); }

    /// The next `count` bytes, at most 8, as one number.
    std::uint64_t number(std::size_t count) {
        std::uint64_t value = 0;
        for (std::uint8_t byte : take(count)) value = value << 8 | byte;
        return value;
    }

private:
    Bytes bytes_;
    std::size_t position_ = 0;
};

} // namespace tarn::classlib
