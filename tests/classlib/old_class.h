#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace tarn::classlib::test {

/// A class file of version 45.3, read by the rules of that version and with no more than a class library may have:
/// no code, none but the attributes ConstantValue, Exceptions, Deprecated and InnerClasses, no unknown flag, no pool
/// entry without a use. The constructor throws std::runtime_error for everything else.
struct OldClass {
    explicit OldClass(const std::vector<std::uint8_t>& file);

    /// What the file says, line by line, flags in hexadecimal:
    ///     class 21 a/B extends a/A implements a/I [deprecated]
    ///     field 19 NAME I [= 5] [deprecated]
    ///     method 1 name (I)V [throws a/E] [deprecated]
    ///     inner 9 a/B$C = C of a/B
    std::vector<std::string> lines;
    std::string name;
    std::set<std::string> references; ///< every class that the file names, in a class entry or in a descriptor
};

/// Files by their names in the archive.
using Archive = std::map<std::string, std::vector<std::uint8_t>>;

/// Reads each class and checks that it lies under its name, that every class named is there, and that the class
/// around a nested one is. Throws std::runtime_error, naming the first that is not so.
std::map<std::string, OldClass> readClosedArchive(const Archive& archive);

} // namespace tarn::classlib::test
