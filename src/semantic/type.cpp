#include "semantic/type.h"

#include "classfile/class_file.h"
#include "driver/reporter.h"
#include "runtime/failure.h"
#include "semantic/attribution.h"
#include "semantic/context.h"
#include "semantic/symbol.h"

#include <algorithm>
#include <string>

namespace tarn {

using namespace typetag;

// ---- lists of types

TypeList* TypeList::incl(TypeList* list, Type* type) {
    return contains(list, type) ? list : context().typeList(type, excl(list, type));
}

TypeList* TypeList::excl(TypeList* list, Type* type) {
    if (list == nullptr) return nullptr;
    TypeList* rest = excl(list->tail, type);
    if (list->head->isSubType(type)) return rest;
    return rest == list->tail ? list : context().typeList(list->head, rest);
}

bool TypeList::contains(TypeList* list, Type* type) {
    for (; list != nullptr; list = list->tail)
        if (type->isSubType(list->head)) return true;
    return false;
}

bool TypeList::subset(TypeList* a, TypeList* b) {
    for (; a != nullptr; a = a->tail)
        if (!contains(b, a->head)) return false;
    return true;
}

bool TypeList::equal(TypeList* a, TypeList* b) {
    for (; a != nullptr && b != nullptr; a = a->tail, b = b->tail)
        if (a->head != b->head) return false;
    return a == b;
}

TypeList* TypeList::intersect(TypeList* a, TypeList* b) {
    if (a == nullptr) return nullptr;
    TypeList* rest = intersect(a->tail, b);
    return contains(b, a->head) ? context().typeList(a->head, rest) : rest;
}

TypeList* TypeList::common(TypeList* a, TypeList* b) {
    TypeList* both = intersect(a, b);
    for (TypeList* each = intersect(b, a); each != nullptr; each = each->tail) both = incl(both, each->head);
    return both;
}

int TypeList::length(TypeList* list) {
    int n = 0;
    for (; list != nullptr; list = list->tail) ++n;
    return n;
}

std::string TypeList::toString(TypeList* list) {
    std::string text;
    for (; list != nullptr; list = list->tail) {
        if (!text.empty()) text += ", ";
        text += list->head->toString();
    }
    return text;
}

// ---- plain types

void Type::init(int tag_, Name* name) {
    Universe& here = universe();
    auto* symbol = here.arena.make<ClassSymbol>();
    symbol->init(flag::PUBLIC, TYP, name, this, here.rootPackage);
    symbol->flatName = name;
    symbol->members = here.emptyScope;
    init(tag_, symbol, name->index);
}

std::string Type::toString() const {
    if (tsym == nullptr) return "?";
    return tsym->flatName == nullptr ? "" : tsym->flatName->toString();
}

ConstantType* Type::coerce(int) {
    throw InternalError("coerce of a type that is no constant");
}

ConstantType* Type::constValue() {
    require(constant, "constant value of a type that is no constant");
    return static_cast<ConstantType*>(this);
}

namespace {

bool isReferenceSubClass(const ClassSymbol* c, const ClassSymbol* base) {
    ensureRead(c);
    if (c->superclass != nullptr && c->superclass->isSubClass(base)) return true;
    for (const ClassSymbol* i : c->interfaces)
        if (i->isSubClass(base)) return true;
    return false;
}

bool isReferenceTag(int tag) {
    return tag == CLASS || tag == ARRAY || tag == METHOD || tag == NULLTYPE;
}

} // namespace

bool Type::isSubType(Type* other) {
    if (this == other || other->tag == ERROR || other->tag == ANYTHING) return true;
    switch (tag) {
    case ERROR: return true;
    case BYTE: return other->tag == BYTE || (other->tag >= SHORT && other->tag <= DOUBLE);
    case CHAR: return other->tag == CHAR || (other->tag >= INT && other->tag <= DOUBLE);
    case SHORT:
    case INT:
    case LONG:
    case FLOAT:
    case DOUBLE: return tag <= other->tag && other->tag <= DOUBLE;
    case BOOLEAN: return other->tag == BOOLEAN;
    case CLASS: return isReferenceSubClass(tsym, other->tsym);
    case VOID: return other->tag == VOID;
    case NULLTYPE: return isReferenceTag(other->tag);
    case ANYTHING: return false;
    case PACKAGE: return false;
    default: throw InternalError("subtype " + toString() + " " + std::to_string(tag));
    }
}

bool Type::isAssignable(Type* other) {
    return isSubType(other);
}

// ---- methods and arrays

std::string MethodType::toString() const {
    std::string text = "(" + tarn::toString(args) + ") -> " + result->toString();
    if (thrownTypes != nullptr) text += " throws " + TypeList::toString(thrownTypes);
    return text;
}

bool MethodType::isSubType(Type* other) {
    if (other->tag == ERROR || other->tag == ANYTHING) return true;
    if (other->tag != METHOD) return false;
    auto* required = static_cast<MethodType*>(other);
    return isSubTypes(required->args, args) && result->isSubType(required->result) &&
           TypeList::subset(thrownTypes, required->thrownTypes);
}

std::string ArrayType::toString() const {
    return element->toString() + "[]";
}

bool ArrayType::isSubType(Type* other) {
    if (this == other || other->tag == ERROR || other->tag == ANYTHING) return true;
    if (other->tag == CLASS)
        return other->tsym->flatName == names().javaLangObject || other->tsym->flatName == names().javaLangCloneable;
    if (other->tag != ARRAY) return false;
    Type* a = element;
    Type* b = other->elemType();
    if (a == b || a->tag == ERROR || b->tag == ERROR || b->tag == ANYTHING) return true;
    return (a->tag == CLASS || a->tag == ARRAY) && a->isSubType(b);
}

// ---- relations

bool isSubTypes(Types a, Types b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (!a[i]->isSubType(b[i])) return false;
    return true;
}

bool sameTypes(Types a, Types b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (a[i] != b[i]) return false;
    return true;
}

namespace {

/// A cast between references that are no subtypes of each other: there may be an object of both unless both are
/// classes, or one is a final class.
bool isCastableClass(const Type* from, const Type* to) {
    ensureRead(from->tsym);
    ensureRead(to->tsym);
    return (from->tsym->isInterface() && !to->tsym->isFinal()) || (to->tsym->isInterface() && !from->tsym->isFinal());
}

} // namespace

bool isCastable(Type* from, Type* to) {
    if (to->tag == ERROR || from->tag == ERROR) return true;
    if (from->tag <= DOUBLE) return to->tag <= DOUBLE;
    if (from->tag == BOOLEAN) return to->tag == BOOLEAN;
    if (from->tag != CLASS && from->tag != ARRAY && from->tag != NULLTYPE) return false;
    if (to->tag != CLASS && to->tag != ARRAY && to->tag != NULLTYPE) return false;
    if (from->isSubType(to) || to->isSubType(from)) return true;
    if (from->tag == ARRAY && to->tag == ARRAY)
        return from->elemType()->tag >= CLASS && isCastable(from->elemType(), to->elemType());
    return from->tag == CLASS && to->tag == CLASS && isCastableClass(from, to);
}

Type* withoutValue(Type* type) {
    if (!type->isConstant()) return type;
    return type->tag == CLASS ? context().stringType : context().typeOfTag[type->tag];
}

Type* declarableType(Type* type) {
    return type->tag == NULLTYPE ? context().objectType : withoutValue(type);
}

namespace {

Type* commonNumericType(Type* a, Type* b) {
    for (int tag = std::max(a->tag, b->tag); tag <= DOUBLE; ++tag) {
        Type* candidate = context().typeOfTag[static_cast<std::size_t>(tag)];
        if (candidate != nullptr && a->isAssignable(candidate) && b->isAssignable(candidate)) return candidate;
    }
    throw InternalError("no common numeric type");
}

} // namespace

Type* conditionalType(int pos, Type* a, Type* b) {
    if (a->tag == ANYTHING || (a == b && !a->isConstant())) return b;
    if (b->tag == ANYTHING) return a;
    if (a->tag == ERROR || b->tag == ERROR) return errType;
    if (a->tag <= DOUBLE && b->tag <= DOUBLE) return commonNumericType(a, b);
    if (a->isSubType(b)) return withoutValue(b);
    if (a->isConstant() && a->tag == CLASS) return conditionalType(pos, context().stringType, b);
    Type* checked = attribution::checkAssignable(pos, b, a);
    return checked->tag == ERROR ? checked : withoutValue(a);
}

bool isErroneous(const Type* type) {
    if (type == nullptr) return false;
    switch (type->tag) {
    case ERROR: return true;
    case ARRAY: return isErroneous(type->elemType());
    case METHOD: return isErroneous(*type->argTypes()) || isErroneous(type->resType());
    default: return false;
    }
}

bool isErroneous(Types types) {
    for (const Type* type : types)
        if (isErroneous(type)) return true;
    return false;
}

std::string toString(Types types) {
    std::string text;
    for (const Type* type : types) {
        if (!text.empty()) text += ", ";
        text += type->toString();
    }
    return text;
}

int widthOf(Types types) {
    int sum = 0;
    for (const Type* type : types) sum += widthOf(type);
    return sum;
}

// ---- descriptors

namespace {

void appendDescriptor(std::string& text, const Type* type) {
    if (type->descriptor != nullptr) return void(text.append(type->descriptor->view()));
    switch (type->tag) {
    case BYTE: text += 'B'; break;
    case CHAR: text += 'C'; break;
    case SHORT: text += 'S'; break;
    case INT: text += 'I'; break;
    case LONG: text += 'J'; break;
    case FLOAT: text += 'F'; break;
    case DOUBLE: text += 'D'; break;
    case BOOLEAN: text += 'Z'; break;
    case VOID: text += 'V'; break;
    case CLASS: {
        text.append("L").append(type->tsym->flatName->view()).append(";");
        std::replace(text.end() - type->tsym->flatName->length, text.end(), '.', '/');
        break;
    }
    case ARRAY:
        text += '[';
        appendDescriptor(text, type->elemType());
        break;
    case METHOD:
        text += '(';
        for (const Type* arg : *type->argTypes()) appendDescriptor(text, arg);
        text += ')';
        appendDescriptor(text, type->resType());
        break;
    default: throw InternalError("typeSig");
    }
}

} // namespace

Name* signature(Type* type) {
    if (type->descriptor != nullptr) return type->descriptor;
    static std::string text;
    text.clear();
    appendDescriptor(text, type);
    return type->descriptor = Name::fromBytes(text);
}

} // namespace tarn
