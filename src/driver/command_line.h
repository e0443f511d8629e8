#pragma once

#include "driver/options.h"
#include "store/store.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tarn {

/// What the command line says: flags, paths, and the roots of the make.
struct CommandLine {
    Options options;
    std::optional<std::string> encoding; ///< converter that sources are read with; absent for plain bytes
    PathList classPath;                  ///< null unless given
    PathList sourcePath;                 ///< null unless given
    StoreRef outputDirectory;            ///< null unless given
    std::vector<StoreRef> sources;       ///< all of them exist
    std::vector<std::string> classes;    ///< dotted names
    std::vector<std::string> packages;   ///< dotted names
    bool rebuild = false;
    bool prompt = false;         ///< ask after each error and warning
    bool usageRequested = false; ///< the command line is at fault

    [[nodiscard]] bool hasRoots() const { return !sources.empty() || !classes.empty() || !packages.empty(); }
};

/// Reads the arguments, the program's name not among them, from left to right up to the first fault, which is told on
/// standard output. Makes the directory of `-d` if it is missing, and looks for each source.
///
/// Patterns ("*.java") are the shell's business and stand for themselves here.
CommandLine parseCommandLine(std::span<const char* const> arguments);

} // namespace tarn
