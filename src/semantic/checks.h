#pragma once

#include "semantic/env.h"
#include "semantic/symbol.h"

namespace tarn {

/// Checks that look at a class as a whole: a method against what it overrides, a concrete class against the abstract
/// methods it inherits, an abstract class against its interfaces, the constructors of a class against one another.
namespace checks {

/// `m` overrides or implements `other`: reports at most one error.
void checkOverride(int pos, MethodSymbol* m, MethodSymbol* other);
/// The method of `tree` against what `c` and its interfaces hold.
void checkOverrides(MethodDef* tree, ClassSymbol* c);
/// The first abstract method visible from `c` that `impl` does not implement; null if none. `c` must be abstract or an
/// interface.
MethodSymbol* firstUndefined(ClassSymbol* impl, ClassSymbol* c);
/// Reports what `firstUndefined` finds for a concrete class.
void checkAllDefined(ClassDef* tree);
void checkImplementations(ClassDef* tree, ClassSymbol* c);
/// Gives an abstract class an abstract method for each interface method that it does not have.
void addInterfaceStubs(ClassDef* tree, ClassSymbol* c);
void checkCyclicConstructors(ClassDef* tree);

} // namespace checks
} // namespace tarn
