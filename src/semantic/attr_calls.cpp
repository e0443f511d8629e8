#include "driver/reporter.h"
#include "semantic/attribution.h"
#include "semantic/context.h"
#include "semantic/resolve.h"
#include "semantic/scope.h"
#include "syntax/tree_declarations.h"
#include "syntax/tree_expressions.h"
#include "syntax/tree_statements.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

// Attribution of calls and creations.

namespace tarn {

using namespace attribution;
using namespace typetag;

namespace {

/// The types of a call's arguments, behind `first` unless it is null: in place for calls of usual length.
class ArgumentTypes {
public:
    ArgumentTypes(Trees args, Env* env, Type* first = nullptr) : count_(args.size() + (first != nullptr ? 1 : 0)) {
        if (count_ > few_.size()) many_.resize(count_);
        Type** next = data();
        if (first != nullptr) *next++ = first;
        for (Tree* arg : args) *next++ = arg->attr(env, VAL, anythingType);
    }
    [[nodiscard]] Types types() const { return {count_ > few_.size() ? many_.data() : few_.data(), count_}; }

private:
    Type** data() { return count_ > few_.size() ? many_.data() : few_.data(); }

    std::size_t count_;
    std::array<Type*, 8> few_;
    std::vector<Type*> many_;
};

} // namespace

Type* Apply::attr(Env* env, int pkind, Type* pt) {
    bool isConstructorCall = pkind == CTOR;
    Env* argEnv = env;
    if (isConstructorCall) {
        argEnv = env->dup(this);
        argEnv->isSelfCall = true;
    }
    ArgumentTypes arguments(args, argEnv);
    // What the callee is held to; it lives as long as its attribution, and so is not interned.
    MethodType prototype;
    prototype.init(METHOD, context().functionBase->tsym, 0);
    prototype.args = arguments.types();
    prototype.result = anythingType;
    prototype.thrownTypes = context().throwableList;
    Type* callee = errType;
    if (isConstructorCall) {
        callee = meth->attr(env, CTOR, &prototype);
    } else {
        if (!checkKind(pos, VAL, pkind)) return type = errType;
        callee = meth->attr(env, MTH, &prototype);
        checkThrown(pos, callee, env->handled);
    }
    if (callee->tag != METHOD) return type = errType;
    return type = checkAssignable(pos, callee->resType(), pt);
}

// ---- creations

namespace {

/// Resolves the constructor that the creation of a `c` calls.
void instantiate(NewClass* tree, Env* env, Type* outer, Types args, ClassSymbol* c) {
    if (c->isAbstract() || c->isInterface()) {
        reportError(tree->pos, messages::abstractInstantiated, c);
        return;
    }
    if (outer != nullptr) tree->encl = nonNull(env, tree->encl);
    args = outerArguments(tree->pos, env, tree->encl, outer, args, c);
    tree->constructor = resolve::resolveConstructor(tree->clazz->pos, c, env, args);
    if (tree->constructor->type != nullptr) checkThrown(tree->pos, tree->constructor->type, env->handled);
}

/// The constructor that a creation with a body and these arguments, the enclosing instance among them, will call
/// through the body's own; null if unknown.
MethodSymbol* superConstructor(Env* env, ClassSymbol* c, Types args) {
    bool before = env->isSelectSuper;
    env->isSelectSuper = true;
    Symbol* found = c->isInterface() ? nullptr : resolve::findMethod(env, c, names().init, args);
    env->isSelectSuper = before;
    return found != nullptr && found->kind == MTH ? static_cast<MethodSymbol*>(found) : nullptr;
}

/// Gives the body of an anonymous class a constructor that passes its parameters on. With a qualifier the first of them
/// is the outer instance.
void addPassingConstructor(NewClass* tree, Env* env, ClassSymbol* c, Types args) {
    Arena& arena = env->toplevel->arena;
    ClassDef* def = tree->def;
    int pos = def->pos;
    // The body's constructor finds an enclosing instance that is not given by itself.
    bool isOuterImplied = tree->encl == nullptr && c->hasOuterInstance();
    Types allArgs = isOuterImplied ? withOuter(arena, c->owner->enclClass()->type, args) : args;
    MethodSymbol* target = superConstructor(env, c, allArgs);
    Types targetArgs = target == nullptr ? Types{} : *target->type->argTypes();
    if (isOuterImplied && target != nullptr) targetArgs = targetArgs.subspan(1);
    Trees params = arena.makeArray<Tree*>(args.size());
    Trees passed = arena.makeArray<Tree*>(args.size());
    for (std::size_t i = 0; i < args.size(); ++i) {
        Type* type = target != nullptr ? targetArgs[i] : declarableType(args[i]);
        Name* name = Name::fromBytes("x" + std::to_string(i));
        params[i] = arena.make<VarDef>(pos, name, 0U, arena.make<KnownType>(pos, type), nullptr);
        passed[i] = arena.make<Ident>(pos, name);
    }
    Tree* encl = nullptr;
    if (tree->encl != nullptr && !passed.empty()) {
        encl = passed.front();
        passed = passed.subspan(1);
    }
    auto* call = arena.make<Apply>(pos, arena.make<Self>(pos, treetag::SUPER, encl), passed);
    Trees stats = arena.makeArray<Tree*>(1);
    stats.front() = arena.make<Exec>(pos, call);
    Trees thrown = target == nullptr ? Trees{} : knownTypes(arena, pos, target->type->thrown());
    Tree* const made[] = {arena.make<MethodDef>(arena, pos, treetag::METHODDEF, names().init, 0U, nullptr, params,
                                                thrown, arena.make<Block>(pos, stats))};
    def->prepend(arena, made);
}

/// Makes the qualifier of a creation with a class body its first argument.
void passQualifier(NewClass* tree, Env* env) {
    Trees longer = env->toplevel->arena.makeArray<Tree*>(tree->args.size() + 1);
    longer.front() = nonNull(env, tree->encl);
    std::copy(tree->args.begin(), tree->args.end(), longer.begin() + 1);
    tree->args = longer;
    tree->encl = nullptr;
}

/// A creation with a class body: the body extends or implements the class, and the object is one of the body.
Type* attrWithBody(NewClass* tree, Env* env, ClassSymbol* c, Types args) {
    ClassDef* def = tree->def;
    Arena& arena = env->toplevel->arena;
    auto* base = arena.make<KnownType>(tree->clazz->pos, c->type); // the clause is not attributed a second time
    if (c->isInterface()) {
        def->implementing = arena.makeArray<Tree*>(1);
        def->implementing.front() = base;
        if (tree->encl != nullptr)
            reportError(tree->pos, messages::qualifierNotInnerClass, c);
        else if (!args.empty())
            reportError(tree->pos, messages::anonymousInterfaceWithArguments);
        tree->encl = nullptr;
        tree->args = {};
        args = {};
    } else {
        def->extending = base;
    }
    def->name = env->toplevel->anonymousName(*def);
    addPassingConstructor(tree, env, c, args);
    if (tree->encl != nullptr) passQualifier(tree, env);
    def->attr(env, VAL, anythingType);
    if (def->sym == nullptr || def->sym->kind != TYP) return errType;
    instantiate(tree, env, nullptr, args, def->classSymbol());
    return def->sym->type;
}

/// Names the inner class in the class of the instance that is given for it.
Type* attrQualifier(NewClass* tree, Env* env) {
    if (tree->encl == nullptr) return nullptr;
    Type* outer = tree->encl->attr(env, VAL, anythingType);
    if (outer->tag != CLASS || tree->clazz->tag != treetag::IDENT) return outer;
    Arena& arena = env->toplevel->arena;
    auto* name = arena.make<KnownType>(tree->pos, outer);
    tree->clazz = arena.make<Select>(tree->clazz->pos, static_cast<Ident*>(tree->clazz)->name, name);
    return outer;
}

} // namespace

Type* NewClass::attr(Env* env, int pkind, Type* pt) {
    if (!checkKind(pos, VAL, pkind)) return type = errType;
    if (encl != nullptr || def != nullptr) env->toplevel->hasInnerClasses = true;
    Type* outer = attrQualifier(this, env);
    Type* made = clazz->attr(env, TYP, anythingType);
    // The instance that encloses what a body extends is an argument of the body's constructor.
    ArgumentTypes arguments(args, env, def != nullptr ? outer : nullptr);
    if (made->tag == CLASS) {
        if (def != nullptr)
            made = attrWithBody(this, env, made->tsym, arguments.types());
        else
            instantiate(this, env, outer, arguments.types(), made->tsym);
    } else if (made->tag != ERROR) {
        reportError(pos, messages::kindRequired, kindNames(TYP), made);
        made = errType;
    }
    return type = checkAssignable(pos, made, pt);
}

} // namespace tarn
