#include "store/file_path.h"

#include <climits>
#include <unistd.h>

namespace tarn {

namespace {

bool isAbsolute(std::string_view path) {
    return path.starts_with(FILE_SEPARATOR);
}

/// Takes the last component off an absolute path that is being built; the root stays.
void goUp(std::string& path) {
    std::size_t at = path.rfind(FILE_SEPARATOR);
    if (at != std::string::npos) path.resize(at);
}

} // namespace

std::string joinPath(std::string_view parent, std::string_view child) {
    if (parent.empty()) return std::string(child);
    std::string path;
    path.reserve(parent.size() + 1 + child.size());
    path.append(parent).push_back(FILE_SEPARATOR);
    return path.append(child);
}

std::string normalPath(std::string_view path) {
    std::string result;
    result.reserve(path.size());
    for (char c : path) {
        if (c == FILE_SEPARATOR && result.ends_with(FILE_SEPARATOR)) continue;
        result.push_back(c);
    }
    if (result.size() > 1 && result.ends_with(FILE_SEPARATOR)) result.pop_back();
    return result;
}

std::string absolutePath(std::string_view path) {
    char directory[PATH_MAX];
    if (isAbsolute(path) || ::getcwd(directory, sizeof directory) == nullptr) return std::string(path);
    return joinPath(directory, path);
}

namespace {

/// Whether the path is surely canonical as it stands.
bool isCanonical(std::string_view path) {
    if (path.size() >= PATH_MAX || !isAbsolute(path) || path.ends_with(FILE_SEPARATOR)) return false;
    for (std::size_t i = 1; i < path.size(); ++i)
        if (path[i - 1] == FILE_SEPARATOR && (path[i] == FILE_SEPARATOR || path[i] == '.')) return false;
    return true;
}

} // namespace

std::optional<std::string> canonicalPath(std::string_view path) {
    if (isCanonical(path)) return std::string(path);
    std::string absolute = absolutePath(path);
    if (!isAbsolute(absolute)) return std::nullopt;
    std::string result;
    result.reserve(absolute.size());
    std::string_view rest = absolute;
    while (!rest.empty()) {
        std::size_t end = rest.find(FILE_SEPARATOR);
        std::string_view component = rest.substr(0, end);
        rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
        if (component.empty() || component == ".") continue;
        if (component == "..") {
            goUp(result);
        } else {
            result.push_back(FILE_SEPARATOR);
            result.append(component);
        }
    }
    if (result.empty()) result.push_back(FILE_SEPARATOR);
    if (result.size() >= PATH_MAX) return std::nullopt;
    return result;
}

std::string_view lastComponent(std::string_view path) {
    return path.substr(path.rfind(FILE_SEPARATOR) + 1);
}

std::optional<std::string> parentPath(std::string_view path) {
    std::size_t at = path.rfind(FILE_SEPARATOR);
    if (at == std::string_view::npos || at == 0) return std::nullopt;
    return std::string(path.substr(0, at));
}

} // namespace tarn
