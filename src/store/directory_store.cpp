#include "store/directory_store.h"

#include "store/file_date.h"
#include "store/file_path.h"
#include "store/platform_file.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <functional>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace tarn {

namespace {

int openToWrite(const char* path) {
    int file;
    do {
        file = ::open(path, O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0666);
    } while (file < 0 && errno == EINTR);
    return file;
}

/// Length in bytes of the open regular file.
std::size_t lengthOf(int file) {
    struct stat status;
    if (::fstat(file, &status) != 0) failWithErrno();
    if (S_ISDIR(status.st_mode)) throw IoFailure("is a directory");
    if (!S_ISREG(status.st_mode)) throw IoFailure("not a regular file");
    if (status.st_size > INT_MAX) throw IoFailure("file too large");
    return static_cast<std::size_t>(status.st_size);
}

void readExactly(int file, std::span<std::uint8_t> into) {
    if (readAt(file, 0, into) != into.size()) throw IoFailure("incomplete read");
}

/// Gives the open file exactly these contents. On a failure false and `errno`; the contents are garbled then.
bool replaceContents(int file, const struct stat& before, std::span<const std::uint8_t> contents) {
    if (!writeAll(file, contents)) return false;
    bool longer = S_ISREG(before.st_mode) && before.st_size > static_cast<off_t>(contents.size());
    return !longer || ::ftruncate(file, static_cast<off_t>(contents.size())) == 0;
}

} // namespace

bool DirectoryStore::exists() const {
    if (in_ >= 0 || out_ >= 0) return true;
    struct stat status;
    return ::stat(PlatformPath(path_).get(), &status) == 0;
}

bool DirectoryStore::equals(const Store& other) const {
    const auto* that = dynamic_cast<const DirectoryStore*>(&other);
    if (that == nullptr) return false;
    if (this == that) return true;
    return absolutePath(path_) == absolutePath(that->path_) && date() == that->date();
}

std::uint32_t DirectoryStore::hashCode() const {
    return static_cast<std::uint32_t>(std::hash<std::string>()(absolutePath(path_))) +
           static_cast<std::uint32_t>(date());
}

void DirectoryStore::moveDateOn(Date units) {
    PlatformPath path(path_);
    struct stat status;
    if (::stat(path.get(), &status) != 0) return;
    // A full unit is what every archive keeps of it.
    std::time_t even = status.st_mtim.tv_sec + status.st_mtim.tv_sec % 2;
    const timespec times[] = {{.tv_sec = 0, .tv_nsec = UTIME_OMIT}, {.tv_sec = even + 2 * units}};
    ::utimensat(AT_FDCWD, path.get(), times, 0);
}

Date DirectoryStore::date() const {
    return dateOfFile(PlatformPath(path_).get());
}

std::string DirectoryStore::name() const {
    return std::string(lastComponent(path_));
}

std::optional<std::string> DirectoryStore::canonicalPath() const {
    return tarn::canonicalPath(path_);
}

std::optional<std::string> DirectoryStore::parent() const {
    return parentPath(path_);
}

bool DirectoryStore::isDirectory() const {
    if (in_ >= 0 || out_ >= 0) return false;
    struct stat status;
    return ::stat(PlatformPath(path_).get(), &status) == 0 && S_ISDIR(status.st_mode);
}

void DirectoryStore::openForReading() {
    if (out_ >= 0) throw IoFailure("read from output stream");
    if (in_ < 0) in_ = openToRead(PlatformPath(path_).get());
    if (in_ < 0) failWithErrno();
}

namespace {

/// Closes a store at the end of a scope, however that ends.
class ScopedClose {
public:
    explicit ScopedClose(Store& store) : store_(store) {}
    ~ScopedClose() { store_.close(); }
    ScopedClose(const ScopedClose&) = delete;
    ScopedClose& operator=(const ScopedClose&) = delete;

private:
    Store& store_;
};

} // namespace

Bytes DirectoryStore::read() {
    openForReading();
    ScopedClose closing(*this);
    Bytes contents(lengthOf(in_));
    readExactly(in_, contents);
    return contents;
}

std::size_t DirectoryStore::readInto(std::span<std::uint8_t> buffer) {
    openForReading();
    ScopedClose closing(*this);
    std::size_t length = lengthOf(in_);
    readExactly(in_, buffer.first(std::min(length, buffer.size())));
    return length;
}

void DirectoryStore::write(std::span<const std::uint8_t> contents) {
    if (in_ >= 0) throw IoFailure("write to input stream");
    PlatformPath path(path_);
    if (out_ < 0) out_ = openToWrite(path.get());
    if (out_ < 0) failWithErrno();

    struct stat before {};
    bool written = ::fstat(out_, &before) == 0 && replaceContents(out_, before, contents);
    int error = errno;
    // A full disk may show only when the file is closed.
    if (::close(std::exchange(out_, -1)) != 0 && written) {
        error = errno;
        written = false;
    }
    if (written) return;
    if (S_ISREG(before.st_mode)) ::unlink(path.get());
    errno = error;
    failWithErrno();
}

namespace {

/// Whether a file can be read there. Most file systems say so in the listing itself; links are followed.
bool isRegularFile(DIR* directory, const dirent& entry) {
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return entry.d_type == DT_REG;
    struct stat status;
    return ::fstatat(::dirfd(directory), entry.d_name, &status, 0) == 0 && S_ISREG(status.st_mode);
}

} // namespace

std::optional<std::vector<std::string>> DirectoryStore::list() {
    if (in_ >= 0 || out_ >= 0) throw IoFailure("not a directory");
    DIR* directory = ::opendir(PlatformPath(path_).get());
    if (directory == nullptr) return std::nullopt;
    std::vector<std::string> names;
    while (const dirent* entry = ::readdir(directory))
        if (isRegularFile(directory, *entry)) names.emplace_back(entry->d_name);
    ::closedir(directory);
    // Few file systems keep an order of their own, and a make should go the same way on all of them.
    std::sort(names.begin(), names.end());
    return names;
}

StoreRef DirectoryStore::lookup(std::string_view name) {
    std::string path = joinPath(path_, name);
    struct stat status;
    if (::stat(PlatformPath(path).get(), &status) != 0) return nullptr;
    return std::make_shared<DirectoryStore>(std::move(path));
}

StoreRef DirectoryStore::file(std::string_view name) {
    return std::make_shared<DirectoryStore>(joinPath(path_, name));
}

StoreRef DirectoryStore::create(std::string_view name) {
    std::string path = joinPath(path_, name);
    int out = openToWrite(PlatformPath(path).get());
    if (out < 0) return nullptr;
    return std::make_shared<DirectoryStore>(std::move(path), -1, out);
}

StoreRef DirectoryStore::makeDirectory(std::string_view name) {
    auto directory = std::make_shared<DirectoryStore>(joinPath(path_, name));
    if (!directory->isDirectory()) ::mkdir(PlatformPath(directory->path_).get(), 0777);
    return directory;
}

void DirectoryStore::close() {
    if (in_ >= 0) ::close(std::exchange(in_, -1));
    if (out_ < 0) return;
    // Created, but never written: an empty file would pass for a result.
    struct stat status;
    if (::fstat(out_, &status) == 0 && S_ISREG(status.st_mode) && status.st_size == 0)
        ::unlink(PlatformPath(path_).get());
    ::close(std::exchange(out_, -1));
}

} // namespace tarn
