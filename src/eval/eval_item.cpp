#include "eval/eval_item.h"

#include "codegen/emitter.h"
#include "codegen/hidden_fields.h"
#include "driver/reporter.h"
#include "semantic/context.h"
#include "semantic/resolve.h"
#include "semantic/scope.h"
#include "syntax/position.h"
#include "syntax/tree_expressions.h"

#include <string>
#include <string_view>
#include <utility>

namespace tarn {

namespace {

// As the items of ordinary code, used by one thread and one method at a time.
constinit Recycled<EvalItem> variables;
constinit Recycled<EvalValueItem> values;
constinit Recycled<EvalObjectItem> objects;

/// Where the program has stopped; null unless its expression is being generated.
constinit Env* place = nullptr;

// ---- calls on handles

Symbol* contextMethod(const std::string& name) {
    const Scope* members = context().evaluatorContextClass->members;
    Name* wanted = Name::fromBytes(name);
    for (Symbol* entry = members->lookup(wanted); entry->scope == members; entry = entry->nextEntry())
        if (entry->sym->kind == MTH) return entry->sym;
    throw InternalError("non-existing eval context field: " + name);
}

/// Calls the method on the handle below its arguments.
void callContext(int pos, const std::string& name) {
    items::stackItem()->member(pos, contextMethod(name), context().evaluatorContextClass)->invoke();
}

std::string_view accessorSuffix(const Type* type) {
    switch (type->tag) {
    case typetag::BYTE: return "Byte";
    case typetag::CHAR: return "Char";
    case typetag::SHORT: return "Short";
    case typetag::INT: return "Int";
    case typetag::LONG: return "Long";
    case typetag::FLOAT: return "Float";
    case typetag::DOUBLE: return "Double";
    case typetag::BOOLEAN: return "Boolean";
    default: return "Object";
    }
}

std::string accessor(std::string_view verb, const Type* type) {
    return std::string(verb) + std::string(accessorSuffix(type)) + "Value";
}

void callGetter(int pos, const Type* type) {
    callContext(pos, accessor("get", type));
}

void callSetter(int pos, const Type* type) {
    callContext(pos, accessor("set", type));
}

void emitText(Name* text) {
    emitter().emitConstant(context().stringConstant(typetag::CLASS, text), false);
}

void loadContext() {
    emitter().emitop(op::ALOAD_1);
}

Item* value(int pos) {
    EvalValueItem* item = values.take();
    item->pos = pos;
    return item;
}

/// The field of the handle on top of the stack.
Item* fieldOfHandle(int pos, Name* name) {
    emitText(name);
    callContext(pos, "getField");
    return value(pos);
}

/// The element, by the object and the index on top of the stack.
void callIndexed(int pos) {
    callContext(pos, "getIndexed");
}

} // namespace

// ---- variables of the frame

void EvalItem::handle() {
    loadContext();
    emitText(name);
    callContext(pos, "getField");
}

void EvalItem::load(const Type* type) {
    handle();
    callGetter(pos, type);
}

void EvalItem::store(const Type* type) {
    handle();
    if (widthOf(type) == 1) {
        emitter().emitop(op::SWAP);
    } else {
        emitter().emitop(op::DUP_X2);
        emitter().emitop(op::POP);
    }
    callSetter(pos, type);
}

void EvalItem::incr(int amount) {
    const Type* type = context().intType;
    load(type);
    emitter().emitInt(amount);
    emitter().emitop(op::IADD);
    store(type);
}

Item* EvalItem::member(int memberPos, Symbol* symbol, ClassSymbol* site) {
    if (symbol->isStatic()) return items::staticItem()->member(memberPos, symbol, site);
    handle();
    return fieldOfHandle(memberPos, symbol->name);
}

Item* EvalItem::indexed() {
    callIndexed(pos);
    return value(pos);
}

// ---- handles on the stack

void EvalValueItem::load(const Type* type) {
    callGetter(pos, type);
}

void EvalValueItem::store(const Type* type) {
    callSetter(pos, type);
}

void EvalValueItem::duplicate(const Type*) {
    emitter().emitop(op::DUP);
}

void EvalValueItem::drop(const Type*) {
    emitter().emitop(op::POP);
}

void EvalValueItem::stash(const Type*, int width) {
    items::stackItem()->stash(context().intType, width);
}

void EvalValueItem::invoke() {
    reportError(pos, messages::remoteCallsNotSupported);
}

Item* EvalValueItem::member(int memberPos, Symbol* symbol, ClassSymbol* site) {
    if (!symbol->isStatic()) return fieldOfHandle(memberPos, symbol->name);
    drop(symbol->owner->type);
    return items::staticItem()->member(memberPos, symbol, site);
}

Item* EvalValueItem::indexed() {
    callIndexed(pos);
    return this;
}

void EvalObjectItem::checkHandle() const {
    if (objectOrigin == Origin::EITHER) reportError(pos, messages::expressionNotEvaluable);
}

Item* EvalObjectItem::member(int memberPos, Symbol* symbol, ClassSymbol* site) {
    if (symbol->isStatic()) {
        drop(symbol->owner->type);
        return items::staticItem()->member(memberPos, symbol, site);
    }
    checkHandle();
    return fieldOfHandle(memberPos, symbol->name);
}

Item* EvalObjectItem::indexed() {
    checkHandle();
    callIndexed(pos);
    return value(pos);
}

// ---- what the trees ask for

namespace eval {

ScopedPlace::ScopedPlace(Env* env) : previous_(std::exchange(place, env)) {}

ScopedPlace::~ScopedPlace() {
    place = previous_;
}

void releaseItems() {
    variables.release();
    values.release();
    objects.release();
}

Item* frameVariable(int pos, Name* name) {
    EvalItem* item = variables.take();
    item->pos = pos;
    item->name = name;
    return item;
}

namespace {

ClassSymbol* classAround(const ClassSymbol* c) {
    return c->owner->enclClass();
}

/// The class that has the copy of a variable of `home`: the outermost that can be reached.
const ClassSymbol* holderOf(const ClassSymbol* c, const ClassSymbol* home) {
    while (c->hasOuterInstance() && classAround(c) != home) c = classAround(c);
    return c;
}

/// Puts the handle of the instance on the stack; `c` is a class around the place.
void emitEnclosingInstance(int pos, const ClassSymbol* c) {
    static_cast<EvalItem*>(frameVariable(pos, names().this_))->handle();
    for (const ClassSymbol* here = resolve::classOf(place); here != c; here = classAround(here)) {
        if (!here->hasOuterInstance()) {
            reportError(pos, messages::expressionNotEvaluable);
            return;
        }
        fieldOfHandle(pos, hidden::outerInstance());
    }
}

} // namespace

Item* enclosingInstance(int pos, const ClassSymbol* c) {
    if (c == resolve::classOf(place)) return items::thisItem();
    emitEnclosingInstance(pos, c);
    return value(pos);
}

Item* variable(int pos, Symbol* symbol) {
    const ClassSymbol* home = symbol->owner->enclClass();
    const ClassSymbol* here = resolve::classOf(place);
    if (home == here) return frameVariable(pos, symbol->name);
    emitEnclosingInstance(pos, holderOf(here, home));
    return fieldOfHandle(pos, hidden::copyOf(symbol->name));
}

Item* instanceMember(int pos, Symbol* symbol) {
    const ClassSymbol* site = resolve::siteOf(place, symbol);
    Item* instance = site == nullptr ? items::thisItem() : enclosingInstance(pos, site);
    return instance->member(pos, symbol, nullptr);
}

bool isRemoteStatic(const Symbol* symbol) {
    static Name* const support = Name::fromBytes("quillon.compiler.loader.EvalSupport");
    return static_cast<const ClassSymbol*>(symbol->owner)->flatName != support;
}

Item* staticMember(int pos, const Symbol* symbol) {
    loadContext();
    emitText(static_cast<const ClassSymbol*>(symbol->owner)->flatName);
    emitText(symbol->name);
    callContext(pos, "getStatic");
    return value(pos);
}

Item* loadedObject(int pos, Origin origin) {
    EvalObjectItem* item = objects.take();
    item->pos = pos;
    item->objectOrigin = origin;
    return item;
}

Item* choice(int pos, const Type* type, Origin a, Origin b) {
    if (a == Origin::NONE) a = b;
    if (b == Origin::NONE) b = a;
    bool ordinary = a == b && (a == Origin::ORDINARY || a == Origin::NONE);
    if (ordinary || typeCode(type) != typecode::OBJECT) return items::stackItem();
    if (a == b) return loadedObject(pos, a);
    if (type != context().stringType) return loadedObject(pos, Origin::EITHER);
    emitter().emitop2(op::CHECKCAST, emitter().poolClass(context().stringType)); // a String passes, from either side
    return items::stackItem();
}

void castLoaded(const Item& item, Type* type) {
    if (item.origin() == Origin::ORDINARY || typeCode(type) != typecode::OBJECT) return;
    if (type != context().objectType) emitter().emitop2(op::CHECKCAST, emitter().poolClass(type));
}

Item* typeOperation(TypeOp* tree, Item* item) {
    Type* from = tree->expr->type;
    Type* to = tree->clazz->type;
    if (tree->tag == treetag::TYPETEST || typeCode(to) != typecode::OBJECT) return nullptr;
    if (from->isSubType(to) || to == context().stringType) return nullptr;
    Origin origin = item->origin();
    item->coerce(from, to);
    return loadedObject(tree->pos, origin);
}

namespace {

/// Whether a search for the field's name, from the class that the object is declared with where it is read, finds it.
bool findsField(const Tree* object, const Symbol* field) {
    switch (object->tag) {
    case treetag::SUPER: return resolve::lookupKind(resolve::classOf(place), VAR, field->name) == field;
    case treetag::CONDITIONAL: {
        const auto* choice = static_cast<const Conditional*>(object);
        return findsField(choice->thenpart, field) && findsField(choice->elsepart, field);
    }
    case treetag::ASSIGN: return findsField(static_cast<const Assignop*>(object)->rhs, field);
    case treetag::TYPECAST: {
        const auto* cast = static_cast<const TypeOp*>(object);
        if (cast->expr->type->isSubType(cast->type)) return findsField(cast->expr, field);
        break;
    }
    default: break;
    }
    if (object->type->tag != typetag::CLASS) return true;
    return resolve::lookupKind(object->type->tsym, VAR, field->name) == field;
}

} // namespace

void checkNotHidden(const Select* tree) {
    if (tree->sym->kind != VAR || tree->sym->isStatic() || findsField(tree->selected, tree->sym)) return;
    reportError(tree->pos, messages::expressionNotEvaluable);
}

void checkCreation(const NewClass* tree) {
    bool isInner = tree->encl != nullptr || tree->def != nullptr || tree->type->tsym->isLocal();
    if (isInner) reportError(tree->pos, messages::expressionNotEvaluable);
}

} // namespace eval
} // namespace tarn
