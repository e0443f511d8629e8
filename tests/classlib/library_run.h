#pragma once

#include "classlib/class_writer.h"
#include "classlib/legacy_library.h"
#include "classlib/old_class.h"

namespace tarn::classlib::test {

/// The class files that the tool would put into the archive. Throws BadInput.
inline Archive classFilesOf(const RuntimeImage& image, const std::vector<std::string>& packages = {}) {
    LegacyLibrary library(image, packages);
    Archive archive;
    for (const auto& [name, model] : library.classes())
        archive[std::string(name) + ".class"] = writeClass(model, library);
    return archive;
}

} // namespace tarn::classlib::test
