#pragma once

namespace tarn {

/// Tags of constant pool entries, as the Java Virtual Machine Specification numbers them.
namespace pooltag {
enum : int {
    UTF8 = 1,
    UNICODE = 2, ///< never used, and later dropped from the format
    INTEGER = 3,
    FLOAT = 4,
    LONG = 5, ///< takes two indices, as does DOUBLE
    DOUBLE = 6,
    CLASS = 7,
    STRING = 8,
    FIELD = 9,
    METHOD = 10,
    INTERFACE_METHOD = 11,
    NAME_AND_TYPE = 12,
};
} // namespace pooltag

} // namespace tarn
