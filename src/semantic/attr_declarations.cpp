#include "driver/reporter.h"
#include "semantic/attribution.h"
#include "semantic/checks.h"
#include "semantic/context.h"
#include "semantic/entry.h"
#include "semantic/scope.h"
#include "syntax/tree_declarations.h"
#include "syntax/tree_expressions.h"
#include "syntax/tree_statements.h"

#include <algorithm>

// Attribution of variables, methods, classes and units. Local variables, catch clauses, and local and anonymous classes
// are entered here first, when attribution reaches them; what is a member was entered before.

namespace tarn {

using attribution::checkAssignable;
using attribution::checkKind;

// ---- variables

Type* VarDef::attr(Env* outer, int, Type* pt) {
    if (sym == nullptr) memberEnter(outer);
    if (tag == treetag::ERRONEOUS) return type = errType;
    VarSymbol* v = variable();
    if (init != nullptr) {
        bool isField = v->owner->kind == TYP;
        Env* initEnv = outer;
        if (isField) {
            initEnv = attribution::initializerEnv(outer, this, v->isStatic() || outer->isInterface());
            if (initEnv->isStatic) initEnv->handled = nullptr;
        }
        bool unsettled = v->initDef != nullptr;
        v->initDef = nullptr; // first, for the initializer may hold a use of the variable
        Type* initializer = init->attr(initEnv, VAL, v->type);
        if (unsettled) attribution::settleConstant(v, initializer);
        if (isField) initEnv->scope->leave();
    }
    v->adr = -1;
    return type = pt;
}

// ---- methods

Type* MethodDef::attr(Env* outer, int, Type* pt) {
    if (sym == nullptr) memberEnter(outer);
    if (sym->type->tag == typetag::ERROR) return type = errType;
    for (Tree* clause : thrown) checkAssignable(clause->pos, clause->type, context().throwableType);
    if (tag != treetag::CATCH) checks::checkOverrides(this);
    type = pt;
    const char* bodiless = nullptr;
    if (tag != treetag::CATCH) {
        if (outer->isInterface())
            bodiless = "interface methods";
        else if (sym->isAbstract())
            bodiless = "abstract methods";
        else if ((sym->flags & flag::NATIVE) != 0)
            bodiless = "native methods";
    }
    if (body == nullptr) {
        if (bodiless == nullptr) reportError(pos, messages::missingMethodBody);
    } else if (bodiless != nullptr) {
        reportError(pos, messages::bodyNotAllowed, bodiless);
        body = nullptr;
    } else {
        env->scope->reenter();
        attrBody(env, pt);
        env->scope->leave();
    }
    return type;
}

void MethodDef::attrBody(Env* bodyEnv, Type* pt) {
    if (tag == treetag::CATCH) {
        type = body->attr(bodyEnv, VAL, pt);
        return;
    }
    Type* result = sym->type->resType();
    Trees rest = body->stats;
    if (name == names().init && !sym->owner->isRootClass()) {
        addSelfCall();
        rest = body->stats.subspan(1);
    }
    body->type = result;
    for (Tree* statement : rest)
        body->type = conditionalType(statement->pos, body->type, statement->attr(bodyEnv, VAL, result));
}

namespace {

/// The callee, if the statement calls another constructor with `this(...)` or `super(...)`; or null.
Self* selfCallee(Tree* statement) {
    if (statement->tag != treetag::EXEC) return nullptr;
    Tree* call = static_cast<Exec*>(statement)->expr;
    if (call->tag != treetag::APPLY) return nullptr;
    Tree* callee = static_cast<Apply*>(call)->meth;
    bool isSelf = callee->tag == treetag::THIS || callee->tag == treetag::SUPER;
    return isSelf ? static_cast<Self*>(callee) : nullptr;
}

/// The statements, with `super();` in front.
Trees withSuperCall(Arena& arena, int pos, Trees statements) {
    auto* call = arena.make<Apply>(pos, arena.make<Self>(pos, treetag::SUPER, nullptr), Trees{});
    Trees longer = arena.makeArray<Tree*>(statements.size() + 1);
    longer.front() = arena.make<Exec>(pos, call);
    std::copy(statements.begin(), statements.end(), longer.begin() + 1);
    return longer;
}

} // namespace

void MethodDef::addSelfCall() {
    if (body->stats.empty() || selfCallee(body->stats.front()) == nullptr)
        body->stats = withSuperCall(env->toplevel->arena, pos, body->stats);
    Tree* first = body->stats.front();
    first->attr(env, CTOR, context().voidType);
    Symbol* called = selfCallee(first)->sym;
    bool isFound = called != nullptr && called->kind == MTH;
    selfCall = isFound ? static_cast<MethodSymbol*>(called) : nullptr;
}

// ---- classes

Type* ClassDef::attr(Env* outer, int, Type* pt) {
    type = pt;
    if (tag == treetag::ERRONEOUS) return type;
    bool isReached = env != nullptr;
    if (isReached && (localScope == nullptr || clinit != nullptr)) return type; // done, or under way
    if (!isReached) {
        enter(outer);
        if (tag == treetag::ERRONEOUS) return type;
        memberEnter(outer);
    }
    ClassSymbol* c = classSymbol();
    if (entry::hasErroneousSupertype(c)) return type;
    clinit = context().arena.make<MethodSymbol>();
    clinit->init(flag::STATIC, MTH, names().clinit, context().methodType({}, context().voidType, nullptr), c);
    clinit->pos = body->pos;
    if (!c->isAbstract() && !c->isInterface()) {
        checks::checkAllDefined(this);
        checks::checkImplementations(this);
    }
    body->type = context().voidType;
    for (Tree* def : body->stats) def->attr(env, VAL, context().voidType);
    checks::checkCyclicConstructors(this);
    if (c->owner->kind != PCK) env->toplevel->hasInnerClasses = true;
    localScope = nullptr;
    return type;
}

// ---- units

void CompilationUnit::attribute() {
    ScopedSource here(source);
    hasInnerClasses = false;
    for (Tree* def : defs) def->attr(env, TYP, anythingType);
}

Type* PackageDecl::attr(Env*, int, Type* pt) {
    return type = pt;
}

Type* Import::attr(Env*, int, Type* pt) {
    return type = pt;
}

} // namespace tarn
