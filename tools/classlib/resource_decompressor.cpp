#include "classlib/resource_decompressor.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <zlib.h>

namespace tarn::classlib {

namespace {

constexpr std::uint32_t resourceMagic = 0xCAFEFAFA;
constexpr std::size_t headerSize = 29;
constexpr int maximumLayers = 4;
/// No class file comes near this; a size beyond it is garbage, and must not be allocated.
constexpr std::uint64_t maximumSize = 32 << 20;
/// Deflate cannot do better than about 1032:1.
constexpr std::uint64_t maximumInflation = 1040;

std::vector<std::uint8_t> inflateZlib(Bytes content, std::size_t size) {
    if (size / maximumInflation > content.size()) throw BadInput("its zip compression is garbled");
    std::vector<std::uint8_t> out(size);
    uLongf length = static_cast<uLongf>(size);
    int status = ::uncompress(out.data(), &length, content.data(), static_cast<uLong>(content.size()));
    if (status != Z_OK || length != size) throw BadInput("its zip compression is garbled");
    return out;
}

/// A number of the compacted pool. With the top bit of the first byte set, the next two bits are the count of
/// bytes, this one included, and the low five bits begin the number; otherwise it is a plain word.
std::uint32_t compactNumber(ByteReader& reader) {
    std::uint32_t first = reader.u1();
    if ((first & 0x80) == 0) return first << 24 | static_cast<std::uint32_t>(reader.number(3));
    std::uint32_t value = first & 0x1F;
    for (std::uint32_t further = first >> 5 & 3; further > 1; further--) value = value << 8 | reader.u1();
    return value;
}

void append(std::vector<std::uint8_t>& out, Bytes bytes) {
    out.insert(out.end(), bytes.begin(), bytes.end());
}

void append(std::vector<std::uint8_t>& out, std::string_view text) {
    out.insert(out.end(), text.begin(), text.end());
}

/// Adds a text behind its 16-bit length, as the pool has it.
void appendCounted(std::vector<std::uint8_t>& out, std::string_view text) {
    if (text.size() > 0xFFFF) throw BadInput("its compact-cp compression is garbled");
    out.push_back(static_cast<std::uint8_t>(text.size() >> 8));
    out.push_back(static_cast<std::uint8_t>(text.size()));
    append(out, text);
}

/// Bytes behind the tag of a pool entry other than a text; 0 for a tag that does not exist.
constexpr std::size_t entrySize(std::uint8_t tag) {
    constexpr std::uint8_t sizes[] = {0, 0, 0, 4, 4, 8, 8, 2, 2, 4, 4, 4, 4, 0, 0, 3, 2, 4, 4, 2, 2};
    return tag < std::size(sizes) ? sizes[tag] : 0;
}

} // namespace

struct ResourceDecompressor::Header {
    std::uint64_t contentSize;
    std::uint64_t size;
    std::string_view decompressor;
};

Bytes ResourceDecompressor::decompress(Bytes resource, std::uint64_t size, std::vector<std::uint8_t>& storage) const {
    Bytes result = resource;
    int layers = 0;
    while (result.size() >= headerSize && word(result, 0) == resourceMagic) {
        if (++layers > maximumLayers) throw BadInput("it is compressed too often");
        Header header = readHeader(result);
        Bytes content = result.subspan(headerSize, header.contentSize);
        std::vector<std::uint8_t> out;
        if (header.decompressor == "zip")
            out = inflateZlib(content, header.size);
        else if (header.decompressor == "compact-cp")
            out = restorePool(content, header.size);
        else
            throw BadInput("it is compressed with '" + std::string(header.decompressor) +
                           "'; only zip and compact-cp can be read");
        storage = std::move(out);
        result = storage;
    }
    if (layers == 0) throw BadInput("its compression has no header");
    if (result.size() != size) throw BadInput("its decompressed size is not the one that the image gives");
    return result;
}

std::uint32_t ResourceDecompressor::word(Bytes bytes, std::size_t offset) const {
    std::uint32_t value = 0;
    std::memcpy(&value, bytes.data() + offset, sizeof value);
    return swapped_ ? swapBytes(value) : value;
}

std::uint64_t ResourceDecompressor::doubleWord(Bytes bytes, std::size_t offset) const {
    std::uint64_t first = word(bytes, offset);
    std::uint64_t second = word(bytes, offset + 4);
    bool lowWordFirst = (std::endian::native == std::endian::little) != swapped_;
    return lowWordFirst ? second << 32 | first : first << 32 | second;
}

ResourceDecompressor::Header ResourceDecompressor::readHeader(Bytes resource) const {
    Header header{doubleWord(resource, 4), doubleWord(resource, 12), strings_(word(resource, 20))};
    if (header.contentSize > resource.size() - headerSize || header.size > maximumSize)
        throw BadInput("its compression header is garbled");
    return header;
}

std::vector<std::uint8_t> ResourceDecompressor::restorePool(Bytes content, std::size_t size) const {
    constexpr std::uint8_t utf8 = 1, longTag = 5, doubleTag = 6, sharedText = 23, sharedDescriptor = 25;
    ByteReader reader(content);
    std::vector<std::uint8_t> out;
    append(out, reader.take(8)); // magic and version
    Bytes countBytes = reader.take(2);
    append(out, countBytes);
    unsigned count = countBytes[0] << 8 | countBytes[1];
    for (unsigned i = 1; i < count && out.size() <= size; i++) {
        std::uint8_t tag = reader.u1();
        out.push_back(tag == sharedText || tag == sharedDescriptor ? utf8 : tag);
        if (tag == sharedText) {
            appendCounted(out, strings_(compactNumber(reader)));
        } else if (tag == sharedDescriptor) {
            restoreDescriptor(reader, out);
        } else if (tag == utf8) {
            Bytes length = reader.take(2);
            append(out, length);
            append(out, reader.take(length[0] << 8 | length[1]));
        } else if (std::size_t rest = entrySize(tag)) {
            append(out, reader.take(rest));
            i += tag == longTag || tag == doubleTag;
        } else {
            throw BadInput("its compact-cp compression is garbled");
        }
    }
    append(out, reader.take(reader.left()));
    if (out.size() != size) throw BadInput("its compact-cp compression is garbled");
    return out;
}

/// A descriptor is a pattern without its class names, and for each 'L' of it the package and the class.
void ResourceDecompressor::restoreDescriptor(ByteReader& reader, std::vector<std::uint8_t>& out) const {
    std::string_view pattern = strings_(compactNumber(reader));
    ByteReader names(reader.take(compactNumber(reader)));
    std::string descriptor;
    for (char c : pattern) {
        descriptor += c;
        if (c != 'L' || names.left() == 0) continue;
        std::string_view package = strings_(compactNumber(names));
        descriptor += package;
        if (!package.empty()) descriptor += '/';
        descriptor += strings_(compactNumber(names));
        if (descriptor.size() > 0xFFFF) break;
    }
    appendCounted(out, descriptor);
}

} // namespace tarn::classlib
