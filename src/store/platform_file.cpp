#include "store/platform_file.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace tarn {

PlatformPath::PlatformPath(const std::string& path) : given_(path) {
    bool normal = path.size() <= 1 || (path.back() != FILE_SEPARATOR && path.find("//") == std::string::npos);
    if (!normal) copy_ = normalPath(path);
}

int openToRead(const char* path) {
    // Not waiting means that a pipe without a writer gives an error soon, and not a hang.
    int file;
    do {
        file = ::open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    } while (file < 0 && errno == EINTR);
    return file;
}

std::size_t readAt(int file, std::uint64_t position, std::span<std::uint8_t> into) {
    std::size_t done = 0;
    while (done < into.size()) {
        ssize_t count = ::pread(file, into.data() + done, into.size() - done, static_cast<off_t>(position + done));
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) break;
        done += static_cast<std::size_t>(count);
    }
    return done;
}

bool writeAll(int file, std::span<const std::uint8_t> contents) {
    std::size_t done = 0;
    while (done < contents.size()) {
        ssize_t count = ::pwrite(file, contents.data() + done, contents.size() - done, static_cast<off_t>(done));
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;
        done += static_cast<std::size_t>(count);
    }
    return true;
}

void failWithErrno() {
    throw IoFailure(std::strerror(errno));
}

} // namespace tarn
