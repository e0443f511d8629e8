#include "classfile/class_file.h"
#include "driver/reporter.h"
#include "runtime/failure.h"
#include "semantic/attribution.h"
#include "semantic/checks.h"
#include "semantic/context.h"
#include "semantic/entry.h"
#include "semantic/pending.h"
#include "semantic/resolve.h"
#include "semantic/scope.h"
#include "syntax/tree_declarations.h"
#include "syntax/tree_expressions.h"
#include "syntax/tree_statements.h"

#include <algorithm>
#include <string>

// Entry of units and classes: `enter` makes the symbols, `memberEnter` of a unit resolves its imports and completes its
// classes.

namespace tarn {

using namespace entry;

// ---- enter

Name* CompilationUnit::sourcePath() {
    if (sourcePath_ == nullptr) sourcePath_ = Name::fromString(source->canonicalPath().value_or(source->path()));
    return sourcePath_;
}

namespace {

/// The package that the unit belongs to, listed.
ClassSymbol* enterUnitPackage(int pos, Name* name) {
    ClassFile& reader = *context().classReader;
    ClassSymbol* package = context().rootPackage;
    try {
        package = reader.enterPackage(name);
        reader.fillPackage(package);
    } catch (const ClassNotFound& failure) {
        reportError(pos, messages::cannotAccess, "package", name, failure.what());
        package = context().rootPackage;
        reader.fillPackage(package);
    } catch (const IoFailure& failure) {
        reportError(pos, messages::errorReadingDirectory, failure.what());
    }
    return package;
}

} // namespace

void CompilationUnit::enter(Env*) {
    ScopedSource here(source);
    Name* packageName = nullptr;
    Trees rest = defs;
    if (!defs.empty() && defs.front()->tag == treetag::PACKAGEDECL) {
        auto* declaration = static_cast<PackageDecl*>(defs.front());
        packageName = declaration->pid->fullName();
        pos = declaration->pos;
        rest = defs.subspan(1);
    }
    package = enterUnitPackage(pos, packageName);
    package->pos = pos;
    starImports = Scope::make(nullptr, package);
    namedImports = Scope::make(nullptr, package);
    pendingUnits()[sourcePath()] = this;
    env = Env::init(this, package);
    for (Tree* def : rest) def->enter(env);
}

namespace {

constexpr std::uint32_t LOCAL_CLASS_FLAGS = flag::INTERFACE | flag::ABSTRACT | flag::FINAL;
constexpr std::uint32_t MEMBER_CLASS_FLAGS = LOCAL_CLASS_FLAGS | ACCESS_FLAGS | flag::STATIC;
constexpr std::uint32_t TOP_CLASS_FLAGS = LOCAL_CLASS_FLAGS | flag::PUBLIC;
constexpr std::uint32_t HIDING_FLAGS = flag::PRIVATE | flag::PROTECTED;
constexpr std::uint32_t IMPLIED_IN_INTERFACE = flag::PUBLIC | flag::STATIC;

std::uint32_t allowedClassFlags(const ClassSymbol* c) {
    if (c->owner->kind == MTH) return LOCAL_CLASS_FLAGS; // but a member of a local class is a member
    if (c->owner->kind == PCK) return TOP_CLASS_FLAGS;
    return c->owner->isInterface() ? MEMBER_CLASS_FLAGS & ~HIDING_FLAGS : MEMBER_CLASS_FLAGS;
}

/// The symbol of a class that is known already (from a class file or an earlier compile) keeps its identity, so that
/// the types that refer to it stay valid.
ClassSymbol* takeOver(int pos, ClassSymbol* made) {
    ClassSymbol* old = context().findClass(made->flatName);
    if (old == nullptr) return context().classes[made->flatName] = made;
    if (old->kind == PCK) {
        reportError(pos, messages::packageAndClassSameName, made->flatName);
        return made;
    }
    old->flags = made->flags;
    old->owner = made->owner;
    old->kind = TYP;
    old->reading = Reading::DONE;
    return old;
}

void enterMemberClass(ClassDef* tree, ClassSymbol* c, Env* env) {
    context().sourceClasses[c->flatName] = c;
    context().innerClasses[c->flatName] = {c->owner->enclClass(), tree->name, c->flags & 0xFFFF};
    Symbol* entry = c->alias(tree->name);
    if (checkUnique(tree->pos, entry, env->scope)) env->scope->enter(entry);
}

/// Reports a second class of the name in the package or the enclosing class.
bool isDuplicate(const ClassDef* tree, Name* flatName, const Env* env) {
    const Symbol* known = env->scope->lookup(tree->name);
    bool isLocal = env->scope->owner->kind == MTH;
    while (known->scope == env->scope && known->sym->kind != TYP) known = known->nextEntry();
    if (known->scope == env->scope && !isLocal) {
        if (env->scope->owner->kind == PCK)
            reportError(tree->pos, messages::duplicateClass, tree->name);
        else
            reportError(tree->pos, messages::duplicateDefinition, known->sym, known->sym->location());
        return true;
    }
    if (!context().sourceClasses.contains(flatName)) return false;
    reportError(tree->pos, messages::duplicateClass, flatName);
    return true;
}

void enterTopClass(ClassSymbol* c, Env* env) {
    context().sourceClasses[c->flatName] = c;
    env->scope->enter(c);
}

void warnOfFileName(ClassDef* tree, ClassSymbol* c, const CompilationUnit* unit) {
    if (c->owner->kind != PCK || (c->flags & (flag::PUBLIC | flag::PROTECTED)) == 0) return;
    if (tree->name->matchesFile(unit->source->path())) return;
    reportWarning(tree->pos, messages::publicClassInWrongFile, tree->name, tree->name->toString() + ".java");
}

/// The symbol of the definition, without members yet; context().classes has it then, unless a package has its name.
ClassSymbol* makeClass(ClassDef* tree, Name* flatName, const Env* outer) {
    CompilationUnit* unit = outer->toplevel;
    ClassSymbol* made = context().newClass(0, flatName, unit->package);
    made->owner = outer->scope->owner;
    made->flags = checkFlags(tree->pos, tree->flags, allowedClassFlags(made), true);
    if (made->owner->kind == TYP && made->owner->isInterface()) {
        tree->flags |= IMPLIED_IN_INTERFACE;
        made->flags |= IMPLIED_IN_INTERFACE;
    }
    if (outer->isStatic || outer->isSelfCall) made->flags |= flag::STATIC;
    ClassSymbol* c = takeOver(tree->pos, made);
    c->superclass = nullptr;
    c->interfaces = {};
    c->members = Scope::make(nullptr, c);
    c->pos = tree->pos;
    c->sourceFile = Name::fromString(unit->source->name());
    c->sourcePath = unit->sourcePath();
    return c;
}

/// The environment of the members.
Env* classEnv(ClassDef* tree, ClassSymbol* c, Env* outer) {
    Env* env = outer->dup(tree, c->members);
    env->enclClass = tree;
    env->outer = outer;
    env->enclMethod = nullptr;
    env->isStatic = false;
    env->isSelfCall = false;
    env->isSelectSuper = false;
    // An anonymous class's initializers run where it is created, and may throw what is handled there.
    if (!tree->isAnonymous()) env->handled = nullptr;
    return env;
}

} // namespace

void ClassDef::enter(Env* outer) {
    if (tag == treetag::ERRONEOUS) {
        sym = errSymbol;
        return;
    }
    CompilationUnit* unit = outer->toplevel;
    Symbol* owner = outer->scope->owner;
    ClassSymbol* encl = owner->enclClass();
    Name* flatName = owner->kind == MTH ? unit->localClassName(*this, encl) : formFlatName(name, encl);

    if (isDuplicate(this, flatName, outer)) { // the first one stays what it is
        tag = treetag::ERRONEOUS;
        sym = errSymbol;
        return;
    }
    ClassSymbol* c = makeClass(this, flatName, outer);
    warnOfFileName(this, c, unit);
    if (owner->kind == PCK)
        enterTopClass(c, outer);
    else
        enterMemberClass(this, c, outer);
    if (unit->package->members != nullptr) context().classReader->enterPlaceholder(unit->package, c->name);
    sym = c;
    env = classEnv(this, c, outer);
    clinit = nullptr;
    for (Tree* def : body->stats) def->enter(env);
    pendingClasses()[c] = this;
}

// ---- imports

namespace {

void importSym(Scope* scope, Symbol* sym) {
    for (Symbol* entry = scope->lookup(sym->name); entry->scope == scope; entry = entry->nextEntry())
        if (entry->sym->fullName() == sym->sym->fullName()) return;
    scope->enter(sym);
}

/// A member class is imported by its simple name.
Symbol* memberAlias(Symbol* c) {
    const InnerClassRecord* record = context().innerClass(static_cast<ClassSymbol*>(c)->flatName);
    return record == nullptr ? c : c->alias(record->name);
}

void importAllMembers(Scope* scope, ClassSymbol* c) {
    if (c->members == nullptr) return;
    for (Symbol* entry = c->members->elems; entry != nullptr; entry = entry->sibling)
        if (entry->sym->kind == TYP) importSym(scope, memberAlias(entry->sym));
}

void importAllPackage(int pos, CompilationUnit* unit, ClassSymbol* package) {
    try {
        if (!context().classReader->fillPackage(package)) {
            std::string path = package->flatName == nullptr ? "." : package->flatName->toString();
            std::replace(path.begin(), path.end(), '.', '/');
            reportWarning(pos, messages::cannotAccessDirectory, path);
        }
    } catch (const IoFailure& failure) {
        reportError(pos, messages::errorImporting, package, failure.what());
    }
    for (const PackageList* known = unit->starPackages; known != nullptr; known = known->tail)
        if (known->head == package) return;
    unit->starPackages = unit->arena.make<PackageList>(package, unit->starPackages);
}

/// The full name of a class in the unnamed package has one part, which leads there if it means nothing nearer.
void importUnnamed(Env* env, Name* name) {
    if (resolve::findType(env, name)->exists()) return;
    Symbol* c = resolve::loadClass(env, name);
    if (c->kind == ACCESS_ERROR) c = static_cast<AccessError*>(c)->inaccessible; // who uses it will be told
    if (c->exists()) importSym(env->toplevel->namedImports, c);
}

} // namespace

void CompilationUnit::enterImports() {
    if (pendingUnits().erase(sourcePath()) == 0) return;
    ScopedSource here(source);
    ScopedClauses clauses;
    Symbol* javaLang = resolve::resolvePackage(pos, names().javaLang, nullptr);
    if (javaLang->kind == PCK) importAllPackage(pos, this, static_cast<ClassSymbol*>(javaLang));
    for (Tree* def : defs)
        if (def->tag != treetag::CLASSDEF) def->memberEnter(env);
}

void CompilationUnit::memberEnter(Env*) {
    enterImports();
    ScopedSource here(source);
    for (Tree* def : defs)
        if (def->tag == treetag::CLASSDEF) def->memberEnter(env);
}

void Import::memberEnter(Env* env) {
    CompilationUnit* unit = env->toplevel;
    if (tree->tag == treetag::ERRONEOUS) return;
    auto* named = static_cast<NamedTree*>(tree);
    if (tree->tag == treetag::SELECT && named->name == names().star) {
        Type* qualifier = static_cast<Select*>(tree)->selected->attr(env, TYP | PCK, anythingType);
        if (qualifier->tag == typetag::PACKAGE)
            importAllPackage(pos, unit, qualifier->tsym);
        else if (qualifier->tag == typetag::CLASS)
            importAllMembers(unit->starImports, qualifier->tsym);
        return;
    }
    if (tree->tag == treetag::SELECT) {
        Symbol* known = unit->namedImports->lookup(named->name);
        if (known->scope == unit->namedImports && printName(known->sym->fullName()) != tree->fullName()->toString()) {
            reportError(pos, messages::doubleImport, named->name);
            return;
        }
    }
    if (tree->tag == treetag::IDENT) importUnnamed(env, named->name);
    Type* imported = tree->attr(env, TYP, anythingType);
    if (imported->tag == typetag::CLASS) importSym(unit->namedImports, memberAlias(imported->tsym));
}

} // namespace tarn
