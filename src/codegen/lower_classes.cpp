#include "codegen/lowering.h"

#include "driver/reporter.h"
#include "runtime/failure.h"
#include "semantic/context.h"
#include "semantic/scope.h"
#include "syntax/tree_declarations.h"
#include "syntax/tree_statements.h"

#include <algorithm>
#include <array>

// The virtual machine knows no nested classes. Lowering takes each class out of the one around it:
//
// - An inner class gets the enclosing instance as a constructor parameter, and keeps it in its field `this0`. What it
//   names of the classes around it is reached through that field, and through those of the classes further out.
// - A local class gets a copy of each variable of a method around it that it uses: as a constructor parameter and a
//   field `val$x`. A class nested in it has no copy of its own but goes through `this0`.
// - A private member that another class of the nest uses gets access methods `access$...` in its own class.
//
// Which variables a local class captures is complete only when the whole unit has been walked, for a class that creates
// another needs the other's variables as well. So the walk makes references to hidden fields and parameters as it meets
// their uses, and the definitions of those, and what creations pass for them, come last.

namespace tarn {

void Lowering::lower(CompilationUnit* unit) {
    reset(unit);
    std::vector<Tree*> defs;
    for (Tree* def : unit->defs)
        if (Tree* translated = translateTop(def)) defs.push_back(translated);
    defs.insert(defs.end(), movedClasses_.begin(), movedClasses_.end());
    unit->defs = unit->arena.copyArray<Tree*>(defs);
    collectValues();
    enterMemberClasses();
    findEarlyStores();
    for (Tree* def : defs)
        if (def->tag == treetag::CLASSDEF) finishClass(static_cast<ClassDef*>(def));
    passValues();
}

void Lowering::reset(CompilationUnit* unit) {
    make_.setUnit(unit);
    movedClasses_.clear();
    classes_.clear();
    parameters_.clear();
    pendingCalls_.clear();
    accessed_.clear();
    accessConstructors_.clear();
}

Tree* Lowering::translateTop(Tree* tree) {
    make_.setPos(tree->pos);
    switch (tree->tag) {
    case treetag::CLASSDEF: translateClass(static_cast<ClassDef*>(tree), nullptr); return tree;
    case treetag::PACKAGEDECL:
    case treetag::IMPORT: return tree;
    default: throw InternalError("transClass " + std::to_string(tree->tag));
    }
}

// ---- the walk

void Lowering::translateClass(ClassDef* tree, Place* outer) {
    ClassSymbol* c = tree->classSymbol();
    ClassSymbol* previous = make_.setCurrentClass(c);
    if (context().options.verbose) printlnProgress("[flattening class " + c->name->toString() + "]");
    auto* place = make_.arena().make<Place>(Place{.outer = outer, .tree = tree, .c = c});
    classes_[c].place = place;
    tree->body->stats = translateStats(tree->body->stats, place);
    if (outer != nullptr) {
        classes_[c].number = movedClasses_.size();
        movedClasses_.push_back(tree);
    }
    make_.setCurrentClass(previous);
}

void Lowering::translateMethod(MethodDef* tree, Place* place) {
    if (tree->name == names().init) {
        place = make_.arena().make<Place>(*place);
        place->constructor = tree;
        classes_[place->c].constructors.push_back(tree);
    }
    if (tree->body != nullptr) tree->body->stats = translateStats(tree->body->stats, place);
}

// ---- what a class gains

void Lowering::finishClass(ClassDef* tree) {
    ClassSymbol* c = tree->classSymbol();
    ClassInfo& info = classes_[c];
    make_.setCurrentClass(c);
    make_.setPos(tree->pos);
    bool isTop = c->owner->kind == PCK;
    for (MethodDef* constructor : info.constructors) {
        if (isTop) break;
        constructor->flags &= ~static_cast<std::uint32_t>(flag::PRIVATE);
        constructor->sym->flags &= ~static_cast<std::uint32_t>(flag::PRIVATE);
        finishConstructor(constructor, info);
    }
    addHiddenFields(tree, info);
    addAccessMethods(tree);
    orderMembers(tree);
}

void Lowering::addHiddenFields(ClassDef* tree, ClassInfo& info) {
    ClassSymbol* c = tree->classSymbol();
    make_.setPos(tree->pos);
    std::vector<Tree*> fields;
    for (const Captured& each : info.captured) fields.push_back(make_.varDef(each.field));
    if (c->hasOuterInstance()) fields.push_back(make_.varDef(outerField(c)));
    for (Tree* field : fields) enterMember(c, static_cast<VarDef*>(field)->sym);
    tree->body->stats = make_.concat(fields, tree->body->stats);
}

namespace {

bool overridesInherited(const ClassSymbol* c) {
    for (const Symbol* entry = c->members->elems; entry != nullptr; entry = entry->sibling)
        if (entry->sym->kind == MTH && static_cast<MethodSymbol*>(entry->sym)->overridden() != nullptr) return true;
    return false;
}

} // namespace

/// The constructor of a superclass may call a method that the class overrides, which then finds the captured variables
/// and the enclosing instances: those of the class, and of the classes between, whose methods it may call.
void Lowering::findEarlyStores() {
    for (const auto& each : classes_) {
        if (!overridesInherited(each.first)) continue;
        for (ClassSymbol* c = each.first; c->superclass != nullptr && !c->superclass->isRootClass();
             c = c->superclass) {
            auto found = classes_.find(c);
            if (found != classes_.end()) found->second.storesFirst = true;
        }
    }
}

/// Adds the hidden parameters to a constructor, and the assignments that keep them behind the call of the other
/// constructor, or in front of it.
void Lowering::finishConstructor(MethodDef* tree, ClassInfo& info) {
    ClassSymbol* c = info.place->c;
    make_.setPos(tree->pos);
    std::vector<Tree*> params;
    std::vector<Tree*> assignments;
    auto keep = [&](VarSymbol* field, VarSymbol* parameter) {
        params.push_back(make_.varDef(parameter));
        assignments.push_back(make_.exec(make_.assign(make_.select(make_.thisTree(), field), make_.ident(parameter))));
    };
    std::vector<Type*> types;
    for (const Captured& each : info.captured) {
        keep(each.field, capturedParameter(tree, each.variable));
        types.push_back(each.field->type);
    }
    if (c->hasOuterInstance()) keep(outerField(c), outerParameter(tree));
    for (Tree* own : tree->params)
        for (Tree* made : params)
            if (static_cast<VarDef*>(own)->name == static_cast<VarDef*>(made)->name)
                reportError(own->pos, messages::duplicateDefinition, static_cast<VarDef*>(own)->sym,
                            static_cast<VarDef*>(own)->sym->location());
    tree->params = make_.concat(params, tree->params);
    // The type has the enclosing instance already.
    MethodType* old = tree->method()->methodType();
    types.insert(types.end(), old->args.begin(), old->args.end());
    tree->sym->type = context().methodType(types, old->result, old->thrownTypes);
    Trees stats = tree->body->stats;
    bool callsSuper = tree->selfCall != nullptr && tree->selfCall->owner != c;
    std::size_t at = info.storesFirst && callsSuper ? 0 : 1;
    tree->body->stats = make_.concat(make_.concat(stats.first(at), assignments), stats.subspan(at));
}

// ---- members

namespace {

bool clash(const Symbol* a, const Symbol* b) {
    if (a->kind != b->kind || a == b) return false;
    return a->kind != MTH || sameTypes(*a->type->argTypes(), *b->type->argTypes());
}

} // namespace

/// Makes a member of what lowering made; a member of the source that has its name is in the way.
void Lowering::enterMember(ClassSymbol* c, Symbol* made) {
    for (Symbol* entry = c->members->lookup(made->name); entry->scope == c->members; entry = entry->nextEntry())
        if (clash(entry->sym, made))
            reportError(entry->sym->pos, messages::duplicateDefinition, entry->sym, entry->sym->location());
    c->members->enter(made);
}

/// The local and anonymous classes count as members of the class around them when it comes to listing them in its class
/// file. They get a name there that no source can mean.
void Lowering::enterMemberClasses() {
    for (Tree* tree : movedClasses_) {
        ClassSymbol* c = static_cast<ClassDef*>(tree)->classSymbol();
        ClassSymbol* outer = c->owner->enclClass();
        if (c->owner->kind == MTH) outer->members->enter(c->alias(c->flatName));
    }
}

/// Brings the members into the order of the class file: the member classes, and then the definitions as they stand.
void Lowering::orderMembers(ClassDef* tree) {
    ClassSymbol* c = tree->classSymbol();
    std::vector<Symbol*> ordered;
    for (Symbol* entry = c->members->elems; entry != nullptr; entry = entry->sibling)
        if (entry->sym->kind == TYP) ordered.push_back(entry);
    std::sort(ordered.begin(), ordered.end(), [this](const Symbol* a, const Symbol* b) {
        return classes_[static_cast<ClassSymbol*>(a->sym)].number < classes_[static_cast<ClassSymbol*>(b->sym)].number;
    });
    for (Tree* def : tree->body->stats) {
        if (def->tag != treetag::VARDEF && def->tag != treetag::METHODDEF) continue;
        Symbol* sym = static_cast<Def*>(def)->sym;
        if (sym->scope == c->members) ordered.push_back(sym);
    }
    c->members->setOrder(ordered);
}

} // namespace tarn
