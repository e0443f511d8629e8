#include "driver/reporter.h"
#include "semantic/attribution.h"
#include "semantic/checks.h"
#include "semantic/context.h"
#include "semantic/entry.h"
#include "semantic/pending.h"
#include "semantic/scope.h"
#include "syntax/tree_declarations.h"
#include "syntax/tree_statements.h"

#include <algorithm>
#include <deque>

// Completion of a class, at most once, by its unit or by whoever needs it first. It has three steps:
//
// - the clauses, which settle the supertypes. They need the clauses of the supertypes, and nothing else;
// - the members. What they name may need the clauses of further classes, but no members. So the members of a class are
//   entered when no clauses are being settled any more: those of a superclass may name the class, or classes derived
//   from it;
// - the methods that an abstract class gets for those of its interfaces. They depend on the members of the supertypes,
//   which may be the very classes around it, so they come when no members are being entered any more.
//
// In the usual case the three follow each other at once.

namespace tarn {

using namespace entry;

namespace {

/// What waits until the classes at hand are done. Process-wide; empty outside of a completion.
struct Due {
    int inClauses = 0; ///< classes and imports whose clauses are being settled, one within the other
    int inMembers = 0; ///< classes whose members are being entered
    std::deque<ClassDef*> members;
    std::deque<ClassDef*> stubs;
};

Due& due() {
    static Due waiting;
    return waiting;
}

class ScopedCount {
public:
    explicit ScopedCount(int& count) : count_(count) { ++count_; }
    ~ScopedCount() { --count_; }
    ScopedCount(const ScopedCount&) = delete;
    ScopedCount& operator=(const ScopedCount&) = delete;

private:
    int& count_;
};

ClassDef* takeFirst(std::deque<ClassDef*>& waiting) {
    ClassDef* first = waiting.front();
    waiting.pop_front();
    return first;
}

void enterDue() {
    if (due().inClauses > 0) return;
    while (!due().members.empty()) {
        ScopedCount entering(due().inMembers);
        takeFirst(due().members)->enterMembers();
    }
    while (due().inMembers == 0 && !due().stubs.empty()) {
        ClassDef* tree = takeFirst(due().stubs);
        ScopedSource here(tree->env->toplevel->source);
        completeHierarchy(tree->classSymbol());
        checks::addInterfaceStubs(tree);
    }
}

} // namespace

namespace entry {

ScopedClauses::ScopedClauses() {
    ++due().inClauses;
}

ScopedClauses::~ScopedClauses() {
    --due().inClauses;
}

void forgetPending() {
    pendingClasses().clear();
    pendingUnits().clear();
    due().members.clear();
    due().stubs.clear();
}

} // namespace entry

// ---- clauses

namespace {

/// Takes the class from those that wait, however its clauses end.
class ScopedCompletion {
public:
    explicit ScopedCompletion(ClassSymbol* c) : class_(c) {}
    ~ScopedCompletion() { pendingClasses().erase(class_); }
    ScopedCompletion(const ScopedCompletion&) = delete;
    ScopedCompletion& operator=(const ScopedCompletion&) = delete;

private:
    ClassSymbol* class_;
};

void enterSuperclass(ClassDef* tree, ClassSymbol* c, Env* env) {
    if (tree->extending != nullptr) {
        ClassSymbol* base = attribBase(env, tree->extending, BaseRole::EXTENDS);
        if (c->superclass == nullptr) c->superclass = base;
    } else if (!c->isRootClass()) {
        c->superclass = context().objectClass;
        completeClass(c->superclass);
    }
}

void enterInterfaces(ClassDef* tree, ClassSymbol* c, Env* env) {
    std::span<ClassSymbol*> interfaces = context().arena.makeArray<ClassSymbol*>(tree->implementing.size());
    std::size_t count = 0;
    bool cyclic = false;
    for (Tree* clause : tree->implementing) {
        ClassSymbol* i = attribBase(env, clause, BaseRole::IMPLEMENTS);
        auto known = interfaces.first(count);
        if (std::find(known.begin(), known.end(), i) != known.end()) reportError(clause->pos, messages::repeated, i);
        interfaces[count++] = i;
        cyclic = cyclic || tree->brokenCycle;
    }
    if (!cyclic) c->interfaces = interfaces;
}

std::uint32_t declaredFlags(const Tree* def) {
    switch (def->tag) {
    case treetag::VARDEF:
    case treetag::METHODDEF:
    case treetag::CLASSDEF: return static_cast<const Def*>(def)->flags;
    default: return 0;
    }
}

/// An inner class can't have static members.
void checkNoStatics(ClassDef* tree, ClassSymbol* c, const Tree* def) {
    if (c->owner->kind == PCK || c->isInterface() || (tree->flags & flag::STATIC) != 0) return;
    if ((declaredFlags(def) & flag::STATIC) != 0) reportError(def->pos, messages::innerClassWithStaticMember);
}

void checkClashWithImport(ClassDef* tree, ClassSymbol* c, const CompilationUnit* unit) {
    if (c->owner->kind != PCK) return;
    Symbol* imported = unit->namedImports->lookup(tree->name);
    if (imported->scope == unit->namedImports && imported->sym != c)
        reportError(tree->pos, messages::clashesWithImport, tree->name, imported->sym);
}

} // namespace

void ClassDef::memberEnter(Env*) {
    if (tag == treetag::ERRONEOUS) return;
    ClassSymbol* c = classSymbol();
    if (!isPending(c)) return;
    ScopedSource here(env->toplevel->source);
    if (localScope != nullptr) { // reached from its own clauses
        if (!brokenCycle) reportError(pos, messages::cyclicInheritance, c);
        c->superclass = context().objectClass;
        c->interfaces = {};
        brokenCycle = true;
        return;
    }
    enterClauses(c);
    due().members.push_back(this);
    enterDue();
}

void ClassDef::enterClauses(ClassSymbol* c) {
    ScopedClauses clauses;
    ScopedCompletion guard(c);
    c->superclass = nullptr;
    c->interfaces = {};
    localScope = Scope::make(nullptr, nullptr);
    Env* clauseEnv = env->dup(this);
    clauseEnv->isClause = true;
    enterSuperclass(this, c, clauseEnv);
    enterInterfaces(this, c, clauseEnv);
    checkCyclic(pos, c);
}

// ---- members

void ClassDef::enterMembers() {
    ClassSymbol* c = classSymbol();
    ScopedSource here(env->toplevel->source);
    addDefaultConstructor();
    if (hasErroneousSupertype(c)) return;
    // At once, since its members may need those of a class derived from it, which must not come first.
    if (c->isAbstract() && !c->isInterface()) due().stubs.push_back(this);
    for (Tree* def : body->stats) {
        checkNoStatics(this, c, def);
        def->memberEnter(env);
    }
    checkClashWithImport(this, c, env->toplevel);
}

void ClassDef::addDefaultConstructor() {
    if (sym->isInterface()) return;
    for (const Tree* def : body->stats)
        if (def->tag == treetag::METHODDEF && static_cast<const MethodDef*>(def)->name == names().init) return;
    Arena& arena = env->toplevel->arena;
    auto* empty = arena.make<Block>(pos, Trees{});
    Tree* const made[] = {arena.make<MethodDef>(arena, pos, treetag::METHODDEF, names().init, sym->flags & ACCESS_FLAGS,
                                                nullptr, Trees{}, Trees{}, empty)};
    prepend(arena, made);
}

void ClassDef::prepend(Arena& arena, std::span<Tree* const> defs) {
    if (defs.empty()) return;
    Trees longer = arena.makeArray<Tree*>(defs.size() + body->stats.size());
    auto rest = std::copy(defs.begin(), defs.end(), longer.begin());
    std::copy(body->stats.begin(), body->stats.end(), rest);
    body->stats = longer;
}

} // namespace tarn
