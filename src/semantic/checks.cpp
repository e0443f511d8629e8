#include "semantic/checks.h"

#include "driver/reporter.h"
#include "semantic/attribution.h"
#include "semantic/context.h"
#include "semantic/scope.h"
#include "syntax/tree_declarations.h"
#include "syntax/tree_expressions.h"
#include "syntax/tree_statements.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <vector>

namespace tarn::checks {

namespace {

/// How much is hidden: 0 for public up to 4 for private. Modifiers that exclude each other were reported; of those with
/// `public` that one counts.
int protectionRank(std::uint32_t flags) {
    if ((flags & flag::PUBLIC) != 0) return 0;
    switch (flags & ACCESS_FLAGS) {
    case flag::PROTECTED: return 1;
    case 0: return 2;
    case flag::PRIVATE | flag::PROTECTED: return 3;
    default: return 4;
    }
}

std::string protectionName(const Symbol* sym) {
    std::uint32_t protection = sym->flags & ACCESS_FLAGS;
    return protection == 0 ? "package" : flagName(firstFlag(protection));
}

} // namespace

// ---- overriding

void checkOverride(int pos, MethodSymbol* m, MethodSymbol* other) {
    bool implements = other->owner->isInterface();
    auto report = [&](MessageId id, const Argument& detail) {
        reportError(pos, id, {m, m->location(), other, other->location(), detail});
    };
    if (other->isFinal() || (other->isStatic() && !m->isStatic())) {
        const char* first = flagName(firstFlag(other->flags & (flag::FINAL | flag::STATIC)));
        reportError(pos, messages::cannotBeOverridden, m, m->location(), first, other, other->location());
    } else if (m->isStatic() && !other->isStatic()) {
        reportError(pos, implements ? messages::staticCannotImplement : messages::staticCannotOverride, m,
                    m->location(), other, other->location());
    } else if (protectionRank(m->flags) > protectionRank(other->flags)) {
        report(implements ? messages::implementWithWeakerAccess : messages::overrideWithWeakerAccess,
               protectionName(other));
    } else if (m->type->resType() != other->type->resType()) {
        report(implements ? messages::implementWithDifferentReturnType : messages::overrideWithDifferentReturnType,
               other->type->resType());
    } else if (Type* excess = attribution::unhandled(m->type->thrown(), other->type->thrown())) {
        report(implements ? messages::implementThrowsMore : messages::overrideThrowsMore, excess);
    }
}

namespace {

void checkOverridesIn(const MethodDef* tree, ClassSymbol* c, Walk search) {
    MethodSymbol* m = tree->method();
    if (c->members == nullptr) return;
    for (Symbol* entry = c->members->lookup(m->name); entry->scope != nullptr; entry = entry->nextEntry())
        if (entry->sym->owner != m->owner && m->overrides(entry->sym))
            checkOverride(tree->pos, m, static_cast<MethodSymbol*>(entry->sym));
    for (ClassSymbol* i : c->interfaces)
        if (i->isNewTo(search)) checkOverridesIn(tree, i, search);
}

} // namespace

void checkOverrides(MethodDef* tree) {
    checkOverridesIn(tree, static_cast<ClassSymbol*>(tree->sym->owner), newWalk());
}

// ---- abstract methods

namespace {

/// Whether the members of `impl`, down to `scope` and without it, hold a method that overrides `a` and has a body.
bool isDefined(const MethodSymbol* a, const ClassSymbol* impl, const Scope* scope) {
    for (Symbol* entry = impl->members->lookup(a->name); entry->scope != nullptr && entry->scope != scope;
         entry = entry->nextEntry()) {
        if (entry->sym->kind != MTH || entry->sym->isAbstract()) continue;
        if (static_cast<MethodSymbol*>(entry->sym)->overrides(a)) return true;
    }
    return false;
}

MethodSymbol* firstUndefinedIn(const ClassSymbol* impl, const Scope* scope) {
    for (Symbol* entry = scope->elems; entry != nullptr; entry = entry->sibling) {
        if (entry->sym->kind != MTH || !entry->sym->isAbstract()) continue;
        auto* a = static_cast<MethodSymbol*>(entry->sym);
        if (!isDefined(a, impl, scope)) return a;
    }
    return nullptr;
}

/// The first abstract method visible from `c` that `impl` does not implement; null if none.
MethodSymbol* firstUndefined(ClassSymbol* impl, ClassSymbol* c, Walk search) {
    if ((!c->isAbstract() && !c->isInterface()) || c->members == nullptr) return nullptr;
    MethodSymbol* found = firstUndefinedIn(impl, c->members);
    if (found == nullptr && c->superclass != nullptr) found = firstUndefined(impl, c->superclass, search);
    for (ClassSymbol* i : c->interfaces)
        if (found == nullptr && i->isNewTo(search)) found = firstUndefined(impl, i, search);
    return found;
}

} // namespace

void checkAllDefined(ClassDef* tree) {
    ClassSymbol* c = tree->classSymbol();
    c->flags ^= flag::ABSTRACT; // so that the search starts with the class itself
    MethodSymbol* undefined = firstUndefined(c, c, newWalk());
    c->flags ^= flag::ABSTRACT;
    if (undefined != nullptr) reportError(tree->pos, messages::shouldBeAbstract, c, undefined, undefined->location());
}

namespace {

/// The first method among the members of `c`, inherited ones too, that overrides `a`; or null.
MethodSymbol* overrider(const ClassSymbol* c, const Symbol* a) {
    for (Symbol* entry = c->members->lookup(a->name); entry->scope != nullptr; entry = entry->nextEntry()) {
        if (entry->sym->kind != MTH) continue;
        auto* m = static_cast<MethodSymbol*>(entry->sym);
        if (m->overrides(a)) return m;
    }
    return nullptr;
}

void checkImplementationsOf(const ClassSymbol* c, ClassDef* tree, Walk search) {
    for (ClassSymbol* i : c->interfaces) {
        if (!i->isNewTo(search) || i->members == nullptr) continue;
        for (Symbol* entry = i->members->elems; entry != nullptr; entry = entry->sibling) {
            if (entry->sym->kind != MTH) continue;
            auto* a = static_cast<MethodSymbol*>(entry->sym);
            MethodSymbol* m = overrider(tree->classSymbol(), a);
            if (m != nullptr) checkOverride(tree->pos, m, a);
        }
        checkImplementationsOf(i, tree, search);
    }
}

} // namespace

void checkImplementations(ClassDef* tree) {
    checkImplementationsOf(tree->classSymbol(), tree, newWalk());
}

// ---- methods of interfaces in abstract classes

namespace {

MethodDef* makeStub(ClassDef* tree, const MethodSymbol* a) {
    Arena& arena = tree->env->toplevel->arena;
    int pos = tree->pos;
    const Types& args = *a->type->argTypes();
    Trees params = arena.makeArray<Tree*>(args.size());
    for (std::size_t i = 0; i < args.size(); ++i) {
        Name* name = Name::fromBytes("x" + std::to_string(i));
        params[i] = arena.make<VarDef>(pos, name, 0U, arena.make<KnownType>(pos, args[i]), nullptr);
    }
    Trees thrown = knownTypes(arena, pos, a->type->thrown());
    std::uint32_t flags = flag::PUBLIC | flag::ABSTRACT;
    auto* def = arena.make<MethodDef>(arena, pos, treetag::METHODDEF, a->name, flags,
                                      arena.make<KnownType>(pos, a->type->resType()), params, thrown, nullptr);
    def->memberEnter(tree->env);
    return def;
}

bool isStub(const ClassDef* tree, const MethodSymbol* m) {
    return m->owner == tree->sym && m->pos == tree->pos && m->isAbstract();
}

/// A stub that stands for the methods of several interfaces can throw what all of them may throw.
void narrowStub(MethodSymbol* stub, const MethodSymbol* a) {
    TypeList* thrown = TypeList::common(stub->type->thrown(), a->type->thrown());
    stub->type = context().methodType(*stub->type->argTypes(), stub->type->resType(), thrown);
}

/// The newest stub comes last.
void makeStubsFor(const ClassSymbol* c, ClassDef* tree, std::vector<Tree*>& stubs, Walk search) {
    for (ClassSymbol* i : c->interfaces) {
        if (!i->isNewTo(search) || i->members == nullptr) continue;
        for (Symbol* entry = i->members->elems; entry != nullptr; entry = entry->sibling) {
            if (entry->sym->kind != MTH || !entry->sym->isAbstract()) continue;
            auto* a = static_cast<MethodSymbol*>(entry->sym);
            MethodSymbol* d = overrider(tree->classSymbol(), a);
            if (d == nullptr)
                stubs.push_back(makeStub(tree, a));
            else if (d->type->resType() != a->type->resType())
                reportError(tree->pos, messages::implementWithDifferentReturnType, d, d->location(), a, a->location(),
                            a->type->resType());
            else if (isStub(tree, d))
                narrowStub(d, a);
        }
        makeStubsFor(i, tree, stubs, search);
    }
}

} // namespace

void addInterfaceStubs(ClassDef* tree) {
    std::vector<Tree*> stubs;
    makeStubsFor(tree->classSymbol(), tree, stubs, newWalk());
    std::reverse(stubs.begin(), stubs.end());
    tree->prepend(tree->env->toplevel->arena, stubs);
}

// ---- constructors that call each other

void checkCyclicConstructors(ClassDef* tree) {
    std::unordered_map<MethodSymbol*, MethodSymbol*> calls;
    std::vector<MethodDef*> callers; // in source order, so that the report does not depend on the table's order
    for (Tree* def : tree->body->stats) {
        if (def->tag != treetag::METHODDEF) continue;
        auto* method = static_cast<MethodDef*>(def);
        if (method->selfCall == nullptr || method->selfCall->owner != tree->sym) continue;
        calls[method->method()] = method->selfCall;
        callers.push_back(method);
    }
    auto next = [&](MethodSymbol* m) {
        auto found = calls.find(m);
        return found == calls.end() ? nullptr : found->second;
    };
    for (MethodDef* caller : callers) {
        MethodSymbol* slow = caller->method();
        MethodSymbol* fast = next(slow);
        while (slow != fast && fast != nullptr) {
            slow = next(slow);
            fast = next(fast);
            if (fast != nullptr) fast = next(fast);
        }
        if (fast == nullptr) continue;
        reportError(slow->pos, messages::cyclicConstructorCalls, slow);
        return;
    }
}

} // namespace tarn::checks
