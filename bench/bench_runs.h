#pragma once

#include <string>
#include <vector>

namespace tarn::bench {

/// What one run of a program took.
struct Run {
    int status = -1;
    double cpuMilliseconds = 0; ///< of processor time: what a busy machine does not change much
    long peakKilobytes = 0;
};

/// Runs the program with its output thrown away, and waits for it.
Run run(const std::vector<std::string>& command);

/// A class library of the installed Java runtime, made once; empty if there is no runtime.
const std::string& classLibrary();

/// A directory in memory that lives as long as the process.
const std::string& scratch();

} // namespace tarn::bench
