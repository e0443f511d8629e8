#pragma once

#include "store/store.h"

#include <cstdint>
#include <string_view>

namespace tarn::test {

/// Puts the bytes of a dependency file together field by field, and knows nothing of what they mean.
class DependencyBytes {
public:
    DependencyBytes& u8(unsigned value) {
        bytes.push_back(static_cast<std::uint8_t>(value));
        return *this;
    }
    DependencyBytes& u16(unsigned value) { return u8(value >> 8).u8(value & 0xFF); }
    DependencyBytes& u32(std::uint32_t value) { return u16(value >> 16).u16(value & 0xFFFF); }
    DependencyBytes& u64(std::uint64_t value) {
        return u32(static_cast<std::uint32_t>(value >> 32)).u32(static_cast<std::uint32_t>(value));
    }
    DependencyBytes& name(std::string_view text) {
        u16(static_cast<unsigned>(text.size()));
        bytes.insert(bytes.end(), text.begin(), text.end());
        return *this;
    }

    Bytes bytes;
};

constexpr std::uint64_t WRITE_DATE = 6'250'000'000;

/// A package with a source of two classes; the outer one extends Base, implements Runnable and uses two members, the
/// inner one extends the outer.
inline DependencyBytes samplePackage(unsigned stable = 0, std::uint64_t writeDate = WRITE_DATE) {
    DependencyBytes file;
    file.u8(4).name("a.b").u8(stable).u64(writeDate);
    file.u16(2);
    file.name("Outer.java").u64(6'249'999'000).u16(2).name("a.b.Outer$In").name("a.b.Outer");
    file.u16(1).name("java.util");
    file.name("Gone.java").u64(0).u16(0).u16(0);
    file.u16(3);
    file.name("a.b.Outer").u64(6'249'999'500).u32(0x89ABCDEF).name("Outer.java").u64(6'249'999'000);
    file.u16(3).u16(1).u8(1);
    file.name("a.Base").u8(1).u64(6'249'000'000).u32(17).u16(1).name("count").u32(0xFFFFFFFF).u16(1).name("run").u32(5);
    file.name("java.lang.Runnable").u8(2).u64(0).u32(0).u16(0).u16(0);
    file.name("a.b.Outer$In").u8(0).u64(6'249'999'500).u32(18).u16(0).u16(0);
    file.name("a.b.Outer$In").u64(6'249'999'500).u32(18).name("Outer.java").u64(6'249'999'000);
    file.u16(1).u16(0).u8(0).name("a.b.Outer").u8(1).u64(6'249'999'500).u32(19);
    file.name("a.b.Alien").u64(6'240'000'000).u32(20).name("").u64(0).u16(0);
    return file;
}

} // namespace tarn::test
