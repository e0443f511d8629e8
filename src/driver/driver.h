#pragma once

#include <span>

namespace tarn {

/// One run of the tool: parses the arguments (the program's name not among them), makes what they name, and prints the
/// totals. Returns the exit status: 0 if no error was counted, also after a fault of the command line, else -1. What is
/// thrown from here is a fault of the tool, or the user's wish to stop.
int runTool(std::span<const char* const> arguments);

} // namespace tarn
