#include "case_file.h"

#include <charconv>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <string_view>

namespace tarn::test {

std::string toString(const Diagnostic& diagnostic) {
    std::string place = diagnostic.file;
    if (!place.empty()) place += ":" + std::to_string(diagnostic.line) + ":" + std::to_string(diagnostic.column) + ": ";
    return place + diagnostic.kind + " " + std::to_string(diagnostic.number) + ": " + diagnostic.text;
}

namespace {

bool take(std::string_view& text, std::string_view prefix) {
    if (!text.starts_with(prefix)) return false;
    text.remove_prefix(prefix.size());
    return true;
}

std::optional<int> takeNumber(std::string_view& text) {
    int value = 0;
    auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (failure != std::errc()) return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return value;
}

/// `(line:column)` or `(-)`.
bool takePlace(std::string_view& text, Diagnostic& into) {
    if (take(text, "(-)")) {
        into.file.clear();
        into.line = into.column = 0;
        return true;
    }
    if (!take(text, "(")) return false;
    std::optional<int> line = takeNumber(text);
    if (!line || !take(text, ":")) return false;
    std::optional<int> column = takeNumber(text);
    if (!column || !take(text, ")")) return false;
    into.line = *line;
    into.column = *column;
    return true;
}

/// The expectation in a line, or nothing if the line is none. `about` is the line that a "^" points into.
std::optional<Diagnostic> parseExpectation(std::string_view line, const std::string& file, int about) {
    std::string_view rest = line;
    rest.remove_prefix(std::min(rest.find_first_not_of(" \t"), rest.size()));
    if (!take(rest, "//")) return std::nullopt;
    rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
    Diagnostic found{.file = file, .line = about};
    bool points = rest.starts_with('^');
    if (points) {
        found.column = static_cast<int>(line.size() - rest.size()) + 1;
        rest.remove_prefix(1);
        if (!take(rest, " ")) return std::nullopt;
    }
    for (const char* kind : {"error", "warning"})
        if (take(rest, kind)) found.kind = kind;
    if (found.kind.empty() || !take(rest, " ")) return std::nullopt;
    std::optional<int> number = takeNumber(rest);
    if (!number) return std::nullopt;
    found.number = *number;
    bool isPlaced = points || (take(rest, " ") && takePlace(rest, found));
    if (!isPlaced || !take(rest, ": ")) throw std::runtime_error("bad expectation: " + std::string(line));
    found.text = rest;
    return found;
}

void parseSource(CaseFile& into, const std::string& path, const std::string& text) {
    std::string_view rest = text;
    int number = 0;
    int about = 0;
    while (!rest.empty()) {
        ++number;
        std::size_t end = std::min(rest.find('\n'), rest.size());
        if (std::optional<Diagnostic> expectation = parseExpectation(rest.substr(0, end), path, about))
            into.expected.push_back(*expectation);
        else
            about = number;
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    into.sources.push_back({path, text});
}

} // namespace

CaseFile readCaseFile(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::string text(std::istreambuf_iterator<char>(stream), {});
    CaseFile result;
    if (file.extension() == ".java") {
        parseSource(result, file.filename().string(), text);
        return result;
    }
    constexpr std::string_view HEAD = "==> ";
    std::size_t at = text.find(HEAD);
    while (at != std::string::npos) {
        std::size_t lineEnd = text.find('\n', at);
        if (lineEnd == std::string::npos) throw std::runtime_error("empty source");
        std::size_t next = text.find("\n" + std::string(HEAD), lineEnd);
        std::size_t end = next == std::string::npos ? text.size() : next + 1;
        std::string path = text.substr(at + HEAD.size(), lineEnd - at - HEAD.size());
        parseSource(result, path, text.substr(lineEnd + 1, end - lineEnd - 1));
        at = next == std::string::npos ? next : next + 1;
    }
    return result;
}

} // namespace tarn::test
