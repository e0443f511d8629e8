#include "codegen/lowering.h"

#include "semantic/context.h"
#include "syntax/tree_expressions.h"

#include <algorithm>

// Calls of constructors. What is passed is, in this order: the captured variables, the enclosing instance, and the
// arguments of the source.

namespace tarn {

namespace {

ClassSymbol* classOf(const Symbol* constructor) {
    return static_cast<ClassSymbol*>(constructor->owner);
}

/// Whether the place may not call the constructor directly. Those of inner classes lose their `private`.
bool isOutOfReach(const Place* place, const Symbol* constructor) {
    return constructor->isPrivate() && constructor->owner != place->c && constructor->owner->owner->kind == PCK;
}

} // namespace

Tree* Lowering::translateApply(Apply* tree, Place* place) {
    if (tree->meth->tag == treetag::THIS || tree->meth->tag == treetag::SUPER)
        return translateSelfCall(tree, static_cast<Self*>(tree->meth), place);
    tree->meth = translateExpr(tree->meth, place);
    translateExprs(tree->args, place);
    return tree;
}

/// `this(...)`, `super(...)`, or `outer.super(...)`, in which there is no object yet.
Tree* Lowering::translateSelfCall(Apply* tree, Self* callee, Place* place) {
    place = make_.arena().make<Place>(*place);
    place->inSelfCall = true;
    if (callee->encl != nullptr) {
        Tree* const outer[] = {callee->encl};
        tree->args = make_.concat(outer, tree->args);
        callee->encl = nullptr;
    }
    translateExprs(tree->args, place);
    ClassSymbol* c = classOf(callee->sym);
    make_.setPos(tree->pos);
    if (isOutOfReach(place, callee->sym)) {
        callee->sym = accessConstructor(static_cast<MethodSymbol*>(callee->sym));
        callee->type = callee->sym->type;
        tree->args = accessArguments(tree->args, callee->sym);
    }
    if (c->owner->kind == MTH) pendingCalls_.push_back({tree, c, place, {}});
    return tree;
}

Tree* Lowering::translateNewClass(NewClass* tree, Place* place) {
    if (tree->encl != nullptr) {
        Tree* const outer[] = {tree->encl};
        tree->args = make_.concat(outer, tree->args);
        tree->encl = nullptr;
    }
    translateExprs(tree->args, place);
    if (tree->def != nullptr) translateClass(tree->def, place);
    tree->def = nullptr;
    ClassSymbol* c = classOf(tree->constructor);
    make_.setPos(tree->pos);
    if (isOutOfReach(place, tree->constructor)) {
        tree->constructor = accessConstructor(static_cast<MethodSymbol*>(tree->constructor));
        tree->args = accessArguments(tree->args, tree->constructor);
    }
    if (c->owner->kind == MTH) pendingCalls_.push_back({tree, c, place, {}});
    return tree;
}

/// Finds out what each call of a constructor of a local class has to pass. To have a value at hand a class may have to
/// capture it too, and then its own creations pass one more.
void Lowering::collectValues() {
    bool changed = true;
    while (changed) {
        changed = false;
        for (PendingCall& call : pendingCalls_) {
            make_.setCurrentClass(call.place->c);
            make_.setPos(call.call->pos);
            for (std::size_t i = call.values.size(); i < classes_[call.callee].captured.size(); ++i) {
                VarSymbol* v = classes_[call.callee].captured[i].variable;
                call.values.push_back(v->type->isConstant() ? make_.ident(v) : captured(call.place, v));
                changed = true;
            }
        }
    }
}

void Lowering::passValues() {
    for (PendingCall& call : pendingCalls_) {
        if (call.call->tag == treetag::NEWCLASS) {
            auto* creation = static_cast<NewClass*>(call.call);
            creation->args = make_.concat(call.values, creation->args);
        } else {
            auto* apply = static_cast<Apply*>(call.call);
            auto* callee = static_cast<Self*>(apply->meth);
            apply->args = make_.concat(call.values, apply->args);
            callee->type = callee->sym->type;
        }
    }
}

} // namespace tarn
