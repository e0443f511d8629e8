#pragma once

#include "compilation.h"

#include <string>
#include <vector>

namespace tarn::fuzz {

/// The sources that go into one compile, and the classes that they give unchanged.
struct Program {
    std::string name;
    std::vector<File> sources;
    ClassFiles classes; ///< empty if it needs more than the library has
};

/// What mutations start from.
struct Corpus {
    std::vector<StoreRef> library; ///< a class path with the class library
    ClassFiles libraryFiles;       ///< the small library; empty if an archive takes its place
    std::vector<Program> programs;
    std::vector<File> sources; ///< of all programs
};

/// Takes the programs of the folders, each of which holds one program per subfolder. The class library is the archive
/// of that path, or if it is empty the small one, which is compiled here from the folder `library`. Throws
/// InternalError if there is next to nothing to mutate.
Corpus readCorpus(const std::vector<std::string>& folders, const std::string& library, const std::string& archive);

} // namespace tarn::fuzz
