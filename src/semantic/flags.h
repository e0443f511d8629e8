#pragma once

#include <cstdint>
#include <string>

namespace tarn {

/// Kinds of symbols. The low bits are a set, so that a mask can say what an expression may denote; from AMBIGUOUS on a
/// "symbol" is a failed search, and among failures the lower kind is the better one.
enum : int {
    NONE = 0, ///< alias entry of a scope, the end mark of a bucket, or a class known by name only
    PCK = 1,
    TYP = 2,
    VAR = 4,
    MTH = 8,
    VAL_BIT = 0x10, ///< a value that is not a variable; never the kind of a symbol
    VAL = 0x14,     ///< any value
    ERR = 0x1f,     ///< the error symbol
    CTOR = 0x20,    ///< only as an expected kind: the callee of a this(...) or super(...) call
    AMBIGUOUS = 0x100,
    LOAD_ERROR = 0x101,
    ACCESS_ERROR = 0x102,
    VAR_NOT_FOUND = 0x103,
    METHOD_NOT_FOUND = 0x104,
    TYPE_NOT_FOUND = 0x105,
};

/// Modifiers: the low 16 bits as in class files, the bits above internal.
namespace flag {
enum : std::uint32_t {
    PUBLIC = 0x1,
    PRIVATE = 0x2,
    PROTECTED = 0x4,
    STATIC = 0x8,
    FINAL = 0x10,
    SYNCHRONIZED = 0x20,
    VOLATILE = 0x40,
    TRANSIENT = 0x80,
    NATIVE = 0x100,
    INTERFACE = 0x200,
    ABSTRACT = 0x400,
    DEPRECATED = 0x10000,        ///< read from a class file; a use gives the deprecation warning
    SOURCE_DEPRECATED = 0x20000, ///< from "@deprecated" in a doc comment; a use gives no warning
    SYNTHETIC = 0x40000,
    CAPTURED = 0x80000, ///< a local that is used from within a local or anonymous class
    PARAMETER = 0x200000,
    LOCAL_CLASS = 0x400000, ///< a class declared in code, or an anonymous class body
};
} // namespace flag

constexpr std::uint32_t ACCESS_FLAGS = flag::PUBLIC | flag::PRIVATE | flag::PROTECTED;

/// The names of the set flags among the low 16 bits, lowest first, each followed by one blank.
std::string flagNames(std::uint32_t flags);
/// The name of bit `bit` (0 to 10); anything else is an internal error.
const char* flagName(int bit);
/// The number of the lowest set bit, or 11 if none of bits 0 to 10 is set.
int firstFlag(std::uint32_t mask);
/// "variable, method or class" for a mask; "identifier" for an empty one; "value" and "constructor" for those kinds.
std::string kindNames(int mask);

} // namespace tarn
