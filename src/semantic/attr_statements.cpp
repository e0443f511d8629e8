#include "driver/reporter.h"
#include "semantic/attribution.h"
#include "semantic/context.h"
#include "semantic/entry.h"
#include "semantic/scope.h"
#include "syntax/tree_declarations.h"
#include "syntax/tree_statements.h"

#include <unordered_set>

// Attribution of statements. A statement has a type as an expression has: it is the result type of the method around
// it, which is handed down unchanged to the `return`s, or the error type if something in the statement failed.
// `conditionalType` merges the parts of a compound statement, and since the error type absorbs all others, the type of
// a body tells whether it had an error.
//
// What a jump may reach is found along the `next` chain of environments. The chain of a local class leads out to the
// code around it, but no jump leaves a method or a class, so each walk ends there.

namespace tarn {

using attribution::checkKind;

namespace {

Type* attrStatements(Trees statements, Env* env, Type* pt) {
    Type* merged = pt;
    for (Tree* statement : statements) merged = conditionalType(statement->pos, merged, statement->attr(env, VAL, pt));
    return merged;
}

/// The value of a postfix operator is not used here, and prefix code is shorter.
void preferPrefix(Tree* expression) {
    if (expression->tag == treetag::POSTINC) expression->tag = treetag::PREINC;
    if (expression->tag == treetag::POSTDEC) expression->tag = treetag::PREDEC;
}

} // namespace

// ---- blocks

namespace {

/// An initializer may throw what every constructor declares. That of an anonymous class, whose constructor nobody
/// writes, may throw what may be thrown where the class is created.
TypeList* handledByConstructors(const Env* env) {
    const ClassDef* tree = env->enclClass;
    if (tree->isAnonymous()) return env->handled;
    const Scope* members = tree->classSymbol()->members;
    Symbol* constructor = members->lookup(names().init);
    if (constructor->scope != members) return nullptr;
    TypeList* handled = constructor->sym->type->thrown();
    for (constructor = constructor->nextEntry(); constructor->scope == members; constructor = constructor->nextEntry())
        handled = TypeList::common(handled, constructor->sym->type->thrown());
    return handled;
}

} // namespace

namespace attribution {

Env* initializerEnv(Env* env, Tree* tree, bool isStatic) {
    Env* initEnv = env->dup(tree, env->enclClass->localScope->dup(env->toplevel->arena));
    initEnv->enclMethod = nullptr; // the class may be local, and the method around it is not meant
    initEnv->isStatic = isStatic;
    initEnv->handled = handledByConstructors(env);
    // A method as owner makes local classes of those that are declared here.
    auto* initializer = context().arena.make<MethodSymbol>();
    Symbol* c = env->enclClass->sym;
    std::uint32_t flags = isStatic ? flag::PUBLIC | flag::FINAL | flag::STATIC : flag::PUBLIC | flag::FINAL;
    initializer->init(flags, MTH, c->name, nullptr, c);
    initEnv->scope->owner = initializer;
    return initEnv;
}

} // namespace attribution

Type* Block::attr(Env* outer, int pkind, Type* pt) {
    if (!checkKind(pos, VAL, pkind)) return type = errType;
    flags = entry::checkFlags(pos, flags, flag::STATIC, false);
    if (outer->scope->owner->kind == TYP) {
        bool isStatic = (flags & flag::STATIC) != 0;
        env = attribution::initializerEnv(outer, this, isStatic);
    } else {
        env = outer->dup(this, outer->scope->dup(outer->toplevel->arena));
    }
    type = attrStatements(stats, env, pt);
    env->scope->leave();
    return type;
}

Type* attribution::attrBody(Tree* body, Env* env, Type* pt) {
    if (body->tag == treetag::VARDEF || body->tag == treetag::CLASSDEF) reportError(body->pos, messages::notAStatement);
    return body->attr(env, VAL, pt);
}

// ---- simple statements

Type* Exec::attr(Env* env, int pkind, Type* pt) {
    if (pkind != CTOR && !checkKind(pos, VAL, pkind)) return type = errType;
    Type* result = expr->attr(env, pkind, anythingType);
    preferPrefix(expr);
    return type = result->tag == typetag::ERROR ? errType : pt;
}

Type* Throw::attr(Env* outer, int pkind, Type* pt) {
    if (!checkKind(pos, VAL, pkind)) return type = errType;
    env = outer;
    TypeList thrown{expr->attr(env, VAL, context().throwableType), nullptr};
    if (Type* excess = attribution::unhandled(&thrown, env->handled))
        reportError(pos, messages::unreportedException, excess);
    return type = pt;
}

Type* Labelled::attr(Env* env, int pkind, Type* pt) {
    if (!checkKind(pos, VAL, pkind)) return type = errType;
    for (const Env* around = env; around != nullptr; around = around->next) {
        int tag = around->tree->tag;
        if (tag == treetag::METHODDEF || tag == treetag::CLASSDEF) break;
        if (tag != treetag::LABELLED || static_cast<const Labelled*>(around->tree)->label != label) continue;
        reportError(pos, messages::duplicateLabel, label);
        break;
    }
    return type = attribution::attrBody(body, env->dup(this), pt);
}

// ---- loops

Type* WhileLoop::attr(Env* env, int pkind, Type* pt) {
    if (!checkKind(pos, VAL, pkind)) return type = errType;
    cond->attr(env, VAL, context().booleanType);
    return type = attribution::attrBody(body, env->dup(this), pt);
}

Type* DoLoop::attr(Env* env, int pkind, Type* pt) {
    if (!checkKind(pos, VAL, pkind)) return type = errType;
    type = attribution::attrBody(body, env->dup(this), pt);
    cond->attr(env, VAL, context().booleanType);
    return type;
}

Type* ForLoop::attr(Env* outer, int pkind, Type* pt) {
    if (!checkKind(pos, VAL, pkind)) return type = errType;
    env = outer->dup(outer->tree, outer->scope->dup(outer->toplevel->arena));
    for (Tree* statement : init) statement->attr(env, VAL, anythingType);
    if (cond != nullptr) cond->attr(env, VAL, context().booleanType);
    env->tree = this;
    for (Tree* update : step) {
        update->attr(env, VAL, anythingType);
        preferPrefix(update);
    }
    type = attribution::attrBody(body, env, pt);
    env->scope->leave();
    return type;
}

// ---- switch

namespace {

/// Checks the label of a case, and keeps its value; `seen` are the values of those before.
void checkCaseLabel(Case* tree, std::unordered_set<int>& seen) {
    Type* label = tree->pat->type;
    if (label->tag == typetag::ERROR) return;
    if (!label->isConstant()) {
        reportError(tree->pat->pos, messages::constantExpressionRequired);
        return;
    }
    tree->value = label->constValue()->intValue();
    if (!seen.insert(tree->value).second) reportError(tree->pat->pos, messages::duplicateCaseLabel);
}

} // namespace

Type* Switch::attr(Env* outer, int pkind, Type* pt) {
    if (!checkKind(pos, VAL, pkind)) return type = errType;
    selector->attr(outer, VAL, context().intType);
    env = outer->dup(this, outer->scope->dup(outer->toplevel->arena));
    std::unordered_set<int> seen;
    bool hasDefault = false;
    type = pt;
    for (Tree* each : cases) {
        type = conditionalType(each->pos, type, each->attr(env, VAL, pt));
        if (each->tag != treetag::CASE) continue;
        auto* tree = static_cast<Case*>(each);
        if (tree->pat != nullptr) {
            checkCaseLabel(tree, seen);
        } else {
            if (hasDefault) reportError(tree->pos, messages::duplicateDefaultLabel);
            hasDefault = true;
        }
    }
    env->scope->leave();
    return type;
}

Type* Case::attr(Env* env, int, Type* pt) {
    if (pat != nullptr) pat->attr(env, VAL, context().intType);
    return type = attrStatements(stats, env, pt);
}

// ---- jumps

namespace {

bool isLoop(const Tree* tree) {
    return tree->tag == treetag::FORLOOP || tree->tag == treetag::WHILELOOP || tree->tag == treetag::DOLOOP;
}

/// Walks outward to the first tree that `isTarget`, within the method or initializer, and puts each `try` and
/// `synchronized` on the way in front of the jump's finalizers. Null if there is no such tree.
template <class Predicate>
Tree* findTarget(Jump* jump, Env* env, Predicate isTarget) {
    jump->finalizers = nullptr;
    for (; env != nullptr; env = env->next) {
        Tree* tree = env->tree;
        if (isTarget(tree)) return tree;
        if (tree->tag == treetag::METHODDEF || tree->tag == treetag::CLASSDEF) return nullptr;
        if (tree->tag == treetag::TRY || tree->tag == treetag::SYNCHRONIZED)
            jump->finalizers = env->toplevel->arena.make<TryList>(static_cast<Try*>(tree), jump->finalizers);
    }
    return nullptr;
}

/// The target of a `break` or `continue` with a label; null after the report that there is none.
Tree* findLabel(Jump* jump, Env* env, const Name* label) {
    Tree* target = findTarget(jump, env, [label](const Tree* tree) {
        return tree->tag == treetag::LABELLED && static_cast<const Labelled*>(tree)->label == label;
    });
    if (target == nullptr) reportError(jump->pos, messages::undefinedLabel, label);
    return target;
}

/// The loop that the label stands at, further labels between them left aside; null if it is at none.
Tree* labelledLoop(Tree* target) {
    while (target->tag == treetag::LABELLED) target = static_cast<Labelled*>(target)->body;
    return isLoop(target) ? target : nullptr;
}

} // namespace

Type* Break::attr(Env* env, int pkind, Type* pt) {
    if (!checkKind(pos, VAL, pkind)) return type = errType;
    if (label != nullptr) {
        target = findLabel(this, env, label);
    } else {
        target = findTarget(this, env, [](const Tree* tree) { return isLoop(tree) || tree->tag == treetag::SWITCH; });
        if (target == nullptr) reportError(pos, messages::breakOutsideOfLoopOrSwitch);
    }
    return type = target == nullptr ? errType : pt;
}

Type* Continue::attr(Env* env, int pkind, Type* pt) {
    if (!checkKind(pos, VAL, pkind)) return type = errType;
    if (label != nullptr) {
        target = findLabel(this, env, label);
        if (target != nullptr) {
            target = labelledLoop(target);
            if (target == nullptr) reportError(pos, messages::notALoopLabel, label);
        }
    } else {
        target = findTarget(this, env, isLoop);
        if (target == nullptr) reportError(pos, messages::continueOutsideOfLoop);
    }
    return type = target == nullptr ? errType : pt;
}

Type* Return::attr(Env* env, int pkind, Type* pt) {
    if (!checkKind(pos, VAL, pkind)) return type = errType;
    Tree* target = findTarget(this, env, [](const Tree* tree) { return tree->tag == treetag::METHODDEF; });
    if (target == nullptr) {
        reportError(pos, messages::staticInitializerReturns);
        return type = errType;
    }
    method = static_cast<MethodDef*>(target);
    if (pt->tag == typetag::VOID) {
        if (expr == nullptr) return type = pt;
        reportError(expr->pos, messages::valueReturnedFromVoid);
        return type = errType;
    }
    if (expr == nullptr) {
        reportError(pos, messages::missingReturnValue);
        return type = errType;
    }
    return type = expr->attr(env, VAL, pt);
}

// ---- try and synchronized

namespace {

/// Adds what the clauses catch to what is handled in the body; warns of a clause whose exceptions an earlier one takes.
void addCaught(Trees catchers, Env* tryEnv) {
    TypeList* caught = nullptr;
    for (Tree* tree : catchers) {
        if (tree->tag != treetag::CATCH) continue;
        Type* type = static_cast<MethodDef*>(tree)->sym->type->argTypes()->front();
        if (type->tag == typetag::ERROR) { // may have been meant to catch anything
            tryEnv->handled = context().typeList(type, tryEnv->handled);
        } else if (TypeList::contains(caught, type)) {
            reportWarning(tree->pos, messages::catchUnreachable);
        } else {
            caught = TypeList::incl(caught, type);
            tryEnv->handled = TypeList::incl(tryEnv->handled, type);
        }
    }
}

} // namespace

/// The clauses and the finalizer come before the body, which needs to know what is caught, while they themselves are
/// attributed with what is handled around the statement.
Type* Try::attrTry(Env* env, Type* pt) {
    Env* tryEnv = env->dup(this);
    type = attrStatements(catchers, tryEnv, pt);
    if (finalizer != nullptr) type = conditionalType(finalizer->pos, type, finalizer->attr(env, VAL, pt));
    addCaught(catchers, tryEnv);
    return type = conditionalType(body->pos, type, attribution::attrBody(body, tryEnv, pt));
}

Type* Try::attr(Env* env, int pkind, Type* pt) {
    if (!checkKind(pos, VAL, pkind)) return type = errType;
    return attrTry(env, pt);
}

Type* Synchronized::attr(Env* env, int pkind, Type* pt) {
    if (!checkKind(pos, VAL, pkind)) return type = errType;
    attribution::checkRefType(lock->pos, lock->attr(env, VAL, anythingType));
    return attrTry(env, pt);
}

} // namespace tarn
