#pragma once

#include "classfile/pool_entry.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tarn {

/// An interned identifier: two names are the same text if and only if they are the same object.
///
/// Every identifier, keyword, package and class name, descriptor, attribute name and string constant is one Name, held
/// once for the whole process in the class-file form of UTF-8 (U+0000 as C0 80, no four-byte groups), so that an entry
/// of a class file and a name convert by a plain copy. Names are owned by the process-wide table and never freed.
///
/// The table opens itself with the first name. It is used by one thread only, and `fromSource`, `fromString` and
/// `concat` share a scratch buffer. It throws std::bad_alloc when the texts of all names exceed 2 GiB.
class Name final : public PoolEntry {
public:
    [[nodiscard]] EntryKind entryKind() const override { return EntryKind::NAME; }

    /// The interned name of exactly these bytes, taken as class-file UTF-8.
    static Name* fromBytes(const std::uint8_t* bytes, std::size_t length);
    static Name* fromBytes(std::span<const std::uint8_t> bytes) { return fromBytes(bytes.data(), bytes.size()); }
    static Name* fromBytes(std::string_view text) {
        return fromBytes(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
    }
    /// The name of a range of source text, whose escapes (`\n`, `\"`, `\u0041`, ...) are resolved. Bytes from 128 up
    /// and 0 count as the Latin-1 character of that value.
    static Name* fromSource(const std::uint8_t* bytes, std::size_t length);
    /// The first UTF-16 unit of what `fromSource` makes of the range; -1 if that is empty.
    static int firstUnitOfSource(const std::uint8_t* bytes, std::size_t length);
    /// The name of a text in ordinary UTF-8 (invalid bytes count as Latin-1).
    static Name* fromString(std::string_view utf8);
    /// The name of the texts joined in order.
    static Name* concat(std::span<Name* const> names);

    /// The bytes. The pool never moves, so this stays valid until the process ends.
    [[nodiscard]] std::string_view view() const { return {reinterpret_cast<const char*>(poolBase) + index, length}; }
    /// The bytes in the class-file form, as a copy.
    [[nodiscard]] std::string toUtf() const { return std::string(view()); }
    /// The text in 7-bit ASCII with escapes (upper-case hexadecimal digits).
    [[nodiscard]] std::string toAscii() const;
    /// The text in ordinary UTF-8, for messages and output; a lone surrogate becomes U+FFFD.
    [[nodiscard]] std::string toString() const;
    void copyTo(std::uint8_t* target) const;

    /// Identity; differs from run to run.
    [[nodiscard]] std::uint32_t hashCode() const { return index; }
    /// Hash of the bytes; the same in every run, so this is the one to store.
    [[nodiscard]] std::int32_t contentHash() const { return static_cast<std::int32_t>(hash); }
    /// The content hash: each byte, as a signed number, is added to the product of what came before and a constant.
    static constexpr std::uint32_t hashOf(const std::uint8_t* bytes, std::size_t length) {
        constexpr std::uint32_t m = 1664525u;
        auto at = [bytes](std::size_t i) { return static_cast<std::uint32_t>(static_cast<std::int8_t>(bytes[i])); };
        std::uint32_t hash = 0;
        std::size_t i = 0;
        // Four steps at once, which need not wait for each other.
        for (; i + 4 <= length; i += 4)
            hash = hash * (m * m * m * m) + at(i) * (m * m * m) + at(i + 1) * (m * m) + at(i + 2) * m + at(i + 3);
        for (; i < length; i++) hash = hash * m + at(i);
        return hash;
    }

    [[nodiscard]] std::uint8_t byteAt(std::size_t at) const { return static_cast<std::uint8_t>(view()[at]); }
    /// First offset of the byte; `length` if it does not occur.
    [[nodiscard]] int indexOf(char byte) const;
    /// Last offset of the byte; -1 if it does not occur.
    [[nodiscard]] int lastIndexOf(char byte) const;
    [[nodiscard]] bool startsWith(const Name* prefix) const { return view().starts_with(prefix->view()); }
    [[nodiscard]] bool endsWith(const Name* suffix) const { return view().ends_with(suffix->view()); }
    /// The name of that range, which lies within this name; the empty name if `end` is below `start`.
    [[nodiscard]] Name* subName(int start, int end) const;
    [[nodiscard]] Name* append(const Name* tail) const;
    /// Whether a file of this name (any path, any extension, letters of either case) is called like this name.
    [[nodiscard]] bool matchesFile(std::string_view fileName) const;

    std::uint32_t index;  ///< offset of the first byte in the process-wide pool; unique, also for the empty name
    std::uint32_t length; ///< in bytes

private:
    friend class NameTable;
    friend class Arena;
    Name(std::uint32_t index_, std::uint32_t length_, std::uint32_t hash_, Name* next_)
        : index(index_), length(length_), hash(hash_), next(next_) {}

    static constinit std::uint8_t* poolBase; ///< null until the first name is entered

    std::uint32_t hash; ///< of the bytes, so that a walk along a chain seldom looks at texts
    Name* next;         ///< in the chain of the table's bucket
};

} // namespace tarn
