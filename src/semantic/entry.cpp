#include "semantic/entry.h"

#include "classfile/class_file.h"
#include "driver/reporter.h"
#include "runtime/failure.h"
#include "semantic/attribution.h"
#include "semantic/context.h"
#include "semantic/pending.h"
#include "semantic/resolve.h"
#include "semantic/scope.h"
#include "syntax/tree_declarations.h"

#include <algorithm>

// Helpers of class entry: completion on demand, the clauses of a class, cycles of inheritance, and modifiers.

namespace tarn::entry {

PendingClasses& pendingClasses() {
    static PendingClasses table;
    return table;
}

PendingUnits& pendingUnits() {
    static PendingUnits table;
    return table;
}

// ---- completion on demand

bool isPending(ClassSymbol* c) {
    return pendingClasses().contains(c);
}

void completeClass(ClassSymbol* c) {
    if (!isPending(c)) return;
    // What encloses it first: its imports must be there before its clauses are attributed.
    if (c->owner->kind == TYP)
        completeClass(static_cast<ClassSymbol*>(c->owner));
    else if (c->owner->kind == PCK)
        completeImports(c->sourcePath);
    auto found = pendingClasses().find(c);
    if (found == pendingClasses().end()) return;
    ClassDef* tree = found->second;
    tree->memberEnter(tree->env->outer);
}

namespace {

/// Does it with the class and all that it inherits from.
template <class Action>
void goUp(ClassSymbol* c, Walk walk, const Action& act) {
    if (c == nullptr || !c->isNewTo(walk)) return;
    act(c);
    goUp(c->superclass, walk, act);
    for (ClassSymbol* i : c->interfaces) goUp(i, walk, act);
}

/// Whether neither the class nor one around it is under way.
bool isIdle(const ClassSymbol* c) {
    for (const Symbol* around = c; around != nullptr && around->kind == TYP; around = around->owner) {
        auto found = pendingClasses().find(static_cast<ClassSymbol*>(around->sym));
        if (found != pendingClasses().end() && found->second->localScope != nullptr) return false;
    }
    return true;
}

} // namespace

void completeHierarchy(ClassSymbol* c) {
    goUp(c, newWalk(), completeClass);
}

bool completeIdle(ClassSymbol* c) {
    bool anyWaited = false;
    goUp(c, newWalk(), [&anyWaited](ClassSymbol* waiting) {
        if (!isPending(waiting) || !isIdle(waiting)) return;
        completeClass(waiting);
        anyWaited = true;
    });
    return anyWaited;
}

void completeImports(Name* sourcePath) {
    auto found = pendingUnits().find(sourcePath);
    if (found != pendingUnits().end()) found->second->enterImports();
}

// ---- supertypes

ClassSymbol* attribBase(Env* env, Tree* tree, BaseRole role) {
    Type* type = attribution::checkRefType(tree->pos, tree->attr(env, TYP, anythingType));
    if (type->tag == typetag::ARRAY) {
        reportError(tree->pos, messages::kindRequired, kindNames(TYP), type);
        type = errType;
    }
    ClassSymbol* c = type->tsym;
    if (c->type->tag != typetag::CLASS) return c;
    completeHierarchy(c);
    if (role == BaseRole::EXTENDS && c->isInterface())
        reportError(tree->pos, messages::interfaceNotAllowed);
    else if (role == BaseRole::IMPLEMENTS && !c->isInterface())
        reportError(tree->pos, messages::notAnInterface);
    else if (c->isFinal())
        reportError(tree->pos, messages::inheritsFromFinal, c);
    return c;
}

bool hasErroneousSupertype(const ClassSymbol* c) {
    if (c->superclass != nullptr && c->superclass->type->tag == typetag::ERROR) return true;
    return std::any_of(c->interfaces.begin(), c->interfaces.end(),
                       [](const ClassSymbol* i) { return i->type->tag == typetag::ERROR; });
}

void checkCyclic(int pos, ClassSymbol* c) {
    ensureRead(c);
    if (c->members == nullptr) return;
    if (c->members->next == nullptr && c->superclass != nullptr) {
        c->members->next = c->members; // the mark of a class that is being walked
        checkCyclic(pos, c->superclass);
        for (ClassSymbol* i : c->interfaces) checkCyclic(pos, i);
        if (c->owner != nullptr && c->owner->kind != PCK) checkCyclic(pos, c->owner->enclClass());
        if (c->members->next == c->members) c->members->setNext(c->superclass->members);
    } else if (c->members->next == c->members) {
        reportError(pos, messages::cyclicInheritance, c);
        c->members->setNext(context().objectClass->members);
        c->superclass = context().objectClass;
        c->interfaces = {};
    }
}

// ---- duplicates

bool checkUnique(int pos, Symbol* sym, Scope* scope) {
    const Symbol* wanted = sym->sym;
    for (Symbol* entry = scope->lookup(sym->name); entry->scope == scope; entry = entry->nextEntry()) {
        const Symbol* other = entry->sym;
        if (other == wanted || other->kind != wanted->kind) continue;
        const Types* args = other->kind == MTH ? other->type->argTypes() : nullptr;
        if (args != nullptr && !sameTypes(*args, *wanted->type->argTypes())) continue;
        if (isErroneous(other->type)) continue;
        reportError(pos, messages::duplicateDefinition, wanted, wanted->location());
        return false;
    }
    return true;
}

// ---- modifiers

namespace {

constexpr std::uint32_t SOURCE_FLAGS = 0xFFFF;

/// Whether the flags have nothing of one side or nothing of the other; reports otherwise.
bool areDisjoint(int pos, std::uint32_t flags, std::uint32_t one, std::uint32_t other) {
    if ((flags & one) == 0 || (flags & other) == 0) return true;
    reportError(pos, messages::illegalModifierCombination, flagName(firstFlag(flags & one)),
                flagName(firstFlag(flags & other)));
    return false;
}

bool checkCombinations(int pos, std::uint32_t flags, bool isClass) {
    using namespace flag;
    flags &= SOURCE_FLAGS;
    if ((flags & (flags - 1)) == 0) return true; // one alone
    return areDisjoint(pos, flags, INTERFACE | ABSTRACT, FINAL | NATIVE | SYNCHRONIZED) &&
           (isClass || areDisjoint(pos, flags, ABSTRACT, STATIC)) &&
           areDisjoint(pos, flags, PUBLIC, PRIVATE | PROTECTED) && areDisjoint(pos, flags, PRIVATE, PUBLIC) &&
           areDisjoint(pos, flags, FINAL, VOLATILE);
}

} // namespace

std::uint32_t checkFlags(int pos, std::uint32_t flags, std::uint32_t allowed, bool isClass) {
    using namespace flag;
    std::uint32_t excess = flags & SOURCE_FLAGS & ~allowed;
    if (excess != 0) {
        reportError(pos, messages::modifierNotAllowed, flagName(firstFlag(excess)));
    } else if (checkCombinations(pos, flags, isClass) && (flags & PRIVATE) != 0 && (flags & PROTECTED) != 0) {
        reportWarning(pos, messages::obsoletePrivateProtected);
        flags &= ~static_cast<std::uint32_t>(PRIVATE);
    }
    return flags & (allowed | ~SOURCE_FLAGS);
}

std::uint32_t checkFlagsByEnv(int pos, std::uint32_t flags, Env* env, std::uint32_t ifaceResult,
                              std::uint32_t classAllowed) {
    if (!env->isInterface()) return checkFlags(pos, flags, classAllowed, false);
    return (checkFlags(pos, flags, ifaceResult, false) & ~SOURCE_FLAGS) | ifaceResult;
}

} // namespace tarn::entry
