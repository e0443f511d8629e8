#include "semantic/env.h"

#include "semantic/context.h"
#include "semantic/scope.h"
#include "syntax/tree_declarations.h"

namespace tarn {

Env* Env::init(CompilationUnit* toplevel, Symbol* owner) {
    auto* env = toplevel->arena.make<Env>();
    env->tree = toplevel;
    env->toplevel = toplevel;
    env->scope = Scope::make(nullptr, owner);
    return env;
}

Env* Env::dup(Tree* forTree) {
    return dup(forTree, scope);
}

Env* Env::dup(Tree* forTree, Scope* withScope) {
    auto* copy = toplevel->arena.make<Env>(*this);
    copy->next = this;
    copy->tree = forTree;
    copy->scope = withScope;
    return copy;
}

bool Env::isInterface() const {
    return tree->tag == treetag::CLASSDEF && enclClass != nullptr && enclClass->sym->isInterface();
}

} // namespace tarn
