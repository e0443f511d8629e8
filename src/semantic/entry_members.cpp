#include "driver/reporter.h"
#include "semantic/attribution.h"
#include "semantic/context.h"
#include "semantic/entry.h"
#include "semantic/scope.h"
#include "syntax/tree_declarations.h"

#include <vector>

// Member entry of methods, catch clauses and variables: their symbols, types and environments.

namespace tarn {

using namespace entry;

namespace {

constexpr std::uint32_t CONSTRUCTOR_FLAGS = ACCESS_FLAGS;
constexpr std::uint32_t METHOD_FLAGS =
    ACCESS_FLAGS | flag::STATIC | flag::FINAL | flag::SYNCHRONIZED | flag::NATIVE | flag::ABSTRACT;
constexpr std::uint32_t INTERFACE_METHOD_FLAGS = flag::PUBLIC | flag::ABSTRACT;
constexpr std::uint32_t FIELD_FLAGS = ACCESS_FLAGS | flag::STATIC | flag::FINAL | flag::VOLATILE | flag::TRANSIENT;
constexpr std::uint32_t INTERFACE_FIELD_FLAGS = flag::PUBLIC | flag::STATIC | flag::FINAL;

Type* attrParameter(Tree* parameter, Env* env, Type* pt) {
    parameter->attr(env, VAL, pt);
    auto* def = static_cast<VarDef*>(parameter);
    if (def->sym == nullptr || def->sym->kind != VAR) return errType;
    def->sym->flags |= flag::PARAMETER;
    return def->sym->type;
}

Type* resultType(const MethodDef* tree, Env* env) {
    if (tree->name == names().init) return context().voidType;
    return tree->restype == nullptr ? anythingType : tree->restype->attr(env, TYP, anythingType);
}

} // namespace

void MethodDef::memberEnter(Env* outer) {
    if (tag == treetag::ERRONEOUS) {
        sym = errSymbol;
        return;
    }
    std::uint32_t allowed = name == names().init ? CONSTRUCTOR_FLAGS : METHOD_FLAGS;
    auto* m = context().arena.make<MethodSymbol>();
    m->init(checkFlagsByEnv(pos, flags, outer, INTERFACE_METHOD_FLAGS, allowed), MTH, name, nullptr,
            outer->enclClass == nullptr ? nullptr : outer->enclClass->sym);
    m->pos = pos;
    sym = m;
    env = outer->dup(this);
    env->isStatic = outer->isStatic || m->isStatic();
    if (tag == treetag::CATCH) {
        enterCatchClause(outer);
        return;
    }
    enterSignature(outer, m);
    if (!checkUnique(pos, m, outer->scope))
        sym = errSymbol;
    else
        outer->scope->enter(m);
}

void MethodDef::enterSignature(Env* outer, MethodSymbol* m) {
    Scope* local = outer->enclClass->localScope;
    local->owner = m;
    env->scope = local->dup(outer->toplevel->arena);
    env->enclMethod = this;
    std::vector<Type*> types;
    types.reserve(params.size() + 1);
    auto* c = static_cast<ClassSymbol*>(m->owner);
    if (name == names().init && c->hasOuterInstance()) types.push_back(c->owner->enclClass()->type);
    for (Tree* parameter : params) types.push_back(attrParameter(parameter, env, anythingType));
    env->scope->leave();
    Type* result = resultType(this, outer);
    TypeList* thrownTypes = nullptr;
    for (Tree* clause : thrown) thrownTypes = TypeList::incl(thrownTypes, clause->attr(outer, TYP, anythingType));
    m->type = context().methodType(types, result, thrownTypes);
    env->handled = thrownTypes;
}

/// A catch clause is shaped like a method with one parameter; its scope is nested in that of the `try`.
void MethodDef::enterCatchClause(Env* outer) {
    env->scope = outer->scope->dup(outer->toplevel->arena);
    Type* type = errType;
    if (!params.empty()) {
        type = attrParameter(params.front(), env, context().throwableType);
        type = attribution::checkAssignable(params.front()->pos, type, context().throwableType);
    }
    Type* const types[] = {type};
    sym->type = context().methodType(types, anythingType, nullptr);
    env->scope->leave();
}

namespace {

/// A local may hide a field, but no other local or parameter of the method.
void checkTransparent(int pos, VarSymbol* v, Scope* scope) {
    for (Symbol* entry = scope->lookup(v->name); entry->scope != nullptr; entry = entry->nextEntry()) {
        if (entry->sym->owner != nullptr && entry->sym->owner->kind == TYP) return;
        if (entry->sym == v || entry->sym->kind != VAR) continue;
        reportError(pos, messages::alreadyDefined, entry->sym, entry->sym->location());
        return;
    }
}

} // namespace

void VarDef::memberEnter(Env* outer) {
    env = outer;
    if (tag == treetag::ERRONEOUS) {
        sym = errSymbol;
        return;
    }
    Symbol* owner = outer->scope->owner;
    bool isField = owner->kind == TYP;
    std::uint32_t checked =
        checkFlagsByEnv(pos, flags, outer, INTERFACE_FIELD_FLAGS, isField ? FIELD_FLAGS : flag::FINAL);
    Type* declared = attribution::attrTypeTree(vartype, outer);
    Arena& arena = isField ? context().arena : outer->toplevel->arena;
    auto* v = arena.make<VarSymbol>();
    v->init(checked, VAR, name, declared, owner);
    v->pos = pos;
    if (v->isFinal() && init != nullptr) v->initDef = this;
    sym = v;
    if (!checkUnique(pos, v, outer->scope)) return;
    outer->scope->enter(v);
    if (!isField) checkTransparent(pos, v, outer->scope);
}

} // namespace tarn
