#pragma once

#include <optional>
#include <string>

namespace tarn {

/// What a program does before anything else, so that its files fail as files do and not as a process ends.
///
/// A write beyond the limit on file sizes fails like one on a full disk, instead of ending the process. And what the
/// caller closed among standard input, output and error is held by the null device: else the next file that is opened,
/// perhaps one to be written, would pass for it.
void prepareProcess();

/// The value of a variable of the environment, which may be empty; absent if it is not set.
std::optional<std::string> environment(const char* name);

} // namespace tarn
