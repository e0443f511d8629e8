#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarn {

/// Separates the components of a path, and the elements of a path list. The separator of a file system that is foreign
/// to this one ("\") is an ordinary character.
constexpr char FILE_SEPARATOR = '/';
constexpr char PATH_SEPARATOR = ':';

/// `<parent><separator><child>`, not normalised; the child alone if the parent is empty.
std::string joinPath(std::string_view parent, std::string_view child);

/// The path as it is handed to the platform: runs of separators are one, and none stands at the end (but for "/").
std::string normalPath(std::string_view path);

/// The same place named from the root. Joins, and looks nothing up; the path may hold "." and "..".
std::string absolutePath(std::string_view path);

/// The path that identifies the place: absolute, normalised, and without "." and ".."; spelled as it was given, since
/// the file system keeps the spelling of names as part of them. Symbolic links stand for themselves. Nothing need
/// exist. Absent if the result would be longer than the platform allows, or if the working directory is gone.
std::optional<std::string> canonicalPath(std::string_view path);

/// What stands behind the last separator; the whole path if it has none.
std::string_view lastComponent(std::string_view path);

/// What stands before the last separator; absent if there is none or it is the first character.
std::optional<std::string> parentPath(std::string_view path);

} // namespace tarn
