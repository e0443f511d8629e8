#pragma once

#include "store/store.h"

#include <cstdint>
#include <string>

namespace tarn {

/// The date of a moment given in seconds since 1970-01-01 UTC: local time as it was in force at that moment, in units
/// of two seconds, rounded up. Fractions of a second are left out, so that a file's date equals that of its copy in an
/// archive.
Date dateOfUnixTime(std::int64_t seconds);

/// The date of an archive member's packed time stamp: the DOS date in the high half and the DOS time in the low one, a
/// local time already. NO_DATE if the word is no valid date and time.
Date dateOfDosTime(std::uint32_t packed);

/// When the regular file at `path` (null-terminated) was modified last; NO_DATE if there is none. A directory has no
/// date: its time stamp tells nothing about the contents of the files in it.
Date dateOfFile(const char* path);

} // namespace tarn
