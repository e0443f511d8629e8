#include "codegen/lowering.h"

#include "codegen/hidden_fields.h"
#include "driver/reporter.h"
#include "runtime/failure.h"
#include "semantic/context.h"
#include "syntax/tree_declarations.h"
#include "syntax/tree_expressions.h"

#include <algorithm>
#include <array>

// Names: members of the classes around a class, captured variables, and the enclosing instances themselves.
//
// A class without an enclosing instance stands in a static context, and then needs none. The exception is a class among
// the arguments of this(...) or super(...): the object of the class around it is not there yet, but those further out
// are, as the constructor's parameters. Such a parameter is captured like any variable.

namespace tarn {

namespace {

bool isInherited(const ClassSymbol* c, const Symbol* member) {
    return member->isPrivate() ? c == member->owner : c->isSubClass(member->owner);
}

/// The class around the place by whose members the simple name of the member was found; null if there is none.
Place* siteOf(Place* place, const Symbol* member) {
    for (Place* p = place; p != nullptr; p = p->outer)
        if (isInherited(p->c, member)) return p;
    for (Place* p = place; p != nullptr; p = p->outer)
        if (p->c->isSubClass(member->owner)) return p;
    return nullptr;
}

/// The class whose access methods reach the member from the place, or null if it can be reached as it is. `site` is the
/// class of the object (for a static member, any), or null for an array.
///
/// A protected member of another package is open only to the classes that inherit it, and there on objects of their
/// own. Others have to ask the class around them by whose rights they may use it.
ClassSymbol* accessHost(Place* place, const Symbol* member, const ClassSymbol* site) {
    auto* owner = static_cast<ClassSymbol*>(member->owner);
    if (member->isPrivate()) return owner == place->c ? nullptr : owner;
    if ((member->flags & flag::PROTECTED) == 0 || site == nullptr || place->c->package() == owner->package())
        return nullptr;
    for (Place* p = place; p != nullptr; p = p->outer) {
        if (!p->c->isSubClass(owner) || (!member->isStatic() && !site->isSubClass(p->c))) continue;
        return p == place || p->c == place->c ? nullptr : p->c;
    }
    return nullptr;
}

bool isMember(const Symbol* sym) {
    return sym != nullptr && (sym->kind == VAR || sym->kind == MTH) && sym->owner != nullptr &&
           sym->owner->kind == TYP && sym->owner != context().predefClass;
}

bool isLocalVariable(const Symbol* sym) {
    return sym != nullptr && sym->kind == VAR && sym->owner != nullptr && sym->owner->kind == MTH;
}

} // namespace

// ---- names

/// A variable that is assigned: by the operation with that tag, of a value of type `operand`, or null if it takes none.
Tree* Lowering::translateVariable(Tree* tree, Place* place, int op, Type* operand) {
    if (tree->tag == treetag::IDENT) return translateIdent(static_cast<Ident*>(tree), place, op, operand);
    if (tree->tag == treetag::SELECT) return translateSelect(static_cast<Select*>(tree), place, op, operand);
    return translateExpr(tree, place);
}

Tree* Lowering::translateIdent(Ident* tree, Place* place, int op, Type* operand) {
    Symbol* sym = tree->sym;
    make_.setPos(tree->pos);
    if (isLocalVariable(sym)) {
        if (sym->owner->enclClass() == place->c) return tree;
        Tree* value = captured(place, static_cast<VarSymbol*>(sym));
        return sym->type->isConstant() ? tree : value; // a constant stays one, though it is captured
    }
    if (!isMember(sym) || sym->type->isConstant()) return tree;
    Place* site = siteOf(place, sym);
    if (site == nullptr) return tree;
    ClassSymbol* host = accessHost(place, sym, site->c);
    if (host == nullptr && site->c == place->c) return tree;
    ClassSymbol* named = host != nullptr ? host : site->c;
    Tree* qualifier = sym->isStatic() ? make_.typeTree(named->type) : outerThis(place, site->c);
    return host == nullptr ? make_.select(qualifier, sym) : access(qualifier, sym, host, op, operand);
}

Tree* Lowering::translateSelect(Select* tree, Place* place, int op, Type* operand) {
    Symbol* sym = tree->sym;
    if (tree->name == names().class_ || !(isMember(sym) || sym == context().lengthVar)) return tree;
    if (tree->selected->tag != treetag::SUPER) tree->selected = translateExpr(tree->selected, place);
    // The operand of an operator that was folded has no type any more.
    if (!isMember(sym) || tree->type == nullptr || tree->type->isConstant()) return tree;
    make_.setPos(tree->pos);
    Type* type = tree->selected->type;
    ClassSymbol* site = type->tag == typetag::CLASS ? type->tsym : nullptr;
    bool isSuper = tree->selected->tag == treetag::SUPER;
    ClassSymbol* host = isSuper && !sym->isPrivate() ? nullptr : accessHost(place, sym, site);
    return host == nullptr ? tree : access(tree->selected, sym, host, op, operand);
}

Tree* Lowering::translateSelf(Self* tree, Place* place) {
    if (tree->encl == nullptr) return tree;
    make_.setPos(tree->pos);
    return outerThis(place, tree->type->tsym);
}

// ---- enclosing instances

VarSymbol* Lowering::outerField(ClassSymbol* c) {
    VarSymbol*& field = classes_[c].outerField;
    if (field == nullptr)
        field = TreeMaker::variable(flag::SYNTHETIC | flag::FINAL, hidden::outerInstance(), c->owner->enclClass()->type,
                                    c, c->pos);
    return field;
}

VarSymbol* Lowering::outerParameter(MethodDef* constructor) {
    VarSymbol*& parameter = parameters_[constructor].outer;
    Symbol* method = constructor->sym;
    if (parameter == nullptr)
        parameter = TreeMaker::variable(flag::FINAL | flag::PARAMETER, hidden::outerInstance(),
                                        method->owner->owner->enclClass()->type, method, constructor->pos);
    return parameter;
}

/// The instance that directly encloses that of the place. In a constructor it is the parameter, which is there first.
Tree* Lowering::ownOuterThis(Place* place) {
    return make_.ident(place->constructor != nullptr ? outerParameter(place->constructor) : outerField(place->c));
}

Tree* Lowering::outerThis(Place* place, const ClassSymbol* k) {
    if (place->c == k) return make_.thisTree();
    Place* unattached = nullptr; // the outermost class on the way that has no enclosing instance
    for (Place* p = place; p->c != k; p = p->outer) {
        require(p->outer != nullptr, "no enclosing instance");
        if (!p->c->hasOuterInstance()) unattached = p;
    }
    Tree* tree = nullptr;
    Place* at = nullptr;
    if (unattached == nullptr) {
        tree = ownOuterThis(place);
        at = place->outer;
    } else {
        Place* made = unattached->outer;
        require(made->inSelfCall && made->c != k && made->c->hasOuterInstance(), "no enclosing instance");
        tree = captured(place, outerParameter(made->constructor));
        at = made->outer;
    }
    for (; at->c != k; at = at->outer) tree = make_.select(tree, outerField(at->c));
    return tree;
}

// ---- captured variables

namespace {

/// The class that holds the copy of a variable of `home` for the place: the outermost one that can be reached.
Place* holderOf(Place* place, const ClassSymbol* home) {
    while (place->c->hasOuterInstance() && place->outer->c != home) place = place->outer;
    return place;
}

} // namespace

Tree* Lowering::captured(Place* place, VarSymbol* v) {
    const ClassSymbol* home = v->owner->enclClass();
    if (place->c == home) return make_.ident(v);
    Place* holder = holderOf(place, home);
    VarSymbol* field = capture(holder->c, v);
    if (holder->c != place->c) return make_.select(outerThis(place, holder->c), field);
    if (place->inSelfCall) return make_.ident(capturedParameter(place->constructor, v));
    return make_.select(make_.thisTree(), field);
}

VarSymbol* Lowering::capture(ClassSymbol* holder, VarSymbol* v) {
    std::vector<Captured>& all = classes_[holder].captured;
    for (const Captured& each : all)
        if (each.variable == v) return each.field;
    if (!v->isFinal()) reportError(make_.pos, messages::notFinalInInnerClass, v);
    // Variables of one name from different methods can meet in one class.
    Name* name = hidden::copyOf(v->name);
    auto isTaken = [&] {
        return std::any_of(all.begin(), all.end(), [&](const Captured& each) { return each.field->name == name; });
    };
    while (isTaken()) name = Name::fromString(name->toString() + "$");
    VarSymbol* field =
        TreeMaker::variable(flag::SYNTHETIC | flag::FINAL, name, declarableType(v->type), holder, holder->pos);
    all.push_back({v, field});
    return field;
}

VarSymbol* Lowering::capturedParameter(MethodDef* constructor, VarSymbol* v) {
    auto& known = parameters_[constructor].captured;
    for (const auto& [variable, parameter] : known)
        if (variable == v) return parameter;
    auto* c = static_cast<ClassSymbol*>(constructor->sym->owner);
    const VarSymbol* field = capture(c, v);
    VarSymbol* parameter = TreeMaker::variable(flag::FINAL | flag::PARAMETER, field->name, field->type,
                                               constructor->sym, constructor->pos);
    known.emplace_back(v, parameter);
    return parameter;
}

} // namespace tarn
