#pragma once

#include "classlib/archive_writer.h"

#include <string>
#include <vector>

namespace tarn::classlib {

/// A stable dependency file for each package of an archive of class files, made by the make engine itself, so that a
/// make takes the library as it is and reads no class of it but those that a compile needs. `packages` have their names
/// with dots. Throws IoFailure if a class cannot be read.
std::vector<ArchiveMember> describePackages(const std::string& archive, const std::vector<std::string>& packages);

} // namespace tarn::classlib
