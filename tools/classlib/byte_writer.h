#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tarn::classlib {

/// Collects bytes; numbers are big-endian.
class ByteWriter {
public:
    void u1(std::uint32_t value) { bytes_.push_back(static_cast<std::uint8_t>(value)); }
    void u2(std::uint32_t value) {
        u1(value >> 8);
        u1(value);
    }
    void u4(std::uint32_t value) {
        u2(value >> 16);
        u2(value);
    }
    void text(std::string_view text) { bytes_.insert(bytes_.end(), text.begin(), text.end()); }
    void append(const ByteWriter& other) { bytes_.insert(bytes_.end(), other.bytes_.begin(), other.bytes_.end()); }

    [[nodiscard]] std::size_t size() const { return bytes_.size(); }
    [[nodiscard]] const std::vector<std::uint8_t>& bytes() const { return bytes_; }
    [[nodiscard]] std::vector<std::uint8_t> release() { return std::move(bytes_); }

private:
    std::vector<std::uint8_t> bytes_;
};

} // namespace tarn::classlib
