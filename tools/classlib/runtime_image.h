#pragma once

#include "classlib/byte_reader.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tarn::classlib {

/// The class library image of a Java runtime, the file `lib/modules` below its home.
///
/// The file, in the byte order of the machine that it was made for:
///
///     header      7 words: magic 0xCAFEDADA, version (major << 16 | minor), flags, resource count,
///                 table length, size of the locations, size of the strings
///     redirects   a word per table slot: the seeds of a perfect hash over resource names
///     offsets     a word per table slot: where the resource's location begins, in bytes
///     locations   attribute streams. An attribute is a byte, kind << 3 | length - 1, and its value of that length,
///                 always big-endian; kind 0 ends the stream, a value that is left out is 0
///     strings     zero-terminated, class-file UTF-8; attributes name them by offset
///     contents    the resources; attributes name them by offset
///
/// All classes are wanted at once, so the offsets are walked in order and the hash is never asked.
class RuntimeImage {
public:
    /// Maps the file `path`. Throws BadInput if it cannot be read or is no such image; the text names it.
    [[nodiscard]] static RuntimeImage open(const std::string& path);

    /// Reads an image in memory that outlives the result. Throws BadInput.
    explicit RuntimeImage(Bytes bytes);

    [[nodiscard]] std::size_t classCount() const { return classes_.size(); }

    /// The names of all classes, as "java/lang/Object", sorted by bytes.
    [[nodiscard]] std::vector<std::string_view> classNames() const;

    [[nodiscard]] bool hasClass(std::string_view name) const { return classes_.contains(std::string(name)); }

    /// The class file of the class `name`, which must be there. What was stored as it is lies in the image; what had
    /// to be decompressed lies in `storage`. Throws BadInput if the content is garbled.
    [[nodiscard]] Bytes classFile(std::string_view name, std::vector<std::uint8_t>& storage) const;

private:
    /// The values of a location's attributes by their kind.
    using Attributes = std::array<std::uint64_t, 8>;

    /// Where a class lies; offsets count from the beginning of the contents.
    struct Location {
        std::string_view module;
        std::uint64_t offset = 0;
        std::uint64_t compressedSize = 0; ///< 0 for content that is not compressed
        std::uint64_t size = 0;
    };

    void readHeader();
    [[nodiscard]] Attributes readAttributes(std::uint32_t offset) const;
    void addResource(const Attributes& values);
    [[nodiscard]] std::uint32_t word(std::size_t offset) const;
    [[nodiscard]] std::string_view string(std::uint64_t offset) const;

    std::shared_ptr<const void> mapping_; ///< keeps the mapped file; null for an image in somebody else's memory
    Bytes image_;
    Bytes strings_;
    Bytes contents_;
    bool swapped_ = false; ///< the image is of the other byte order
    std::uint32_t tableLength_ = 0;
    std::size_t offsetsStart_ = 0;
    Bytes locations_;
    std::unordered_map<std::string, Location> classes_;
};

} // namespace tarn::classlib
