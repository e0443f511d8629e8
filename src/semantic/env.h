#pragma once

#include "semantic/type.h"

namespace tarn {

class ClassDef;
class CompilationUnit;
class MethodDef;
class Scope;
class Symbol;
class Tree;

/// The place in the program where attribution stands. Lives in the arena of its unit.
struct Env {
    Env* next = nullptr;  ///< the environment in which this one was made
    Env* outer = nullptr; ///< around the enclosing class; null at top level
    Tree* tree = nullptr; ///< what this environment belongs to
    CompilationUnit* toplevel = nullptr;
    MethodDef* enclMethod = nullptr; ///< null outside of methods
    ClassDef* enclClass = nullptr;   ///< null at top level
    Scope* scope = nullptr;
    TypeList* handled = nullptr; ///< exceptions that may be thrown here without report
    bool isStatic = false;
    bool isSelfCall = false;    ///< the arguments of this(...) or super(...) are being attributed
    bool isClause = false;      ///< in `extends` and `implements` the members of the class are not visible yet
    bool isSelectSuper = false; ///< the qualifier of the name just being selected was a class name or `super`

    /// A first environment: for the unit, with a fresh scope of that owner.
    static Env* init(CompilationUnit* toplevel, Symbol* owner);
    /// A copy for another tree, whose `next` is this one.
    Env* dup(Tree* forTree);
    Env* dup(Tree* forTree, Scope* withScope);
    [[nodiscard]] bool isInterface() const;
};

} // namespace tarn
