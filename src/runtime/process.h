#pragma once

namespace tarn {

/// What a program does before anything else, so that its files fail as files do and not as a process ends.
///
/// A write beyond the limit on file sizes fails like one on a full disk, instead of ending the process. And what the
/// caller closed among standard input, output and error is held by the null device: else the next file that is opened,
/// perhaps one to be written, would pass for it.
void prepareProcess();

} // namespace tarn
