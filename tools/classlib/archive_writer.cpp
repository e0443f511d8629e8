#include "classlib/archive_writer.h"

#include <algorithm>
#include <sys/stat.h>
#include <zip.h>

namespace tarn::classlib {

namespace {

/// An archive in the making, thrown away unless it is finished.
class Archive {
public:
    explicit Archive(const std::string& path) : path_(path) {
        int code = 0;
        archive_ = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &code);
        if (archive_ != nullptr) return;
        zip_error_t error;
        zip_error_init_with_code(&error, code);
        std::string text = zip_error_strerror(&error);
        zip_error_fini(&error);
        throw OutputFailure("cannot write " + path_ + ": " + text);
    }
    Archive(const Archive&) = delete;
    Archive& operator=(const Archive&) = delete;
    ~Archive() {
        if (archive_ != nullptr) zip_discard(archive_);
    }

    /// The member must stay until `finish` returns.
    void add(const ArchiveMember& member) {
        zip_source_t* source = zip_source_buffer(archive_, member.data.data(), member.data.size(), 0);
        if (source == nullptr) fail();
        zip_int64_t added = zip_file_add(archive_, member.name.c_str(), source, 0);
        if (added < 0) {
            zip_source_free(source);
            fail();
        }
        auto index = static_cast<zip_uint64_t>(added);
        if (zip_set_file_compression(archive_, index, ZIP_CM_STORE, 0) != 0 ||
            zip_file_set_dostime(archive_, index, static_cast<zip_uint16_t>(member.date & 0xFFFF),
                                 static_cast<zip_uint16_t>(member.date >> 16), 0) != 0)
            fail();
    }

    void finish() {
        if (zip_close(archive_) != 0) fail();
        archive_ = nullptr;
    }

private:
    [[noreturn]] void fail() { throw OutputFailure("cannot write " + path_ + ": " + zip_strerror(archive_)); }

    std::string path_;
    zip_t* archive_ = nullptr;
};

} // namespace

std::uint32_t dateOfContents(const std::vector<std::uint8_t>& data) {
    std::uint64_t hash = 0xCBF29CE484222325; // FNV-1a
    for (std::uint8_t byte : data) hash = (hash ^ byte) * 0x100000001B3;
    hash ^= hash >> 29;
    auto take = [&hash](std::uint32_t choices) {
        auto chosen = static_cast<std::uint32_t>(hash % choices);
        hash /= choices;
        return chosen;
    };
    std::uint32_t time = take(24) << 11;
    time |= take(60) << 5;
    time |= take(30);
    std::uint32_t date = (1 + take(16)) << 9;
    date |= (1 + take(12)) << 5;
    date |= 1 + take(28);
    return date << 16 | time;
}

std::uint64_t writeArchive(const std::string& path, std::vector<ArchiveMember> members) {
    struct stat status {};
    // The finished archive is renamed over what is there, which must not be a device or a directory.
    if (::stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode))
        throw OutputFailure("cannot write " + path + ": it is there and is not a regular file");
    std::sort(members.begin(), members.end(),
              [](const ArchiveMember& a, const ArchiveMember& b) { return a.name < b.name; });
    Archive archive(path);
    for (const ArchiveMember& member : members) archive.add(member);
    archive.finish();
    return ::stat(path.c_str(), &status) == 0 ? static_cast<std::uint64_t>(status.st_size) : 0;
}

} // namespace tarn::classlib
