#include "driver/reporter.h"
#include "semantic/attribution.h"
#include "semantic/context.h"
#include "semantic/entry.h"
#include "semantic/resolve.h"
#include "semantic/scope.h"
#include "syntax/tree_declarations.h"
#include "syntax/tree_expressions.h"

// Attribution of names: identifiers, selections, `this` and `super`.

namespace tarn {

using namespace attribution;
using namespace typetag;

namespace {

/// A use of a field by its simple name in an initializer of its own class, before its declaration was attributed.
bool isForwardReference(Env* env, const VarSymbol* v) {
    return v->adr == -2 && env->enclMethod == nullptr && env->scope->owner != nullptr &&
           env->scope->owner->enclClass() == v->owner && v->isStatic() == env->isStatic;
}

/// The use of a constant leaves no trace in the class file, so it is recorded for the make engine.
void recordConstant(Env* env, VarSymbol* v) {
    if (!context().options.trackDependencies || !v->type->isConstant() || v->owner->kind != TYP) return;
    ClassSymbol* here = resolve::classOf(env);
    if (v->owner != context().predefClass && v->owner != here) here->addConstantRef(v);
}

/// Tells the make engine of a class, or of a member of another class; `site` is where a member was looked up, null for
/// one that was found by its simple name.
void recordUse(Env* env, Symbol* sym, ClassSymbol* site) {
    if (!context().options.trackDependencies) return;
    bool isMember = (sym->kind == VAR || sym->kind == MTH) && sym->owner != nullptr && sym->owner->kind == TYP;
    if (!isMember && sym->kind != TYP) return;
    ClassSymbol* here = resolve::classOf(env);
    if (isMember ? sym->owner == here || sym->owner == context().predefClass : sym == here) return;
    if (!isMember)
        site = nullptr;
    else if (site == nullptr)
        site = resolve::siteOf(env, sym);
    Name* by = here == context().predefClass ? env->toplevel->sourcePath() : here->flatName;
    context().uses.add({.by = by, .used = sym, .site = site});
}

void checkCaptured(int pos, Env* env, VarSymbol* v) {
    if (v->owner->kind != MTH || env->scope->owner == v->owner || (v->flags & flag::CAPTURED) != 0) return;
    if (!v->isFinal()) reportError(pos, messages::localMustBeFinal, v);
    v->flags |= flag::CAPTURED; // only now, since a report may end the attribution
}

/// A use of a final variable, which may be a constant; or an assignment to it, refused or left to the flow analysis.
void checkFinal(int pos, Env* env, VarSymbol* v, bool isRefused) {
    if (isRefused)
        reportError(pos, messages::finalAssigned, v);
    else
        recordConstant(env, v);
}

/// Whether the instance member stands behind a static context.
bool isOutOfReach(Env* env, const Symbol* sym) {
    ClassSymbol* site = resolve::siteOf(env, sym);
    return site == nullptr ? env->isStatic : isStaticContext(env, site);
}

/// Whether the member would be reached through the object that a this(...) or super(...) call is still making.
bool isOfUnmadeObject(Env* env, const Symbol* sym) {
    return env->isSelfCall && resolve::siteOf(env, sym) == resolve::classOf(env);
}

} // namespace

// ---- identifiers

Type* Ident::attr(Env* env, int pkind, Type* pt) {
    if (tag == treetag::ERRONEOUS) {
        sym = errSymbol;
        return type = errType;
    }
    sym = resolve::findIdent(pos, name, env, pt->argTypes(), pkind);
    bool ofClass = !sym->isStatic() && sym->owner != nullptr && sym->owner->kind == TYP && sym->kind != TYP;
    if (ofClass && (isOutOfReach(env, sym) || (pkind != VAR && isOfUnmadeObject(env, sym))))
        sym = checkNonStaticRef(pos, sym);
    if ((sym->flags & flag::DEPRECATED) != 0) warnDeprecated(pos, sym);
    if (sym->kind == VAR) {
        auto* v = static_cast<VarSymbol*>(sym);
        if (isForwardReference(env, v)) reportError(pos, messages::illegalForwardReference);
        evalConst(v);
        if (v->isFinal()) checkFinal(pos, env, v, pkind == VAR && isBlankFinalRefused(env, v));
        checkCaptured(pos, env, v);
    }
    recordUse(env, sym, nullptr);
    return type = checkAssignable(pos, sym->type, pt);
}

Type* KnownType::attr(Env*, int, Type* pt) {
    return type = checkAssignable(pos, sym->type, pt);
}

// ---- selections

namespace {

int qualifierKinds(int pkind) {
    int kinds = 0;
    if ((pkind & PCK) != 0) kinds |= PCK;
    if ((pkind & TYP) != 0) kinds |= PCK | TYP;
    if ((pkind & ~(PCK | TYP)) != 0) kinds |= TYP | VAL;
    return kinds;
}

const Symbol* symbolOf(const Tree* tree) {
    return tree->tag == treetag::IDENT || tree->tag == treetag::SELECT ? static_cast<const NamedTree*>(tree)->sym
                                                                       : nullptr;
}

bool isClassName(const Tree* tree) {
    const Symbol* sym = symbolOf(tree);
    return sym != nullptr && sym->kind == TYP;
}

/// The class literal's pseudo variable.
Symbol* makeClassVariable(Type* of) {
    auto* v = context().arena.make<VarSymbol>();
    v->init(flag::PUBLIC | flag::STATIC, VAR, names().class_, context().classClassType, of->tsym);
    v->adr = -1;
    return v;
}

Symbol* selectInPackage(Select* tree, ClassSymbol* package, int pkind, Env* env) {
    Symbol* found = resolve::findIdentInPackage(tree->pos, package, tree->name, pkind, env);
    if (found->exists()) return found;
    return resolve::accessName(found, tree->pos, formFullName(tree->name, package));
}

/// A class of the package that has the same name as the class in which the search failed.
Symbol* findInPackageOfSameName(Select* tree, int pkind, Env* env) {
    Name* qualifier = tree->selected->fullName();
    if ((pkind & TYP) == 0 || qualifier == nullptr) return nullptr;
    Symbol* package = resolve::enterPackage(env, qualifier);
    if (package->kind != PCK) return nullptr;
    Symbol* found = resolve::findIdentInPackage(tree->pos, static_cast<ClassSymbol*>(package), tree->name, pkind, env);
    return found->exists() ? found : nullptr;
}

/// What a class name or `super` in front of the name allows.
Symbol* checkSelectedFromClass(Select* tree, Symbol* sym, Env* env) {
    if (sym->isStatic()) return sym;
    if (tree->selected->tag == treetag::SUPER) {
        checkAbstractRef(tree->pos, sym);
        return sym;
    }
    if (sym->kind == VAR && !isOutOfReach(env, sym)) {
        reportError(tree->pos, messages::staticReferenceToNonStatic, sym);
        return errSymbol;
    }
    return checkNonStaticRef(tree->pos, sym);
}

Symbol* selectInClass(Select* tree, ClassSymbol* site, int pkind, Type* pt, Env* env) {
    entry::checkCyclic(tree->pos, site);
    bool fromClass = isClassName(tree->selected) || tree->selected->tag == treetag::SUPER;
    env->isSelectSuper = fromClass;
    Symbol* sym = resolve::findIdentInType(site, tree->name, pt->argTypes(), pkind, env);
    // A member class may be inherited by a class whose supertypes are not known yet.
    if (!sym->exists() && (pkind & TYP) != 0 && entry::completeIdle(site))
        sym = resolve::findIdentInType(site, tree->name, pt->argTypes(), pkind, env);
    if (!sym->exists()) {
        Symbol* other = findInPackageOfSameName(tree, pkind, env);
        sym = other != nullptr ? other : resolve::accessSym(sym, tree->pos, site, pt->argTypes(), tree->name);
    }
    if (fromClass) sym = checkSelectedFromClass(tree, sym, env);
    env->isSelectSuper = false;
    return sym;
}

/// What the name means behind a qualifier of that type. Reports.
Symbol* selectFrom(Select* tree, Type* site, int pkind, Type* pt, Env* env) {
    switch (site->tag) {
    case PACKAGE: {
        Symbol* sym = selectInPackage(tree, site->tsym, pkind, env);
        recordUse(env, sym, nullptr);
        return sym;
    }
    case CLASS:
    case ARRAY: {
        ClassSymbol* c = site->isConstant() ? context().stringClass : site->tsym;
        Symbol* sym = selectInClass(tree, c, pkind, pt, env);
        if (site->tag == CLASS) recordUse(env, sym, site->tsym);
        return sym;
    }
    case NULLTYPE: reportError(tree->pos, messages::nullDereferenced); return errSymbol;
    default: checkRefType(tree->pos, site); return errSymbol;
    }
}

bool isAssignmentRefused(const Select* tree, Env* env, VarSymbol* v) {
    const Tree* selected = tree->selected;
    bool isName = selected->tag == treetag::IDENT || selected->tag == treetag::SELECT;
    if (isClassName(selected) || (selected->tag != treetag::THIS && !isName)) return true;
    return isBlankFinalRefused(env, v);
}

} // namespace

Type* Select::attr(Env* env, int pkind, Type* pt) {
    if (tag == treetag::ERRONEOUS) {
        sym = errSymbol;
        return type = errType;
    }
    if (name == names().class_) {
        sym = makeClassVariable(selected->attr(env, TYP, anythingType));
        if (!checkKind(pos, VAL, pkind)) return type = errType;
        return type = checkAssignable(pos, sym->type, pt);
    }
    sym = selectFrom(this, selected->attr(env, qualifierKinds(pkind), anythingType), pkind, pt, env);
    if (sym->kind == VAR) {
        auto* v = static_cast<VarSymbol*>(sym);
        evalConst(v);
        if (v->isFinal()) checkFinal(pos, env, v, pkind == VAR && isAssignmentRefused(this, env, v));
    }
    if ((sym->flags & flag::DEPRECATED) != 0) warnDeprecated(pos, sym);
    // What stands in front of the name must still happen, so the value is no constant then.
    Type* found =
        sym->kind == VAR && sym->type->isConstant() && !isPlainSelection(this) ? withoutValue(sym->type) : sym->type;
    return type = checkAssignable(pos, found, pt);
}

// ---- this and super

namespace {

bool isAround(Env* env, const ClassSymbol* c) {
    for (Env* e = env; e->enclClass != nullptr; e = e->outer)
        if (resolve::classOf(e) == c) return true;
    return false;
}

} // namespace

Type* Self::attr(Env* env, int pkind, Type* pt) {
    type = errType;
    sym = nullptr;
    bool isCall = pkind == CTOR;
    ClassSymbol* c = encl == nullptr || isCall ? resolve::classOf(env) : encl->attr(env, TYP, anythingType)->tsym;
    if (encl != nullptr) env->toplevel->hasInnerClasses = true;
    if (c->type->tag == ERROR) return type;
    Name* word = tag == treetag::THIS ? names().this_ : names().super;
    if (env->isSelfCall && resolve::classOf(env) == c) {
        reportError(pos, messages::referenceBeforeSuperConstructor, word);
        return type;
    }
    if (!isAround(env, c)) {
        reportError(pos, messages::enclosingInstanceNotInScope, c, resolve::classOf(env));
        return type;
    }
    if (isStaticContext(env, c)) {
        std::string shown = encl == nullptr ? "" : c->flatName->toString() + ".";
        reportError(pos, messages::referencedFromStaticContext, shown + word->toString());
        return type;
    }
    if (tag == treetag::SUPER && c->superclass != nullptr) c = c->superclass;
    if (!isCall) {
        if (checkKind(pos, VAL, pkind)) type = checkAssignable(pos, c->type, pt);
        return type;
    }
    Env* outerEnv = env->dup(this);
    outerEnv->isSelfCall = true;
    Type* outer = encl == nullptr ? nullptr : encl->attr(outerEnv, VAL, anythingType);
    // What the constructor of an anonymous class passes on was tested where the object is created.
    if (outer != nullptr && !env->enclClass->isAnonymous()) encl = nonNull(env, encl);
    Types args = outerArguments(pos, outerEnv, encl, outer, *pt->argTypes(), c);
    sym = resolve::resolveConstructor(pos, c, env, args);
    return type = sym->type;
}

namespace attribution {

namespace {

/// The innermost class around the place by whose instance a `c` can be made: for a member class one that has `c` as a
/// member, for a local class the one around it. Not one whose object is still being made. Null if there is none.
ClassSymbol* enclosingClass(Env* env, const ClassSymbol* c) {
    const ClassSymbol* needed = c->owner->enclClass();
    for (Env* e = env; e->enclClass != nullptr; e = e->outer) {
        ClassSymbol* here = resolve::classOf(e);
        bool fits = c->owner->kind == MTH ? here == needed : here->isSubClass(needed);
        if (fits && !e->isSelfCall) return here;
    }
    return nullptr;
}

} // namespace

Types outerArguments(int pos, Env* env, Tree*& encl, Type* outer, Types args, ClassSymbol* c) {
    if (!c->hasOuterInstance()) {
        if (outer != nullptr) reportError(pos, messages::qualifierNotInnerClass, c);
        return args;
    }
    if (outer == nullptr) {
        ClassSymbol* q = enclosingClass(env, c);
        if (q == nullptr) {
            reportError(pos, messages::enclosingInstanceNotInScope, c->owner->enclClass(), c);
            outer = errType;
        } else {
            Arena& arena = env->toplevel->arena;
            encl = arena.make<Self>(pos, treetag::THIS, arena.make<KnownType>(pos, q->type));
            outer = encl->attr(env, VAL, anythingType);
        }
    }
    return withOuter(env->toplevel->arena, outer, args);
}

Types withOuter(Arena& arena, Type* outer, Types args) {
    std::span<Type*> longer = arena.makeArray<Type*>(args.size() + 1);
    longer.front() = outer;
    std::copy(args.begin(), args.end(), longer.begin() + 1);
    return longer;
}

Tree* nonNull(Env* env, Tree* instance) {
    if (instance->tag == treetag::THIS) return instance;
    auto* tree = env->toplevel->arena.make<Unary>(instance->pos, treetag::NONNULL, instance);
    tree->type = instance->type;
    return tree;
}

} // namespace attribution

} // namespace tarn
