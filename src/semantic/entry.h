#pragma once

#include "semantic/env.h"
#include "semantic/symbol.h"

#include <cstdint>

namespace tarn {

/// Class entry turns declarations into symbols in two phases. `enter` makes a symbol for each class of a unit;
/// `memberEnter` (completing a class) resolves imports and supertypes and enters fields and methods. Completion is also
/// done on demand, whenever another class needs the members of one that is still waiting. Both are operations of the
/// trees; these are their helpers.
namespace entry {

/// Completes a class from source that still waits for it; does nothing for any other.
void completeClass(ClassSymbol* c);
/// Does the `memberEnter` of the unit of that source, if it still waits for it.
void completeUnit(Name* sourcePath);
/// Whether the class is entered from source and its supertypes are not settled yet.
bool isPending(ClassSymbol* c);
/// Forgets what a compile that was broken off left waiting.
void forgetPending();

enum class BaseRole { EXTENDS = 1, IMPLEMENTS = 2 };
/// Attributes a clause of `extends` or `implements` and checks that it fits there; gives its class also after an error.
ClassSymbol* attribBase(Env* env, Tree* tree, BaseRole role);
/// Whether a supertype of the class could not be found: nothing is known of its members then.
bool hasErroneousSupertype(const ClassSymbol* c);
/// Finds cycles of inheritance and links the members of the class to those of its superclass.
void checkCyclic(int pos, ClassSymbol* c);

/// The flags, held to `allowed`; reports what is not allowed or does not go together.
std::uint32_t checkFlags(int pos, std::uint32_t flags, std::uint32_t allowed, bool isClass);
std::uint32_t checkFlagsByEnv(int pos, std::uint32_t flags, Env* env, std::uint32_t ifaceResult,
                              std::uint32_t classAllowed);
/// Whether nothing in `scope` itself clashes with the symbol; reports if so.
bool checkUnique(int pos, Symbol* sym, Scope* scope);

} // namespace entry
} // namespace tarn
