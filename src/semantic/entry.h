#pragma once

#include "semantic/env.h"
#include "semantic/symbol.h"

#include <cstdint>

namespace tarn {

/// Class entry turns declarations into symbols in two phases. `enter` makes a symbol for each class of a unit;
/// `memberEnter` (completing a class) resolves imports and supertypes and enters fields and methods. Completion is also
/// done on demand, whenever another class needs to know the supertypes of one that is still waiting. Both are
/// operations of the trees; these are their helpers.
namespace entry {

/// Completes a class from source that still waits for it; does nothing for any other. While the clauses of another
/// class or unit are being settled, the members of this one follow later.
void completeClass(ClassSymbol* c);
/// Completes the class and all that it inherits from. The clauses of a class from source see to its supertypes, but one
/// that was read from its file may inherit from one that comes from source.
void completeHierarchy(ClassSymbol* c);
/// Does the same, but passes over what is under way or stands within what is; tells whether anything waited for it.
bool completeIdle(ClassSymbol* c);
/// Resolves the imports of the unit of that source, if they still wait for it.
void completeImports(Name* sourcePath);
/// Whether the class is entered from source and its supertypes are not settled yet.
bool isPending(ClassSymbol* c);
/// Forgets what a compile that was broken off left waiting.
void forgetPending();

/// While it lives, clauses are being settled, and no members are entered.
class ScopedClauses {
public:
    ScopedClauses();
    ~ScopedClauses();
    ScopedClauses(const ScopedClauses&) = delete;
    ScopedClauses& operator=(const ScopedClauses&) = delete;
};

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
