#pragma once

#include <string_view>

namespace tarn {

/// Standard output, collected so that a typical run writes it with one system call.
///
/// Whoever waits for the user or ends the process flushes first. A terminal gets each line at once. Texts are UTF-8 and
/// go out as they stand. A failing write drops the output: there is nobody left to tell.
void consolePrint(std::string_view text);
/// The text and a line end.
void consolePrintln(std::string_view text);
void flushConsole();

/// Text and a line end to standard error, at once; standard output is flushed first so that the order holds.
void errorPrintln(std::string_view text);

} // namespace tarn
