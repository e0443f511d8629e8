#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

namespace tarn::classlib {

/// The archive could not be written. The text names it and says why.
class OutputFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// 1997-01-01 00:00:00 as MS-DOS has it: the date in the high half, the time in the low one.
constexpr std::uint32_t FIXED_DATE = ((1997U - 1980) << 9 | 1 << 5 | 1) << 16;

/// A file in the archive.
struct ArchiveMember {
    std::string name; ///< with slashes, relative
    std::vector<std::uint8_t> data;
    std::uint32_t date = FIXED_DATE;
};

/// A date between 1981 and 1996 that stands for the contents. The make engine takes a class as unchanged as long as its
/// date is the same, so a class that another runtime has just so must keep its date, and one that differs must not.
std::uint32_t dateOfContents(const std::vector<std::uint8_t>& data);

/// Writes the zip file `path` with `members` in the order of their names, and gives its size in bytes. It is made
/// beside its place and renamed when it is whole, so what was there before stays until then. The same members
/// give the same bytes. Throws OutputFailure.
///
/// The members are stored, not deflated. Class files without code are small, some 650 bytes on average, so deflating
/// the library of a runtime only brings it from 3.2 MB to 2.1. For that the compiler would have to inflate every class
/// that it reads, at some 5 microseconds each, and lose the short way of reading a member straight into its buffer.
std::uint64_t writeArchive(const std::string& path, std::vector<ArchiveMember> members);

} // namespace tarn::classlib
