#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// Runtime images and modern class files, written down by a test and assembled here.
namespace tarn::classlib::test {

using ByteVector = std::vector<std::uint8_t>;

struct MemberSource {
    unsigned flags;
    std::string name;
    std::string descriptor;
    std::vector<std::string> exceptions = {};
    std::optional<int> intConstant = {};
    std::optional<std::string> stringConstant = {};
    std::optional<std::string> since = {}; ///< of its annotation Deprecated; empty for one without
};

struct NestedSource {
    std::string name, outer, simpleName;
    unsigned flags;
};

struct ClassSource {
    unsigned flags;
    std::string name;
    std::string superclass = "java/lang/Object";
    std::vector<std::string> interfaces = {};
    std::vector<MemberSource> fields = {};
    std::vector<MemberSource> methods = {};
    std::vector<NestedSource> nested = {};
    std::optional<std::string> since = {};
};

/// A class file of version 61, with code in each method that is neither abstract nor native, a Signature attribute and
/// an annotation before each Deprecated.
ByteVector modernClass(const ClassSource& source);

enum class Compression { NONE, ZIP, UNKNOWN };

struct ResourceSource {
    std::string module;
    std::string name; ///< with slashes and extension
    ByteVector content;
    Compression compression = Compression::NONE;
};

/// A runtime image, in the other byte order than this machine's if `swapped`.
ByteVector runtimeImage(const std::vector<ResourceSource>& resources, bool swapped = false);

/// The image of these classes, all in java.base.
ByteVector imageOf(const std::vector<ClassSource>& classes);

/// Puts a 32-bit number at an offset of an image of this machine's byte order.
void patchWord(ByteVector& image, std::size_t offset, std::uint32_t value);

} // namespace tarn::classlib::test
