#pragma once

#include "runtime/failure.h"
#include "store/file_path.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace tarn {

/// A path in the form in which the platform takes it. Copies only a path that is not in that form already. The path
/// given must live as long.
class PlatformPath {
public:
    explicit PlatformPath(const std::string& path);

    [[nodiscard]] const char* get() const { return copy_.empty() ? given_.c_str() : copy_.c_str(); }

private:
    const std::string& given_;
    std::string copy_;
};

/// Opens a file for reading without waiting for anyone; -1 and `errno` if it cannot be.
int openToRead(const char* path);

/// Fills `into` from the position in the file, not moving the file's own. Fewer bytes are read only at the end of the
/// file or on a failure.
std::size_t readAt(int file, std::uint64_t position, std::span<std::uint8_t> into);

/// Writes all of `contents` at the start of the file; false and `errno` on a failure.
bool writeAll(int file, std::span<const std::uint8_t> contents);

/// Throws IoFailure with the platform's text for `errno`, in English.
[[noreturn]] void failWithErrno();

} // namespace tarn
