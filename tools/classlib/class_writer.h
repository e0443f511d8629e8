#pragma once

#include "classlib/legacy_library.h"

#include <cstdint>
#include <vector>

namespace tarn::classlib {

/// The class file, version 45.3, of a class of `library`. Its methods have no code, those that are not abstract
/// either: it is there to be compiled against. Its pool holds nothing that is not used, in the order of first use.
/// Throws BadInput if the pool gets more entries than fit.
[[nodiscard]] std::vector<std::uint8_t> writeClass(const ClassModel& model, const LegacyLibrary& library);

} // namespace tarn::classlib
