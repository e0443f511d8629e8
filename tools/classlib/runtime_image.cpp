#include "classlib/runtime_image.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "classlib/resource_decompressor.h"

namespace tarn::classlib {

namespace {

constexpr std::uint32_t imageMagic = 0xCAFEDADA;
constexpr std::size_t headerSize = 7 * 4;
constexpr std::uint32_t knownMajorVersion = 1;

enum AttributeKind { END, MODULE, PARENT, BASE, EXTENSION, OFFSET, COMPRESSED, UNCOMPRESSED };

/// An open file that closes itself.
struct OpenFile {
    int descriptor;
    explicit OpenFile(const std::string& path) : descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() {
        if (descriptor >= 0) ::close(descriptor);
    }
};

[[noreturn]] void failWithErrno(const std::string& path) {
    throw BadInput(path + ": " + std::strerror(errno));
}

} // namespace

RuntimeImage RuntimeImage::open(const std::string& path) {
    OpenFile file(path);
    struct stat status {};
    if (file.descriptor < 0 || ::fstat(file.descriptor, &status) != 0) failWithErrno(path);
    if (!S_ISREG(status.st_mode)) throw BadInput(path + ": not a regular file");
    auto size = static_cast<std::size_t>(status.st_size);
    if (size == 0) throw BadInput(path + ": the file is empty");
    void* address = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file.descriptor, 0);
    if (address == MAP_FAILED) failWithErrno(path);
    std::shared_ptr<const void> mapping(address,
                                        [size](const void* start) { ::munmap(const_cast<void*>(start), size); });
    try {
        RuntimeImage image(Bytes(static_cast<const std::uint8_t*>(address), size));
        image.mapping_ = std::move(mapping);
        return image;
    } catch (const BadInput& failure) {
        throw BadInput(path + ": " + failure.what());
    }
}

RuntimeImage::RuntimeImage(Bytes bytes) : image_(bytes) {
    readHeader();
    for (std::uint32_t i = 0; i < tableLength_; i++)
        addResource(readAttributes(word(offsetsStart_ + std::size_t{4} * i)));
}

void RuntimeImage::readHeader() {
    if (image_.size() < headerSize) throw BadInput("not a class library image: it is shorter than the header of one");
    std::uint32_t magic = word(0);
    swapped_ = magic == swapBytes(imageMagic);
    if (!swapped_ && magic != imageMagic)
        throw BadInput("not a class library image: it does not begin with the magic number CAFEDADA");
    std::uint32_t version = word(4);
    if (version >> 16 != knownMajorVersion)
        throw BadInput("class library image of version " + std::to_string(version >> 16) + "." +
                       std::to_string(version & 0xFFFF) + "; only 1.x can be read");
    tableLength_ = word(16);
    std::uint64_t locationsStart = headerSize + std::uint64_t{8} * tableLength_;
    std::uint64_t stringsStart = locationsStart + word(20);
    std::uint64_t contentsStart = stringsStart + word(24);
    if (contentsStart > image_.size())
        throw BadInput("class library image is cut short: its tables end behind its end");
    if (word(12) > tableLength_) throw BadInput("class library image is garbled: it counts more resources than slots");
    offsetsStart_ = headerSize + std::size_t{4} * tableLength_;
    locations_ = image_.subspan(locationsStart, stringsStart - locationsStart);
    strings_ = image_.subspan(stringsStart, contentsStart - stringsStart);
    contents_ = image_.subspan(contentsStart);
}

std::uint32_t RuntimeImage::word(std::size_t offset) const {
    std::uint32_t value = 0;
    std::memcpy(&value, image_.data() + offset, sizeof value);
    return swapped_ ? swapBytes(value) : value;
}

std::string_view RuntimeImage::string(std::uint64_t offset) const {
    if (offset >= strings_.size()) throw BadInput("class library image is garbled: a name lies outside of its strings");
    // A name longer than a class file can hold is garbage; the bound also keeps a hostile table from costing hours.
    std::string_view rest = asText(strings_.subspan(offset)).substr(0, 65536);
    std::size_t length = rest.find('\0');
    if (length == std::string_view::npos) throw BadInput("class library image is garbled: a name has no end");
    return rest.substr(0, length);
}

RuntimeImage::Attributes RuntimeImage::readAttributes(std::uint32_t offset) const {
    Attributes values{};
    try {
        ByteReader reader(locations_);
        reader.skip(offset);
        // Kinds that later versions add are stepped over by their length. 5 bits of kind make 31 attributes at most.
        for (int count = 0; count < 32; count++) {
            std::uint8_t head = reader.u1();
            std::size_t kind = head >> 3;
            if (kind == END) return values;
            std::uint64_t value = reader.number((head & 7) + 1);
            if (kind < values.size()) values[kind] = value;
        }
    } catch (const BadInput&) {
        // Said below: the location runs over the end of its table.
    }
    throw BadInput("class library image is garbled: a location has no end");
}

void RuntimeImage::addResource(const Attributes& values) {
    if (string(values[EXTENSION]) != "class") return;
    Location location{string(values[MODULE]), values[OFFSET], values[COMPRESSED], values[UNCOMPRESSED]};
    std::uint64_t stored = location.compressedSize != 0 ? location.compressedSize : location.size;
    if (location.offset > contents_.size() || stored > contents_.size() - location.offset)
        throw BadInput("class library image is cut short: a class lies behind its end");
    std::string name(string(values[PARENT]));
    if (!name.empty()) name += '/';
    name += string(values[BASE]);
    auto [entry, added] = classes_.try_emplace(std::move(name), location);
    // Two modules may hide a package of the same name each; which one is taken must not depend on the table's order.
    if (!added && location.module < entry->second.module) entry->second = location;
}

std::vector<std::string_view> RuntimeImage::classNames() const {
    std::vector<std::string_view> names;
    names.reserve(classes_.size());
    for (const auto& [name, location] : classes_) names.push_back(name);
    std::sort(names.begin(), names.end());
    return names;
}

Bytes RuntimeImage::classFile(std::string_view name, std::vector<std::uint8_t>& storage) const {
    const Location& location = classes_.find(std::string(name))->second;
    if (location.compressedSize == 0) return contents_.subspan(location.offset, location.size);
    Bytes compressed = contents_.subspan(location.offset, location.compressedSize);
    ResourceDecompressor decompressor(swapped_, [this](std::uint32_t offset) { return string(offset); });
    return decompressor.decompress(compressed, location.size, storage);
}

} // namespace tarn::classlib
