#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace tarn::classlib {

/// Modifier bits of a class file, as far as this tool asks for them. `Bridge` and `Volatile` are the same bit, the
/// first of a method, the second of a field; so are `Super`, of a class, and `Synchronized`.
namespace flags {
inline constexpr std::uint16_t Public = 0x1, Private = 0x2, Protected = 0x4, Static = 0x8, Final = 0x10;
inline constexpr std::uint16_t Super = 0x20, Synchronized = 0x20;
inline constexpr std::uint16_t Bridge = 0x40, Volatile = 0x40, Transient = 0x80;
inline constexpr std::uint16_t Native = 0x100, Interface = 0x200, Abstract = 0x400;
inline constexpr std::uint16_t Synthetic = 0x1000;

/// The bits that a class file of version 45.3 knows.
inline constexpr std::uint16_t OfOldClass = Public | Final | Super | Interface | Abstract;
inline constexpr std::uint16_t OfOldMemberClass = Public | Private | Protected | Static | Final | Interface | Abstract;
inline constexpr std::uint16_t OfOldField = Public | Private | Protected | Static | Final | Volatile | Transient;
inline constexpr std::uint16_t OfOldMethod =
    Public | Private | Protected | Static | Final | Synchronized | Native | Abstract;
} // namespace flags

/// Tags of the constant pool that version 45.3 has and this tool writes.
enum PoolTag : std::uint8_t { UTF8 = 1, INTEGER = 3, FLOAT = 4, LONG = 5, DOUBLE = 6, CLASS = 7, STRING = 8 };

/// The value of a constant field. `tag` is UTF8 for none, otherwise INTEGER, FLOAT, LONG, DOUBLE or STRING.
struct Constant {
    PoolTag tag = UTF8;
    std::string_view data; ///< the bytes as in the pool, big-endian; for a STRING its text

    [[nodiscard]] bool exists() const { return tag != UTF8; }
};

struct Member {
    std::uint16_t flags = 0;
    bool deprecated = false; ///< and so already in 1.1
    bool synthetic = false;
    std::string_view name;
    std::string_view descriptor;              ///< checked to be one
    Constant constant;                        ///< of a field
    std::vector<std::string_view> exceptions; ///< of a method
};

/// What an InnerClasses attribute says of one class.
struct NestedClass {
    std::string_view name;       ///< of the class file
    std::string_view outer;      ///< empty for a local and for an anonymous class
    std::string_view simpleName; ///< empty for an anonymous class
    std::uint16_t flags = 0;     ///< as declared
};

/// What a class file says, without code. Names are as in the file ("java/util/Map$Entry", class-file UTF-8) and
/// point into the file's bytes, which must outlive this.
struct ClassModel {
    std::uint16_t flags = 0;
    bool deprecated = false; ///< and so already in 1.1
    bool synthetic = false;
    std::string_view name;
    std::string_view superclass; ///< empty for java/lang/Object
    std::vector<std::string_view> interfaces;
    std::vector<Member> fields;
    std::vector<Member> methods;
    std::vector<NestedClass> nestedClasses;

    /// The entry of InnerClasses that is about this class itself; null for a class of a package.
    [[nodiscard]] const NestedClass* ownEntry() const {
        for (const NestedClass& nested : nestedClasses)
            if (nested.name == name) return &nested;
        return nullptr;
    }
};

} // namespace tarn::classlib
