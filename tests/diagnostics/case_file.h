#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tarn::test {

/// A message as it is expected or reported. Ordered, so that lists of them can be compared.
struct Diagnostic {
    std::string file; ///< the source it is about; empty if it has no position
    int line = 0;
    int column = 0;
    std::string kind; ///< "error" or "warning"
    int number = 0;
    std::string text;

    auto operator<=>(const Diagnostic&) const = default;
};

/// "A.java:3:7: error 354: incompatible types; ..."
std::string toString(const Diagnostic& diagnostic);

/// One batch of sources and all that its compile must report.
///
/// A `.java` file is a batch of one. A `.case` file holds several sources, each behind a line `==> path/Name.java`.
/// What is expected stands in comments of the sources themselves:
///
///     byte b = i;
///     //       ^ error 355: possible loss of precision: int, required: byte
///
/// is about the last line above it that is no such comment, at the column of the "^". Where a comment cannot stand, or
/// not that far to the left, the place is named instead, anywhere in the source: `// error 105 (7:1): unclosed
/// comment`. A message without position is `// warning 369 (-): ...`.
struct CaseFile {
    struct Source {
        std::string path;
        std::string text;
    };
    std::vector<Source> sources;
    std::vector<Diagnostic> expected;
};

/// Throws std::runtime_error if a comment that looks like an expectation is none.
CaseFile readCaseFile(const std::filesystem::path& file);

} // namespace tarn::test
