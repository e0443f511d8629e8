#include "semantic/symbol.h"

#include "classfile/class_file.h"
#include "classfile/constant_pool.h"
#include "semantic/context.h"
#include "semantic/scope.h"

#include <string>

namespace tarn {

// ---- any symbol

std::string Symbol::toString() const {
    return name == nullptr ? " " : name->toString();
}

bool Symbol::isLocal() const {
    for (const Symbol* around = owner; around != nullptr; around = around->owner) {
        if (around->kind == MTH) return true;
        if (around->kind != TYP) return false;
    }
    return false;
}

Symbol* Symbol::alias(Name* otherName) {
    auto* entry = universe().arena.make<Symbol>();
    entry->init(flag::VOLATILE, NONE, otherName, nullptr, owner);
    entry->sym = sym;
    return entry;
}

std::string Symbol::location() const {
    if (owner == nullptr || owner->name == nullptr || owner->name->length == 0) return "";
    return " in " + owner->toString();
}

Name* Symbol::fullName() const {
    return formFullName(name, owner);
}

ClassSymbol* Symbol::enclClass() const {
    const Symbol* around = this;
    while (around != nullptr && around->kind != PCK && around->kind != TYP) around = around->owner;
    return const_cast<ClassSymbol*>(static_cast<const ClassSymbol*>(around));
}

ClassSymbol* Symbol::outermostClass() const {
    const Symbol* outermost = nullptr;
    for (const Symbol* around = this; around != nullptr && around->kind != PCK; around = around->owner)
        if (around->kind == TYP) outermost = around;
    return const_cast<ClassSymbol*>(static_cast<const ClassSymbol*>(outermost));
}

const Symbol* Symbol::package() const {
    const Symbol* around = this;
    while (around != nullptr && around->kind != PCK) around = around->owner;
    return around;
}

Symbol* Symbol::nextEntry() const {
    Symbol* entry = shadowed;
    while (entry->scope != nullptr && entry->name != name) entry = entry->shadowed;
    return entry;
}

// ---- methods and variables

std::string MethodSymbol::toString() const {
    std::string text;
    if (name == nullptr)
        text = "<method>";
    else if (isConstructor() && owner != nullptr)
        text = "constructor " + owner->name->toString();
    else
        text = "method " + name->toString();
    if (type != nullptr && type->tag == typetag::METHOD) text += "(" + tarn::toString(*type->argTypes()) + ")";
    return text;
}

bool MethodSymbol::isConstructor() const {
    return name == names().init;
}

bool MethodSymbol::overrides(const Symbol* other) const {
    if (this == other || other->kind != MTH || other->isPrivate()) return false;
    if (other->package() != package() && (other->flags & (flag::PUBLIC | flag::PROTECTED)) == 0) return false;
    const Types* args = type->argTypes();
    const Types* otherArgs = other->type->argTypes();
    if (args == nullptr || otherArgs == nullptr || !sameTypes(*args, *otherArgs)) return false;
    return !isConstructor() && other->name != names().clinit;
}

MethodSymbol* MethodSymbol::overridden() const {
    auto* c = static_cast<ClassSymbol*>(owner);
    for (Symbol* entry = c->members->lookup(name); entry->scope != nullptr; entry = entry->nextEntry())
        if (overrides(entry->sym)) return static_cast<MethodSymbol*>(entry->sym);
    return nullptr;
}

std::string VarSymbol::toString() const {
    return "variable " + (name == nullptr ? " " : name->toString());
}

// ---- classes and packages

std::string ClassSymbol::toString() const {
    std::string text = flatName == nullptr ? "" : printName(flatName);
    if (kind == PCK) return "package " + text;
    return (isInterface() ? "interface " : "class ") + text;
}

bool ClassSymbol::isRootClass() const {
    return flatName == names().javaLangObject;
}

namespace {

bool descendsFrom(const ClassSymbol* c, const Symbol* base, bool isInterface, Walk walk) {
    for (; c != nullptr && c->walked != walk; c = c->superclass) {
        if (c == base) return true;
        c->walked = walk;
        ensureRead(c);
        if (!isInterface) continue;
        for (const ClassSymbol* i : c->interfaces)
            if (descendsFrom(i, base, isInterface, walk)) return true;
    }
    return false;
}

} // namespace

bool ClassSymbol::isSubClass(const Symbol* base) const {
    if (this == base) return true;
    bool isRead = base->kind != TYP || static_cast<const ClassSymbol*>(base)->reading == Reading::DONE;
    return descendsFrom(this, base, base->isInterface() || !isRead, newWalk());
}

ClassSymbol* ClassSymbol::clone() {
    auto* copy = universe().arena.make<ClassSymbol>();
    copy->init(flags, kind, name, type, owner);
    copy->flatName = flatName;
    copy->superclass = superclass;
    copy->interfaces = interfaces;
    copy->members = members;
    copy->sourceFile = sourceFile;
    copy->sourcePath = sourcePath;
    copy->pool = pool;
    copy->constantRefs = constantRefs;
    pool = nullptr;
    constantRefs = nullptr;
    return copy;
}

bool ClassSymbol::hasOuterInstance() const {
    if (owner->kind == PCK || isStatic() || isInterface()) return false;
    const InnerClassRecord* record = context().innerClass(flatName);
    return record != nullptr && (record->flags & flag::STATIC) == 0;
}

void ClassSymbol::addConstantRef(VarSymbol* variable) {
    if (constantRefs == nullptr) constantRefs = Scope::make(nullptr, this);
    const Scope* last = std::exchange(variable->recordedIn, constantRefs);
    if (last == constantRefs) return;
    Symbol* entry = last == nullptr ? Scope::endMark() : constantRefs->lookup(variable->name);
    for (; entry->scope != nullptr; entry = entry->nextEntry())
        if (entry->sym == variable) return;
    constantRefs->enter(variable->alias(variable->name));
}

// ---- names

Name* formFullName(Name* name, const Symbol* owner) {
    if (owner == nullptr || owner->name == nullptr || owner->name->length == 0) return name;
    Name* const parts[] = {owner->fullName(), names().dot, name};
    return Name::concat(parts);
}

Name* formFlatName(Name* name, const Symbol* owner) {
    if (owner == nullptr || owner->kind == PCK) return formFullName(name, owner);
    static Name* const dollar = Name::fromBytes("$");
    Name* const parts[] = {owner->enclClass()->flatName, dollar, name};
    return Name::concat(parts);
}

Name* shortName(Name* flat) {
    return flat->subName(flat->lastIndexOf('.') + 1, static_cast<int>(flat->length));
}

Name* packagePart(Name* flat) {
    int dot = flat->lastIndexOf('.');
    return dot < 0 ? nullptr : flat->subName(0, dot);
}

std::string printName(Name* flat) {
    constexpr int DEEPEST = 100; // class files may hold records that enclose each other
    std::string inner;
    for (int depth = 0; depth < DEEPEST && Context::current != nullptr; ++depth) {
        const InnerClassRecord* record = context().innerClass(flat);
        if (record == nullptr || record->outer == nullptr) break;
        inner = "." + record->name->toString() + inner;
        flat = record->outer->flatName;
    }
    return flat->toString() + inner;
}

} // namespace tarn
