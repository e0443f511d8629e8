#pragma once

#include "classlib/byte_reader.h"
#include "classlib/class_model.h"

namespace tarn::classlib {

/// Reads a class file of any version. The result points into `file`. Throws BadInput if the file is garbled.
[[nodiscard]] ClassModel parseClass(Bytes file);

/// Whether a deprecation `since` this release ("1.1", "JDK1.0", "9") was there in 1.1. Text that names no release
/// says nothing, so it counts as newer.
[[nodiscard]] bool isDeprecatedIn11(std::string_view since);

} // namespace tarn::classlib
