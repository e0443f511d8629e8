#pragma once

#include "syntax/tree_declarations.h"

#include <cstdint>
#include <initializer_list>
#include <span>

namespace tarn {

/// Makes trees that are attributed already: each node gets its symbol and its type, so that what lowering puts together
/// means what it says wherever it ends up, whatever names are visible there.
///
/// Nodes are made in the arena of the unit, at the current position and for the current class.
class TreeMaker {
public:
    int pos = 0;
    ClassSymbol* currentClass = nullptr;

    /// Makes nodes of that unit from now on.
    void setUnit(CompilationUnit* unit) { arena_ = &unit->arena; }
    /// Sets the position and returns the one before.
    int setPos(int newPos);
    /// Sets the class and returns the one before.
    ClassSymbol* setCurrentClass(ClassSymbol* c);

    Tree* ident(Symbol* sym);
    Tree* select(Tree* qualifier, Symbol* sym);
    /// `this`, of the current class.
    Tree* thisTree();
    Tree* nullTree();
    /// A call. `callee` was made of a method symbol.
    Tree* apply(Tree* callee, Trees args);
    Tree* assign(Tree* lhs, Tree* rhs);
    /// A compound assignment, whose operator is `op`.
    Tree* assignop(int tag, OperatorSymbol* op, Tree* lhs, Tree* rhs);
    Tree* unary(int tag, OperatorSymbol* op, Tree* arg, Type* type);
    Tree* exec(Tree* expr);
    Tree* returnTree(MethodDef* method, Tree* expr);
    /// `call` as the last statement of `method`: a `return` of it, unless it gives nothing.
    Tree* exprOrReturn(MethodDef* method, Tree* call);
    /// A definition of the variable, without an initializer.
    VarDef* varDef(VarSymbol* variable);
    /// Definitions of parameters of a method: `x$0`, `x$1`, ...
    Trees paramDefs(Types types, MethodSymbol* method);
    Trees idents(Trees varDefs);
    /// A definition of the method, with an empty body, in the class environment.
    MethodDef* methodDef(MethodSymbol* method, Trees params, Env* classEnv);
    Block* block(Trees stats);
    Tree* typeTree(Type* type);

    Trees list(std::initializer_list<Tree*> trees);
    Trees concat(std::span<Tree* const> front, std::span<Tree* const> back);

    /// The number of the name of a generated parameter, made a name.
    static Name* numbered(const char* prefix, std::size_t number);
    static VarSymbol* variable(std::uint32_t flags, Name* name, Type* type, Symbol* owner, int pos);

    [[nodiscard]] Arena& arena() const { return *arena_; }

private:
    Arena* arena_ = nullptr;
};

} // namespace tarn
