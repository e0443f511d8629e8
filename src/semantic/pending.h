#pragma once

#include "semantic/context.h"

#include <unordered_map>

namespace tarn {

class ClassDef;
class CompilationUnit;

namespace entry {

using PendingClasses = std::unordered_map<ClassSymbol*, ClassDef*>;
using PendingUnits = NameTableOf<CompilationUnit*>;

/// Classes that were entered and whose superclass and interfaces are not settled yet; being in here is what makes a
/// class count as not completed. Process-wide; empty outside of a compile.
PendingClasses& pendingClasses();
/// Units that were entered and whose imports are not resolved, by the path of their source. Process-wide.
PendingUnits& pendingUnits();

} // namespace entry
} // namespace tarn
