#pragma once

#include "semantic/env.h"
#include "semantic/symbol.h"

namespace tarn {

/// Checks that look at a class as a whole: a method against what it overrides, a concrete class against the abstract
/// methods it inherits, an abstract class against its interfaces, the constructors of a class against one another.
namespace checks {

/// `m` overrides or implements `other`: reports at most one error.
void checkOverride(int pos, MethodSymbol* m, MethodSymbol* other);
/// A method against those of its class's supertypes.
void checkOverrides(MethodDef* tree);
/// Reports the first abstract method that a concrete class does not implement.
void checkAllDefined(ClassDef* tree);
/// What a class has, inherited methods too, against its interfaces.
void checkImplementations(ClassDef* tree);
/// Gives an abstract class an abstract method for each interface method that it does not have.
void addInterfaceStubs(ClassDef* tree);
void checkCyclicConstructors(ClassDef* tree);

} // namespace checks
} // namespace tarn
