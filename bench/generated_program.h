#pragma once

#include <string>
#include <vector>

namespace tarn::bench {

/// One source of a generated program.
struct GeneratedSource {
    std::string path; ///< relative, with "/"
    std::string text;
};

/// A program of about `lines` lines in classes of about 200 lines each and packages of 25 classes: fields,
/// constructors, loops, switches, strings, arrays, exceptions and calls into other classes, with comments and blank
/// lines between as people write them. The same for the same number of lines.
std::vector<GeneratedSource> generateProgram(int lines);

/// Line ends in all sources.
int countLines(const std::vector<GeneratedSource>& sources);

/// Writes the sources below `directory`, which is made; gives their full paths.
std::vector<std::string> writeProgram(const std::vector<GeneratedSource>& sources, const std::string& directory);

} // namespace tarn::bench
