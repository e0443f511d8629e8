#pragma once

#include "compilation.h"

#include <string>
#include <vector>

namespace tarn::fuzz {

/// The sources that go into one compile, and the classes that they give unchanged.
struct Program {
    std::string name;
    std::vector<File> sources;
    ClassFiles classes; ///< empty if it has errors
};

/// What mutations start from.
struct Corpus {
    std::vector<StoreRef> library; ///< a class path with the class library
    ClassFiles libraryFiles;       ///< the library's package java.lang
    StoreRef bareLibrary;          ///< the library's classes in memory, without dependency files
    std::vector<Program> programs;
    std::vector<File> sources; ///< of all programs
};

/// Takes the programs of the folders, each of which holds one program per subfolder, and compiles them against the
/// class library `archive`. Throws InternalError if there is next to nothing to mutate.
Corpus readCorpus(const std::vector<std::string>& folders, const std::string& archive);

} // namespace tarn::fuzz
