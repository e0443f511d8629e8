#include "semantic/attribution.h"

#include "driver/reporter.h"
#include "semantic/context.h"
#include "semantic/resolve.h"
#include "semantic/scope.h"
#include "syntax/tree_declarations.h"
#include "syntax/tree_expressions.h"

// The checks that attribution shares. The error type and the error symbol absorb all follow-ups: every comparison with
// them succeeds, so that one fault gives one message.

namespace tarn::attribution {

using namespace typetag;

bool detail::checkKind(int pos, int found, int expected) {
    reportError(pos, messages::kindRequired, kindNames(expected), kindNames(found));
    return false;
}

namespace {

void reportMismatch(int pos, Type* found, Type* required) {
    if (found->tag <= DOUBLE && required->tag <= DOUBLE) {
        reportError(pos, messages::possibleLossOfPrecision, found, required);
    } else if (required->tag == METHOD && found->tag != METHOD) {
        reportError(pos, messages::incompatibleTypes, found, "method");
    } else if (required->tag == METHOD && isSubTypes(*required->argTypes(), *found->argTypes())) {
        if (!found->resType()->isSubType(required->resType()))
            reportError(pos, messages::incompatibleReturnType, found->resType(), required->resType());
        else
            reportError(pos, messages::incompatibleThrowsList, TypeList::toString(found->thrown()),
                        TypeList::toString(required->thrown()));
    } else {
        reportError(pos, messages::incompatibleTypes, found, required);
    }
}

} // namespace

Type* detail::checkAssignable(int pos, Type* found, Type* required) {
    if (required->tag == ERROR) return required;
    if (found->isAssignable(required)) return found;
    reportMismatch(pos, found, required);
    return errType;
}

Type* checkNonVoid(int pos, Type* type) {
    if (type->tag == VOID) reportError(pos, messages::voidNotAllowed);
    return type;
}

Type* attrTypeTree(Tree* tree, Env* env) {
    if (tree->type == errType) return errType;
    Type* type = tree->attr(env, TYP, anythingType);
    return checkNonVoid(tree->pos, type)->tag == VOID ? tree->type = errType : type;
}

Type* checkRefType(int pos, Type* type) {
    if (type->tag == CLASS || type->tag == ARRAY || type->tag == NULLTYPE || type->tag == ERROR) return type;
    reportError(pos, messages::objectTypeRequired, type);
    return errType;
}

// ---- exceptions

Type* unhandled(TypeList* thrown, TypeList* handled) {
    for (; thrown != nullptr; thrown = thrown->tail) {
        Type* type = thrown->head;
        if (type->isSubType(context().errorType) || type->isSubType(context().runtimeExceptionType)) continue;
        if (!TypeList::contains(handled, type)) return type;
    }
    return nullptr;
}

void checkThrown(int pos, Type* type, TypeList* handled) {
    if (type->tag != METHOD) return;
    if (Type* first = unhandled(type->thrown(), handled)) reportError(pos, messages::unreportedException, first);
}

// ---- static contexts

Symbol* checkNonStaticRef(int pos, Symbol* sym) {
    if (sym->kind == TYP || sym->isStatic() || sym->owner == nullptr || sym->owner->kind != TYP) return sym;
    reportError(pos, messages::nonStaticReferencedFromStaticContext, sym);
    return errSymbol;
}

void checkAbstractRef(int pos, Symbol* sym) {
    if (sym->isAbstract()) reportError(pos, messages::abstractAccessedDirectly, sym);
}

bool isStaticContext(Env* env, const ClassSymbol* c) {
    if (env->isStatic) return true;
    for (Env* e = env; e->enclClass != nullptr; e = e->outer) {
        if (e->isStatic) return true;
        const ClassSymbol* here = resolve::classOf(e);
        // A class among the arguments of a constructor call has no instance of the class around it, but of those
        // further out.
        if (here == c) return e != env && e->isSelfCall;
        if (here->isStatic() && !e->outer->isSelfCall) return true;
    }
    return false;
}

bool isBlankFinalRefused(Env* env, VarSymbol* v) {
    if (v->type->isConstant()) return true;
    if (v->owner->kind == MTH) return v->owner->enclClass() != resolve::classOf(env); // an inner class has a copy
    if (resolve::classOf(env) != v->owner) return true;
    if (v->isStatic() && !env->isStatic) return true;
    return env->enclMethod != nullptr && env->enclMethod->name != names().init;
}

void warnDeprecated(int pos, Symbol* sym) {
    context().options.deprecationSeen = true;
    reportWarning(pos, messages::deprecated, sym, sym->location());
}

// ---- constants on demand

namespace {

/// Whether the expression has only nodes that a constant expression can have. What else there is is left to the
/// attribution of the declaration, which can report.
bool mayBeConstant(const Tree* tree) {
    using namespace treetag;
    if (tree == nullptr) return true;
    if (tree->tag >= INT_LITERAL || tree->tag == IDENT) return true;
    if (tree->tag >= POS && tree->tag <= COMPL) return mayBeConstant(static_cast<const Unary*>(tree)->arg);
    if (tree->tag >= OR_OR && tree->tag <= MOD) {
        // Along the left operands by a loop: a long concatenation is a deep tree.
        while (tree->tag >= OR_OR && tree->tag <= MOD) {
            if (!mayBeConstant(static_cast<const Binary*>(tree)->rhs)) return false;
            tree = static_cast<const Binary*>(tree)->lhs;
        }
        return mayBeConstant(tree);
    }
    switch (tree->tag) {
    case SELECT: return mayBeConstant(static_cast<const Select*>(tree)->selected);
    case TYPECAST: return mayBeConstant(static_cast<const TypeOp*>(tree)->expr);
    case THIS:
    case SUPER: return static_cast<const Self*>(tree)->encl == nullptr;
    case CONDITIONAL: {
        const auto* choice = static_cast<const Conditional*>(tree);
        return mayBeConstant(choice->cond) && mayBeConstant(choice->thenpart) && mayBeConstant(choice->elsepart);
    }
    default: return false;
    }
}

} // namespace

void settleConstant(VarSymbol* v, Type* value) {
    if (!value->isConstant()) return;
    bool takesValue =
        v->type->tag != CLASS ? v->type->tag <= BOOLEAN && v->type->tag != ERROR : v->type == context().stringType;
    if (!takesValue) return;
    // Other constants may be joined of this one more than once, so its text must not be put together for each of them.
    if (v->type->tag == CLASS) value->constValue()->stringValue();
    v->type = value->coerce(v->type->tag);
}

void evalConst(VarSymbol* v) {
    if (v->initDef == nullptr) return;
    VarDef* def = v->initDef;
    if (!mayBeConstant(def->init)) return;
    v->initDef = nullptr;
    ScopedSuppress quiet;
    Env* env = def->env->dup(def);
    env->isStatic = v->isStatic();
    settleConstant(v, def->init->attr(env, VAL, v->type));
}

} // namespace tarn::attribution
