#pragma once

#include <set>
#include <string>

namespace tarn::edits {

/// The classes that a source of a generated program declares by name, as paths without extension: app/Ant$In1.
std::set<std::string> definedClasses(const std::string& path, const std::string& text);
/// The name of the class with a name in which an anonymous class stands; that of any other as it is.
std::string withoutNumbers(std::string className);
/// The classes that the constant pool of a class file names.
std::set<std::string> namedClasses(const std::string& classFile);

} // namespace tarn::edits
