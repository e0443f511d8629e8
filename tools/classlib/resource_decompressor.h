#pragma once

#include "classlib/byte_reader.h"

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace tarn::classlib {

/// Undoes what `jlink --compress` does to a resource of a runtime image.
///
/// A compressed resource begins with a header of 29 bytes in the byte order of the image: the word 0xCAFEFAFA, the size
/// that follows and the size when decompressed (8 bytes each), two string offsets that name the decompressor and its
/// configuration, and a byte that says whether it is the last one. The result may be a compressed resource again.
///
/// Two decompressors exist: "zip", a zlib stream, and "compact-cp", a class file whose constant pool has its texts
/// in the strings of the image.
class ResourceDecompressor {
public:
    /// Gives the string of the image at an offset, or throws BadInput.
    using Strings = std::function<std::string_view(std::uint32_t offset)>;

    /// `swapped` says that the image is of the other byte order than this machine.
    ResourceDecompressor(bool swapped, Strings strings) : swapped_(swapped), strings_(std::move(strings)) {}

    /// Decompresses `resource` into `storage` until no header is left; the result lies there. Throws BadInput if
    /// the resource is garbled, if it does not come out with `size` bytes, or if a decompressor is not known.
    [[nodiscard]] Bytes decompress(Bytes resource, std::uint64_t size, std::vector<std::uint8_t>& storage) const;

private:
    struct Header;

    [[nodiscard]] Header readHeader(Bytes resource) const;
    [[nodiscard]] std::uint32_t word(Bytes bytes, std::size_t offset) const;
    [[nodiscard]] std::uint64_t doubleWord(Bytes bytes, std::size_t offset) const;
    [[nodiscard]] std::vector<std::uint8_t> restorePool(Bytes content, std::size_t size) const;
    void restoreDescriptor(ByteReader& reader, std::vector<std::uint8_t>& out) const;

    bool swapped_;
    Strings strings_;
};

} // namespace tarn::classlib
