#include "semantic/resolve.h"

#include "classfile/class_file.h"
#include "driver/reporter.h"
#include "runtime/failure.h"
#include "semantic/attribution.h"
#include "semantic/context.h"
#include "semantic/scope.h"
#include "syntax/tree_declarations.h"

#include <string>

namespace tarn::resolve {

namespace {

ResolveError* makeNotFound(int kind) {
    auto* failure = new ResolveError; // lives as long as the process
    failure->init(0, kind, nullptr, nullptr, nullptr);
    return failure;
}

Symbol* varNotFound() {
    static Symbol* const failure = makeNotFound(VAR_NOT_FOUND);
    return failure;
}
Symbol* methodNotFound() {
    static Symbol* const failure = makeNotFound(METHOD_NOT_FOUND);
    return failure;
}
Symbol* typeNotFound() {
    static Symbol* const failure = makeNotFound(TYPE_NOT_FOUND);
    return failure;
}

Symbol* accessError(Symbol* inaccessible) {
    auto* failure = universe().arena.make<AccessError>();
    failure->init(0, ACCESS_ERROR, nullptr, nullptr, nullptr);
    failure->inaccessible = inaccessible;
    return failure;
}

Symbol* loadError(Name* cause, int wantedKinds) {
    auto* failure = universe().arena.make<LoadError>();
    failure->init(0, LOAD_ERROR, nullptr, nullptr, nullptr);
    failure->cause = cause;
    failure->wantedKinds = wantedKinds;
    return failure;
}

Symbol* ambiguityError(Symbol* sym1, Symbol* sym2) {
    auto* failure = universe().arena.make<AmbiguityError>();
    failure->init(0, AMBIGUOUS, nullptr, nullptr, nullptr);
    failure->sym1 = sym1;
    failure->sym2 = sym2;
    return failure;
}

/// The better of two outcomes: something real, or else the failure of the lower kind.
Symbol* betterOf(Symbol* best, Symbol* other) {
    return other->exists() || (!best->exists() && other->kind < best->kind) ? other : best;
}

void keepBetter(Symbol*& best, Symbol* other) {
    best = betterOf(best, other);
}

/// Applies `visit` to each interface of the class and of its superclasses that is new to the search, until it gives
/// true.
template <class Visit>
void eachInterface(ClassSymbol* c, Walk search, Visit visit) {
    for (; c != nullptr; c = c->superclass)
        for (ClassSymbol* i : c->interfaces)
            if (i->isNewTo(search) && visit(i)) return;
}

} // namespace

ClassSymbol* classOf(Env* env) {
    return env->enclClass == nullptr ? context().predefClass : env->enclClass->classSymbol();
}

ClassSymbol* siteOf(Env* env, const Symbol* member) {
    ClassSymbol* inexact = nullptr;
    for (Env* e = env; e != nullptr && e->enclClass != nullptr; e = e->outer) {
        ClassSymbol* here = classOf(e);
        if (!here->isSubClass(member->owner)) continue;
        if (isMemberOf(here, member)) return here;
        if (inexact == nullptr) inexact = here;
    }
    return inexact;
}

// ---- access

namespace {

bool isInPackageOf(Env* env, const Symbol* sym) {
    return env != nullptr && env->toplevel->package == sym->package();
}

} // namespace

bool isAccessibleClass(Env* env, ClassSymbol* c) {
    ensureRead(c);
    // The machine knows no protected classes; who may name one was found out with its name.
    if ((c->flags & (flag::PUBLIC | flag::PROTECTED)) != 0) return true;
    return isInPackageOf(env, c);
}

namespace {

bool isInNestOf(Env* env, const Symbol* sym) {
    if (env == nullptr) return false;
    ClassSymbol* here = classOf(env);
    return here == sym->owner || (here->outermostClass() != nullptr && here->outermostClass() == sym->outermostClass());
}

/// A protected member is inherited by this class, or by one around it, and is reached through an object of that class.
bool isInherited(Env* env, ClassSymbol* site, const Symbol* sym) {
    for (Env* e = env; e != nullptr && e->enclClass != nullptr; e = e->outer) {
        ClassSymbol* here = classOf(e);
        if (here->isSubClass(sym->owner) && (sym->isStatic() || site->isSubClass(here) || env->isSelectSuper))
            return true;
    }
    return false;
}

} // namespace

bool isAccessible(Env* env, ClassSymbol* site, Symbol* sym) {
    if (sym->name == names().init && sym->owner->fullName() != site->flatName) return false;
    switch (sym->flags & ACCESS_FLAGS) {
    case flag::PRIVATE: return isInNestOf(env, sym);
    case 0: return isInPackageOf(env, sym);
    case flag::PROTECTED:
        return isInPackageOf(env, sym) || site->type->tag == typetag::ARRAY || isInherited(env, site, sym);
    default: return isAccessibleClass(env, site);
    }
}

// ---- fields and variables

namespace {

Symbol* findFieldIn(Env* env, ClassSymbol* c, Name* name, Walk search) {
    ensureRead(c);
    Symbol* best = varNotFound();
    Symbol* notInherited = nullptr;
    if (c->members == nullptr) return best;
    for (Symbol* entry = c->members->lookup(name); entry->scope != nullptr; entry = entry->nextEntry()) {
        Symbol* sym = entry->sym;
        if (sym->kind != VAR) continue;
        bool accessible = isAccessible(env, c, sym);
        if (accessible && isMemberOf(c, sym)) return sym;
        if (accessible && notInherited == nullptr) notInherited = sym;
        if (!accessible && best->kind > ACCESS_ERROR) best = accessError(sym);
    }
    for (; c != nullptr && !best->exists(); c = c->superclass)
        for (ClassSymbol* i : c->interfaces) {
            if (!i->isNewTo(search)) continue;
            Symbol* found = findFieldIn(env, i, name, search);
            if (best->exists() && found->exists()) {
                if (best->owner != found->owner) return ambiguityError(best, found);
            } else if (found->kind == AMBIGUOUS) {
                return found;
            } else if (!best->exists()) {
                keepBetter(best, found);
            }
        }
    return best->exists() || notInherited == nullptr ? best : notInherited;
}

} // namespace

Symbol* findField(Env* env, ClassSymbol* c, Name* name) {
    return findFieldIn(env, c, name, newWalk());
}

// A private member that a superclass within the same nest has is not inherited, but can be reached: it is what a name
// means if it means nothing else.

Symbol* findVar(Env* env, Name* name) {
    Symbol* best = varNotFound();
    Symbol* notInherited = nullptr;
    for (Env* e = env; e->outer != nullptr; e = e->outer) {
        for (Symbol* entry = e->scope->lookup(name); entry->scope != nullptr; entry = entry->nextEntry())
            if (entry->sym->kind == VAR && entry->sym->owner->kind != TYP) return entry->sym;
        Symbol* found = findField(e, classOf(e), name);
        if (found->exists() && isMemberOf(classOf(e), found)) return found;
        if (found->exists() && notInherited == nullptr) notInherited = found;
        if (!found->exists()) keepBetter(best, found);
    }
    if (notInherited != nullptr) return notInherited;
    Symbol* predefined = context().predefScope->lookup(name);
    if (predefined->scope != nullptr && predefined->sym->kind == VAR) return predefined->sym;
    return best;
}

// ---- methods

namespace {

bool isApplicable(const Symbol* sym, Types args) {
    if (sym->kind != MTH || sym->type == nullptr) return false;
    const Types* formals = sym->type->argTypes();
    return formals != nullptr && isSubTypes(args, *formals);
}

/// Whether `m1` is at least as good as `m2`. `inherits` says that the class of the one is known to inherit from that of
/// the other; to find it out takes a walk up the classes.
bool moreSpecific(Env* env, ClassSymbol* site, Symbol* m1, Symbol* m2, bool inherits = false) {
    if (!isAccessible(env, site, m2)) return true;
    if (!isAccessible(env, site, m1)) return false;
    if (isMemberOf(site, m1) != isMemberOf(site, m2)) return isMemberOf(site, m1);
    inherits = inherits || m1->isStatic() || m2->isStatic() || m1->owner->isInterface() || m2->owner->isInterface();
    return (inherits || m1->owner->isSubClass(m2->owner)) && isSubTypes(*m1->type->argTypes(), *m2->type->argTypes());
}

bool isBetterOrEqual(Env* env, ClassSymbol* site, Symbol* best, Symbol* sym) {
    return best->exists() && moreSpecific(env, site, best, sym);
}

Symbol* bestIn(Env* env, ClassSymbol* c, Symbol* best, ClassSymbol* site, Types args, Name* name, Walk search) {
    for (Symbol* entry = c->members->lookup(name); entry->scope != nullptr; entry = entry->nextEntry())
        if (isApplicable(entry->sym, args) && !isBetterOrEqual(env, site, best, entry->sym)) best = entry->sym;
    eachInterface(c, search, [&](ClassSymbol* i) {
        best = bestIn(env, i, best, site, args, name, search);
        return false;
    });
    return best;
}

bool isAmbiguousWith(Env* env, ClassSymbol* site, Symbol* m, Symbol* sym, Types args) {
    return sym != m && isApplicable(sym, args) && !moreSpecific(env, site, m, sym) && !isErroneous(args);
}

Symbol* checkAmbiguity(Env* env, ClassSymbol* c, Symbol* m, ClassSymbol* site, Types args, Walk search) {
    for (Symbol* entry = c->members->lookup(m->name); entry->scope != nullptr; entry = entry->nextEntry())
        if (isAmbiguousWith(env, site, m, entry->sym, args)) return ambiguityError(m, entry->sym);
    eachInterface(c, search, [&](ClassSymbol* i) {
        m = checkAmbiguity(env, i, m, site, args, search);
        return m->kind != MTH;
    });
    if (m->exists() && !isAccessible(env, site, m)) return accessError(m);
    return m;
}

/// For a class whose member chain holds all candidates, those of a class in front of those that it inherits.
Symbol* findInChain(Env* env, ClassSymbol* site, Name* name, Types args) {
    Symbol* first = site->members->lookup(name);
    while (first->scope != nullptr && !isApplicable(first->sym, args)) first = first->nextEntry();
    if (first->scope == nullptr) return methodNotFound();
    Symbol* best = first->sym;
    for (Symbol* entry = first->nextEntry(); entry->scope != nullptr; entry = entry->nextEntry())
        if (isApplicable(entry->sym, args) && !moreSpecific(env, site, best, entry->sym, true)) best = entry->sym;
    if (best != first->sym)
        for (Symbol* entry = first; entry->scope != nullptr; entry = entry->nextEntry())
            if (isAmbiguousWith(env, site, best, entry->sym, args)) return ambiguityError(best, entry->sym);
    return isAccessible(env, site, best) ? best : accessError(best);
}

/// Whether the class has or inherits a method of that name that can be called here.
bool hasAccessibleMethod(Env* env, ClassSymbol* c, Name* name, Walk search) {
    for (Symbol* entry = c->members->lookup(name); entry->scope != nullptr; entry = entry->nextEntry())
        if (entry->sym->kind == MTH && isMemberOf(c, entry->sym) && isAccessible(env, c, entry->sym)) return true;
    bool found = false;
    eachInterface(c, search, [&](ClassSymbol* i) { return found = hasAccessibleMethod(env, i, name, search); });
    return found;
}

} // namespace

Symbol* findMethod(Env* env, ClassSymbol* site, Name* name, Types args) {
    ensureRead(site);
    if (site->members == nullptr) return methodNotFound();
    if (!site->isAbstract() && !site->isInterface()) return findInChain(env, site, name, args);
    Symbol* best = bestIn(env, site, methodNotFound(), site, args, name, newWalk());
    return best->exists() ? checkAmbiguity(env, site, best, site, args, newWalk()) : best;
}

Symbol* findFun(Env* env, Name* name, Types args) {
    Symbol* best = methodNotFound();
    for (Env* e = env; e->enclClass != nullptr; e = e->outer) {
        ClassSymbol* c = classOf(e);
        Symbol* found = findMethod(e, c, name, args);
        if (found->exists() && isMemberOf(c, found)) return found;
        if (!best->exists()) keepBetter(best, found);
        if (e->outer->enclClass != nullptr && hasAccessibleMethod(e, c, name, newWalk())) return best;
    }
    if (best->exists()) return best;
    Symbol* operator_ = findMethod(env, context().predefClass, name, args);
    return operator_->exists() ? operator_ : best;
}

// ---- types and packages

namespace {

Symbol* findMemberTypeIn(Env* env, ClassSymbol* c, Name* name, Walk search) {
    ensureRead(c);
    Symbol* best = typeNotFound();
    if (c->members == nullptr) return best;
    for (Symbol* entry = c->members->lookup(name); entry->scope != nullptr; entry = entry->nextEntry()) {
        Symbol* sym = entry->sym;
        if (sym->kind != TYP) continue;
        ensureRead(static_cast<ClassSymbol*>(sym));
        if (Name* cause = context().classReader->failureOf(static_cast<ClassSymbol*>(sym)))
            keepBetter(best, loadError(cause, TYP));
        else if (isAccessible(env, c, sym))
            return sym;
        else if (best->kind > ACCESS_ERROR)
            best = accessError(sym);
    }
    eachInterface(c, search, [&](ClassSymbol* i) {
        Symbol* found = findMemberTypeIn(env, i, name, search);
        bool second = best->exists() && found->exists() && best != found;
        best = second ? ambiguityError(best, found) : betterOf(best, found);
        return second;
    });
    return best;
}

} // namespace

Symbol* findMemberType(Env* env, ClassSymbol* c, Name* name) {
    return findMemberTypeIn(env, c, name, newWalk());
}

Symbol* loadClass(Env* env, Name* flatName) {
    try {
        ClassSymbol* c = context().classReader->load(flatName);
        return isAccessibleClass(env, c) ? c : accessError(c);
    } catch (const ClassNotFound& failure) {
        return loadError(Name::fromString(failure.what()), TYP);
    }
}

Symbol* enterPackage(Env*, Name* name) {
    try {
        return context().classReader->enterPackage(name);
    } catch (const ClassNotFound& failure) {
        return loadError(Name::fromString(failure.what()), PCK);
    }
}

namespace {

Symbol* inScope(Env* env, Scope* scope, Name* name) {
    Symbol* entry = scope->lookup(name);
    if (entry->scope == nullptr) return typeNotFound();
    Symbol* second = entry->nextEntry();
    if (second->scope != nullptr && second->sym->fullName() != entry->sym->fullName())
        return ambiguityError(entry->sym, second->sym);
    return loadClass(env, entry->sym->fullName());
}

/// A class that on-demand imports bring, the last import first. Those that are not accessible are not imported, so they
/// only count if there is no other.
Symbol* findStarImported(Env* env, Name* name) {
    const CompilationUnit* unit = env->toplevel;
    Symbol* best = typeNotFound();
    Symbol* first = nullptr;
    auto isOther = [&](const Symbol* entry) {
        return entry->scope != nullptr && (first == nullptr || entry->sym->fullName() != first->fullName());
    };
    auto meet = [&](Symbol* entry) {
        if (best->kind == AMBIGUOUS || !isOther(entry)) return;
        Symbol* found = loadClass(env, entry->sym->fullName());
        best = best->exists() && found->exists() ? ambiguityError(first, entry->sym) : betterOf(best, found);
        if (best == found) first = entry->sym;
    };
    for (Symbol* entry = unit->starImports->lookup(name); entry->scope != nullptr; entry = entry->nextEntry())
        meet(entry);
    for (const PackageList* list = unit->starPackages; list != nullptr; list = list->tail)
        if (list->head->members != nullptr) meet(list->head->members->lookup(name));
    return best;
}

/// A class that is visible from the classes around the place.
Symbol* findEnclosedType(Env* env, Name* name, Symbol* best) {
    for (Env* e = env; e != nullptr && e->outer != nullptr; e = e->outer) {
        for (Symbol* entry = e->scope->lookup(name); entry->scope != nullptr; entry = entry->nextEntry())
            if (entry->sym->kind == TYP && entry->sym->owner->kind != TYP) return entry->sym;
        if (!e->isClause) keepBetter(best, findMemberType(e, classOf(e), name));
        if (best->exists()) return best;
    }
    return best;
}

} // namespace

Symbol* findType(Env* env, Name* name) {
    Symbol* best = findMemberType(env, context().predefClass, name);
    if (best->exists()) return best;
    if (env->enclClass != nullptr) best = findEnclosedType(env, name, best);
    for (Scope* scope : {env->toplevel->namedImports, env->toplevel->package->members}) {
        if (best->exists()) return best;
        if (scope != nullptr) keepBetter(best, inScope(env, scope, name));
    }
    if (!best->exists()) keepBetter(best, findStarImported(env, name));
    return best;
}

// ---- identifiers

Symbol* findIdent(int pos, Name* name, Env* env, const Types* args, int kinds) {
    Symbol* best = typeNotFound();
    if ((kinds & VAR) != 0) best = findVar(env, name);
    if (!best->exists() && (kinds & MTH) != 0) keepBetter(best, findFun(env, name, args == nullptr ? Types{} : *args));
    if (!best->exists() && (kinds & TYP) != 0) keepBetter(best, findType(env, name));
    if (!best->exists() && (kinds & PCK) != 0) {
        Symbol* package = enterPackage(env, name);
        if (package->exists())
            best = package;
        else if ((kinds & TYP) != 0 && best->kind == TYPE_NOT_FOUND && package->kind == LOAD_ERROR)
            best = loadError(static_cast<LoadError*>(package)->cause, TYP | PCK);
        else
            keepBetter(best, package);
    }
    if (best->exists()) return best;
    return accessSym(best, pos, classOf(env), args, name);
}

namespace {

/// What was not found may stand in a class that could not be read; then that is what the user should hear.
Symbol* explained(Symbol* found, const ClassSymbol* site, int kinds) {
    if (found->kind < VAR_NOT_FOUND) return found;
    Name* cause = context().classReader->failureOf(site);
    return cause == nullptr ? found : loadError(cause, kinds);
}

} // namespace

Symbol* findIdentInType(ClassSymbol* site, Name* name, const Types* args, int kinds, Env* env) {
    Symbol* best = typeNotFound();
    if ((kinds & VAR) != 0) best = findField(env, site, name);
    if (!best->exists() && (kinds & MTH) != 0)
        keepBetter(best, findMethod(env, site, name, args == nullptr ? Types{} : *args));
    if (!best->exists() && (kinds & TYP) != 0) keepBetter(best, findMemberType(env, site, name));
    return explained(best, site, kinds);
}

Symbol* findIdentInPackage(int pos, ClassSymbol* package, Name* name, int kinds, Env* env) {
    Name* flatName = formFullName(name, package);
    ClassSymbol* known = context().findClass(flatName);
    if (known == nullptr || known->reading == Reading::NAMED) {
        Symbol* c = loadClass(env, flatName);
        if (c->kind != LOAD_ERROR || (kinds & PCK) == 0) return c;
        Symbol* inner = enterPackage(env, flatName);
        if (inner->kind != LOAD_ERROR) return inner;
        std::string causes =
            static_cast<LoadError*>(c)->cause->toString() + "; " + static_cast<LoadError*>(inner)->cause->toString();
        return loadError(Name::fromString(causes), TYP | PCK);
    }
    if ((known->kind & kinds) == 0) {
        reportError(pos, messages::packageAndClassSameName, flatName);
        return errSymbol;
    }
    return known->kind == PCK ? known : loadClass(env, flatName);
}

// ---- operators

namespace {

/// Whether the tag of the operand says all that matters to the choice of its operator.
bool isPlainOperand(const Type* type) {
    if (type->tag == typetag::CLASS) return type->isConstant() || type == context().stringType;
    return type->tag >= typetag::BYTE && type->tag <= typetag::BOOLEAN;
}

} // namespace

Symbol* findOperator(int pos, int treeTag, Env* env, Type* left, Type* right) {
    Symbol** remembered = nullptr;
    if (isPlainOperand(left) && (right == nullptr || isPlainOperand(right))) {
        remembered = &context().operatorOf(treeTag, left->tag, right == nullptr ? 0 : right->tag);
        if (*remembered != nullptr) return *remembered;
    }
    Type* const operands[] = {left, right};
    Types args(operands, right == nullptr ? 1 : 2);
    Name* name = operatorName(treeTag);
    Symbol* found = findMethod(env, context().predefClass, name, args);
    if (!found->exists()) return accessSym(found, pos, classOf(env), &args, name);
    if (remembered != nullptr) *remembered = found;
    return found;
}

// ---- searches that report

Symbol* accessSym(Symbol* sym, int pos, ClassSymbol* site, const Types* args, Name* name) {
    if (sym->exists()) return sym;
    static_cast<ResolveError*>(sym)->report(pos, site, args, name);
    return errSymbol;
}

Symbol* accessName(Symbol* sym, int pos, Name* name) {
    return accessSym(sym, pos, context().predefClass, nullptr, name);
}

Symbol* resolveConstructor(int pos, ClassSymbol* site, Env* env, Types args) {
    bool before = env->isSelectSuper;
    env->isSelectSuper = true;
    Symbol* found = findMethod(env, site, names().init, args);
    env->isSelectSuper = before;
    found = explained(found, site, CTOR);
    found = accessSym(found, pos, site, &args, names().init);
    if ((found->flags & flag::DEPRECATED) != 0) attribution::warnDeprecated(pos, found);
    return found;
}

Symbol* resolvePackage(int pos, Name* name, Env* env) {
    return accessName(enterPackage(env, name), pos, name);
}

Symbol* resolveField(ClassSymbol* site, Name* name) {
    return accessSym(findField(nullptr, site, name), 0, site, nullptr, name);
}

Symbol* resolveMethod(ClassSymbol* site, Name* name, Type* argType) {
    Type* const args[] = {argType};
    Types types(args);
    return accessSym(findMethod(nullptr, site, name, types), 0, site, &types, name);
}

Symbol* lookupKind(ClassSymbol* c, int kind, Name* name) {
    ensureRead(c);
    for (Symbol* entry = c->members->lookup(name); entry->scope != nullptr; entry = entry->nextEntry())
        if (entry->sym->kind == kind) return entry->sym;
    return nullptr;
}

} // namespace tarn::resolve
