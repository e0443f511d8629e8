#pragma once

#include "store/store.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>

namespace tarn {

/// Bytes that are appended, numbers with the high byte first. The memory grows by doubling and is kept for later files.
class ByteBuffer {
public:
    explicit ByteBuffer(std::size_t capacity) : bytes_(capacity) {}

    void clear() { length_ = 0; }
    [[nodiscard]] std::size_t length() const { return length_; }
    [[nodiscard]] std::span<const std::uint8_t> contents() const { return {bytes_.data(), length_}; }

    void put1(std::uint32_t value) {
        std::uint8_t* at = room(1);
        at[0] = static_cast<std::uint8_t>(value);
    }
    void put2(std::uint32_t value) {
        std::uint8_t* at = room(2);
        at[0] = static_cast<std::uint8_t>(value >> 8);
        at[1] = static_cast<std::uint8_t>(value);
    }
    void put4(std::uint32_t value) {
        put2(value >> 16);
        put2(value);
    }
    void put8(std::uint64_t value) {
        put4(static_cast<std::uint32_t>(value >> 32));
        put4(static_cast<std::uint32_t>(value));
    }
    void append(std::span<const std::uint8_t> bytes) {
        if (!bytes.empty()) std::memcpy(room(bytes.size()), bytes.data(), bytes.size());
    }
    void append(std::string_view text) { append({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}); }
    /// Overwrites two bytes that were put before.
    void patch2(std::size_t at, std::uint32_t value) {
        bytes_[at] = static_cast<std::uint8_t>(value >> 8);
        bytes_[at + 1] = static_cast<std::uint8_t>(value);
    }

private:
    std::uint8_t* room(std::size_t count) {
        if (bytes_.size() - length_ < count) [[unlikely]]
            bytes_.resize(2 * bytes_.size() + count);
        std::uint8_t* at = bytes_.data() + length_;
        length_ += count;
        return at;
    }

    Bytes bytes_;
    std::size_t length_ = 0;
};

} // namespace tarn
