#include "store/archive_store.h"

#include "runtime/failure.h"
#include "store/file_date.h"
#include "store/file_path.h"
#include "store/platform_file.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <functional>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <zlib.h>

namespace tarn {

namespace {

// The records of a zip file, with the offsets of the fields that are read. Numbers are little-endian. The format is
// that of PKWARE's APPNOTE, without its extensions.
constexpr std::uint32_t END_SIGNATURE = 0x06054B50;
constexpr std::size_t END_LENGTH = 22;
constexpr std::size_t END_COUNT = 10;
constexpr std::size_t END_DIRECTORY_SIZE = 12;
constexpr std::size_t END_DIRECTORY_OFFSET = 16;
constexpr std::size_t END_COMMENT_LENGTH = 20;

constexpr std::uint32_t ENTRY_SIGNATURE = 0x02014B50;
constexpr std::size_t ENTRY_LENGTH = 46;
constexpr std::size_t ENTRY_TIME = 12;
constexpr std::size_t ENTRY_COMPRESSED_SIZE = 20;
constexpr std::size_t ENTRY_SIZE = 24;
constexpr std::size_t ENTRY_NAME_LENGTH = 28;
constexpr std::size_t ENTRY_EXTRA_LENGTH = 30;
constexpr std::size_t ENTRY_COMMENT_LENGTH = 32;
constexpr std::size_t ENTRY_OFFSET = 42;

constexpr std::uint32_t LOCAL_SIGNATURE = 0x04034B50;
constexpr std::size_t LOCAL_LENGTH = 30;
constexpr std::size_t LOCAL_FLAGS = 6;
constexpr std::size_t LOCAL_METHOD = 8;
constexpr std::size_t LOCAL_NAME_LENGTH = 26;
constexpr std::size_t LOCAL_EXTRA_LENGTH = 28;
constexpr std::uint16_t ENCRYPTED = 1;

constexpr const char* CORRUPTED = "zip file is corrupted";

/// Deflate makes no more of one byte than this; what claims to needs no memory to be told as garbled.
constexpr std::uint64_t MAX_INFLATION = 1032;

/// Neither a class nor a source comes near this, and a small archive may not ask for memory without end.
constexpr std::uint64_t MAX_INFLATED = 64 << 20;

std::uint16_t shortAt(const std::uint8_t* at) {
    return static_cast<std::uint16_t>(at[0] | at[1] << 8);
}

std::uint32_t intAt(const std::uint8_t* at) {
    return shortAt(at) | static_cast<std::uint32_t>(shortAt(at + 2)) << 16;
}

struct EndRecord {
    std::uint32_t count;
    std::uint32_t size;   ///< of the central directory
    std::uint32_t offset; ///< of the central directory
};

/// Searches backwards from the end of the file, since a comment may follow the record. Only a record whose comment ends
/// where the file does counts, so that a signature in data or in the comment itself does not.
EndRecord findEndRecord(int file, std::uint64_t fileSize) {
    constexpr std::size_t BLOCK = 1024;
    std::uint8_t block[BLOCK];
    std::uint64_t earliest = fileSize < END_LENGTH + 0xFFFF ? 0 : fileSize - END_LENGTH - 0xFFFF;
    std::uint64_t end = fileSize;
    while (end >= earliest + END_LENGTH) {
        std::size_t length = static_cast<std::size_t>(std::min<std::uint64_t>(BLOCK, end));
        std::uint64_t start = end - length;
        if (readAt(file, start, {block, length}) != length) throw IoFailure("read error");
        for (std::size_t at = length - END_LENGTH + 1; at-- > 0;) {
            const std::uint8_t* record = block + at;
            if (intAt(record) != END_SIGNATURE) continue;
            if (start + at + END_LENGTH + shortAt(record + END_COMMENT_LENGTH) != fileSize) continue;
            return {shortAt(record + END_COUNT), intAt(record + END_DIRECTORY_SIZE),
                    intAt(record + END_DIRECTORY_OFFSET)};
        }
        // A record may lie across two blocks.
        end = start == 0 ? 0 : start + END_LENGTH - 1;
    }
    throw IoFailure("bad zip file");
}

} // namespace

// --- The archive as a whole ---------------------------------------------------------------------------------------

ArchiveStore::ArchiveStore(std::string path) : path_(std::move(path)) {
    file_ = openToRead(PlatformPath(path_).get());
    if (file_ < 0) return;
    try {
        openDirectory();
    } catch (const IoFailure&) {
        // A broken archive on a path list is a missing one.
        close();
        directory_.reset();
        index_.clear();
    }
}

void ArchiveStore::openDirectory() {
    struct stat status;
    if (::fstat(file_, &status) != 0) failWithErrno();
    if (!S_ISREG(status.st_mode)) throw IoFailure("bad zip file");
    fileSize_ = static_cast<std::uint64_t>(status.st_size);

    EndRecord end = findEndRecord(file_, fileSize_);
    if (std::uint64_t{end.offset} + end.size > fileSize_) throw IoFailure("read error");
    directory_ = std::make_unique_for_overwrite<std::uint8_t[]>(end.size);
    if (readAt(file_, end.offset, {directory_.get(), end.size}) != end.size) throw IoFailure("read error");

    index_.reserve(std::min<std::size_t>(end.count, end.size / ENTRY_LENGTH));
    bool sorted = true;
    std::string_view previous;
    std::uint64_t at = 0;
    for (std::uint32_t i = 0; i < end.count; ++i) {
        std::uint8_t* record = directory_.get() + at;
        if (at + ENTRY_LENGTH > end.size || intAt(record) != ENTRY_SIGNATURE) throw IoFailure("bad dir entry");
        std::size_t nameLength = shortAt(record + ENTRY_NAME_LENGTH);
        std::uint64_t next = at + ENTRY_LENGTH + nameLength + shortAt(record + ENTRY_EXTRA_LENGTH) +
                             shortAt(record + ENTRY_COMMENT_LENGTH);
        if (next > end.size) throw IoFailure("bad dir entry");
        char* name = reinterpret_cast<char*>(record + ENTRY_LENGTH);
        if (std::memchr(name, '\\', nameLength) != nullptr) std::replace(name, name + nameLength, '\\', FILE_SEPARATOR);
        sorted = sorted && previous <= std::string_view(name, nameLength);
        previous = {name, nameLength};
        index_.push_back(static_cast<std::uint32_t>(at));
        at = next;
    }
    if (!sorted)
        std::sort(index_.begin(), index_.end(), [&](auto left, auto right) { return nameAt(left) < nameAt(right); });
}

bool ArchiveStore::equals(const Store& other) const {
    const auto* that = dynamic_cast<const ArchiveStore*>(&other);
    if (that == nullptr) return false;
    if (this == that) return true;
    return absolutePath(path_) == absolutePath(that->path_) && date() == that->date();
}

std::uint32_t ArchiveStore::hashCode() const {
    return static_cast<std::uint32_t>(std::hash<std::string>()(absolutePath(path_))) +
           static_cast<std::uint32_t>(date());
}

Date ArchiveStore::date() const {
    return dateOfFile(PlatformPath(path_).get());
}

std::string ArchiveStore::name() const {
    return std::string(lastComponent(path_));
}

std::optional<std::string> ArchiveStore::canonicalPath() const {
    return tarn::canonicalPath(path_);
}

std::optional<std::string> ArchiveStore::parent() const {
    return parentPath(path_);
}

Bytes ArchiveStore::read() {
    throw IoFailure("can't read directory");
}

std::size_t ArchiveStore::readInto(std::span<std::uint8_t>) {
    throw IoFailure("can't read directory");
}

void ArchiveStore::write(std::span<const std::uint8_t>) {
    throw IoFailure("can't write directory");
}

std::optional<std::vector<std::string>> ArchiveStore::list() {
    if (!isOpen()) return std::nullopt;
    return listPrefix("");
}

StoreRef ArchiveStore::lookup(std::string_view name) {
    if (!isOpen()) return nullptr;
    auto store = std::make_shared<ZipStore>(std::static_pointer_cast<ArchiveStore>(shared_from_this()), name);
    return store->exists() ? store : nullptr;
}

StoreRef ArchiveStore::file(std::string_view name) {
    return name == "." ? shared_from_this() : lookup(name);
}

StoreRef ArchiveStore::create(std::string_view) {
    throw IoFailure("can't write zipped files");
}

StoreRef ArchiveStore::makeDirectory(std::string_view) {
    throw IoFailure("can't write zipped files");
}

void ArchiveStore::close() {
    if (file_ >= 0) ::close(std::exchange(file_, -1));
}

// --- The index ----------------------------------------------------------------------------------------------------

std::string_view ArchiveStore::nameAt(std::uint32_t record) const {
    const std::uint8_t* at = directory_.get() + record;
    return {reinterpret_cast<const char*>(at + ENTRY_LENGTH), shortAt(at + ENTRY_NAME_LENGTH)};
}

ArchiveStore::Member ArchiveStore::member(int entry) const {
    std::uint32_t record = index_[static_cast<std::size_t>(entry)];
    const std::uint8_t* at = directory_.get() + record;
    return {nameAt(record), intAt(at + ENTRY_TIME), intAt(at + ENTRY_COMPRESSED_SIZE), intAt(at + ENTRY_SIZE),
            intAt(at + ENTRY_OFFSET)};
}

std::vector<std::uint32_t>::const_iterator ArchiveStore::lowerBound(std::string_view name) const {
    return std::lower_bound(index_.begin(), index_.end(), name,
                            [&](std::uint32_t record, std::string_view wanted) { return nameAt(record) < wanted; });
}

int ArchiveStore::find(std::string_view name) const {
    auto at = lowerBound(name);
    return at != index_.end() && nameAt(*at) == name ? static_cast<int>(at - index_.begin()) : -1;
}

bool ArchiveStore::findPrefix(std::string_view prefix) const {
    auto at = lowerBound(prefix);
    return at != index_.end() && nameAt(*at).starts_with(prefix);
}

std::vector<std::string> ArchiveStore::listPrefix(std::string_view prefix) const {
    std::vector<std::string> names;
    for (auto at = lowerBound(prefix); at != index_.end() && nameAt(*at).starts_with(prefix); ++at) {
        std::string_view rest = nameAt(*at).substr(prefix.size());
        if (rest.find(FILE_SEPARATOR) == std::string_view::npos) names.emplace_back(rest);
    }
    return names;
}

// --- Reading members ----------------------------------------------------------------------------------------------

ArchiveStore::MemberData ArchiveStore::locate(int entry) {
    if (!isOpen() || entry < 0 || entry >= memberCount()) throw IoFailure("cannot open");
    Member member = this->member(entry);
    std::uint8_t header[LOCAL_LENGTH];
    if (readAt(file_, member.offset, header) != LOCAL_LENGTH || intAt(header) != LOCAL_SIGNATURE)
        throw IoFailure(CORRUPTED);
    if ((shortAt(header + LOCAL_FLAGS) & ENCRYPTED) != 0) throw IoFailure("zip file is encrypted");

    MemberData data{member,
                    member.offset + std::uint64_t{LOCAL_LENGTH} + shortAt(header + LOCAL_NAME_LENGTH) +
                        shortAt(header + LOCAL_EXTRA_LENGTH),
                    shortAt(header + LOCAL_METHOD) == 0};
    if (data.offset + member.compressedSize > fileSize_ || member.compressedSize > INT_MAX) throw IoFailure(CORRUPTED);
    if (!data.stored && member.size > std::min(MAX_INFLATED, member.compressedSize * MAX_INFLATION))
        throw IoFailure(CORRUPTED);
    return data;
}

void ArchiveStore::readData(const MemberData& data, std::span<std::uint8_t> into) {
    if (readAt(file_, data.offset, into) != into.size()) throw IoFailure(CORRUPTED);
}

void ArchiveStore::inflateData(const MemberData& data, std::span<std::uint8_t> into) {
    if (compressed_.size() < data.member.compressedSize) compressed_.resize(data.member.compressedSize);
    readData(data, std::span(compressed_).first(data.member.compressedSize));

    constexpr int RAW_DEFLATE = -15;
    std::uint8_t nothing;
    z_stream stream{};
    stream.next_in = compressed_.data();
    stream.avail_in = data.member.compressedSize;
    stream.next_out = into.empty() ? &nothing : into.data();
    stream.avail_out = static_cast<uInt>(into.size());
    if (inflateInit2(&stream, RAW_DEFLATE) != Z_OK) throw IoFailure(CORRUPTED);
    bool complete = inflate(&stream, Z_FINISH) == Z_STREAM_END && stream.total_out == into.size();
    inflateEnd(&stream);
    if (!complete) throw IoFailure(CORRUPTED);
}

Bytes ArchiveStore::readMember(int entry) {
    MemberData data = locate(entry);
    Bytes contents(data.stored ? data.member.compressedSize : data.member.size);
    if (data.stored)
        readData(data, contents);
    else
        inflateData(data, contents);
    return contents;
}

std::size_t ArchiveStore::readMemberInto(int entry, std::span<std::uint8_t> buffer) {
    MemberData data = locate(entry);
    if (data.stored) {
        readData(data, buffer.first(std::min<std::size_t>(buffer.size(), data.member.compressedSize)));
        return data.member.compressedSize;
    }
    if (buffer.size() >= data.member.size) inflateData(data, buffer.first(data.member.size));
    return data.member.size;
}

// --- A path inside the archive ------------------------------------------------------------------------------------

ZipStore::ZipStore(std::shared_ptr<ArchiveStore> archive, std::string_view name)
    : archive_(std::move(archive)), dirPrefix_(name), nameLength_(name.size()) {
    if (!dirPrefix_.ends_with(FILE_SEPARATOR)) dirPrefix_.push_back(FILE_SEPARATOR);
}

std::string_view ZipStore::fullName() const {
    return std::string_view(dirPrefix_).substr(0, nameLength_);
}

int ZipStore::entry() const {
    if (!archive_->isOpen()) return -1;
    if (entry_ < 0) entry_ = archive_->find(fullName());
    return entry_;
}

bool ZipStore::exists() const {
    return entry_ >= 0 || entry() >= 0 || isDirectory();
}

bool ZipStore::equals(const Store& other) const {
    const auto* that = dynamic_cast<const ZipStore*>(&other);
    return that != nullptr && fullName() == that->fullName() && archive_->equals(*that->archive_);
}

std::uint32_t ZipStore::hashCode() const {
    return archive_->hashCode() + (static_cast<std::uint32_t>(std::hash<std::string_view>()(fullName())) << 10);
}

Date ZipStore::date() const {
    if (date_ == 0) {
        int at = entry();
        date_ = at < 0 ? NO_DATE : dateOfDosTime(archive_->member(at).dosTime);
    }
    return date_;
}

std::string ZipStore::name() const {
    return std::string(lastComponent(fullName()));
}

std::string ZipStore::path() const {
    return joinPath(archive_->path(), fullName());
}

std::optional<std::string> ZipStore::canonicalPath() const {
    std::optional<std::string> archive = archive_->canonicalPath();
    if (!archive) return std::nullopt;
    return joinPath(*archive, fullName());
}

std::optional<std::string> ZipStore::parent() const {
    return archive_->path();
}

bool ZipStore::isDirectory() const {
    return archive_->isOpen() && archive_->findPrefix(dirPrefix_);
}

Bytes ZipStore::read() {
    return archive_->readMember(entry());
}

std::size_t ZipStore::readInto(std::span<std::uint8_t> buffer) {
    return archive_->readMemberInto(entry(), buffer);
}

void ZipStore::write(std::span<const std::uint8_t>) {
    throw IoFailure("can't write zipped file");
}

std::optional<std::vector<std::string>> ZipStore::list() {
    if (!isDirectory()) throw IoFailure("not a directory");
    return archive_->listPrefix(dirPrefix_);
}

StoreRef ZipStore::lookup(std::string_view name) {
    return std::make_shared<ZipStore>(archive_, std::string(dirPrefix_).append(name));
}

StoreRef ZipStore::create(std::string_view) {
    throw IoFailure("can't write zipped file");
}

StoreRef ZipStore::makeDirectory(std::string_view) {
    throw IoFailure("can't write zipped file");
}

} // namespace tarn
