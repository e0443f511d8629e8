#pragma once

#include "store/store.h"

#include <optional>
#include <string>
#include <string_view>

namespace tarn {

/// The places that a list of paths names, in order: elements are parted by ":", empty ones are dropped, and one that
/// ends in ".zip" or ".jar" is an archive. Null for an absent text; nothing is looked up, except that archives are
/// opened.
PathList parsePathList(const std::optional<std::string>& text);

/// What a traced search prints: a header line, and a line for each store that it tries.
struct SearchTrace {
    std::string_view header;                ///< for example "looking for class "; the file name is put behind it
    void (*println)(std::string_view line); ///< prints a line
};

/// What the first store answers that has the file, or null. `name` is relative and may hold separators. The list may be
/// null; `trace` is null for a silent search.
StoreRef search(const PathList& stores, std::string_view name, const SearchTrace* trace = nullptr);

/// A store opened for writing the file `<name><extension>` below an output directory: directories on the way are made
/// if missing. `name` is the class name with "/" for "."; empty components of it are skipped. Null if it cannot be
/// created. Throws IoFailure if the place takes no files at all.
StoreRef outputStore(StoreRef outputDirectory, std::string_view name, std::string_view extension);

/// The file `fileName` beside a source, opened by its first write. In the working directory if the source's path has no
/// directory.
StoreRef storeBeside(const Store& source, std::string_view fileName);

} // namespace tarn
