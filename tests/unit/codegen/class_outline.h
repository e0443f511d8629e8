#pragma once

#include "store/store.h"

#include <string>
#include <vector>

namespace tarn {

/// What a class file declares, as text. A member is its flags, name and descriptor ("final synthetic this0:LA;"), in
/// the file's order; an entry of `InnerClasses` its flags, and what is called what in which class ("static A$B=A.B").
struct ClassOutline {
    std::string flags; ///< of the class, with "deprecated" if it has the attribute
    std::vector<std::string> fields;
    std::vector<std::string> methods;
    std::vector<std::string> innerClasses;
};

/// Reads by its own tables, made from the JVM specification; throws std::out_of_range on what is no class file.
ClassOutline outline(const Bytes& classFile);

} // namespace tarn
