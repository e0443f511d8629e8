#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tarn::edits {

/// How a run of the tool is to come to harm.
struct Harm {
    std::optional<int> killedAtWrite; ///< killed before the change to a file of that number, counted from 0
    bool halfWritten = false;         ///< after half of that write was done, where this machine lets us
    std::optional<long> largestFile;  ///< no file may become larger, in bytes
};

/// What a run of the tool came to.
struct Run {
    int status = 0;     ///< exit status; -1 if it was killed
    std::string output; ///< standard output and error
    int writes = 0;     ///< changes to files that a traced run made
    [[nodiscard]] bool ok() const { return status == 0; }
};

/// Runs the command in that directory and waits for its end. A run with `killedAtWrite` is traced, which some systems
/// forbid: then it ends as it will.
Run runTool(const std::vector<std::string>& command, const std::string& directory, const Harm& harm = {});

} // namespace tarn::edits
