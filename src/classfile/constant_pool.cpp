#include "classfile/constant_pool.h"

#include "semantic/scope.h"
#include "semantic/symbol.h"
#include "semantic/type.h"

namespace tarn {

namespace {

constexpr std::size_t FIRST_CAPACITY = 64;

bool takesTwoSlots(const PoolEntry* entry) {
    if (entry->entryKind() != EntryKind::TYPE) return false;
    const auto* type = static_cast<const Type*>(entry);
    return type->isConstant() && widthOf(type) == 2;
}

} // namespace

ConstantPool::ConstantPool() {
    entries.reserve(FIRST_CAPACITY);
    entries.push_back(nullptr);
}

int ConstantPool::add(PoolEntry* entry) {
    entry->poolIndex = count();
    entries.push_back(entry);
    if (takesTwoSlots(entry)) entries.push_back(nullptr);
    return entry->poolIndex;
}

/// The pool grows under the walk, which sees the classes that it adds too.
Scope* ConstantPool::buildIndex() {
    if (index != nullptr) return index;
    index = Scope::make(nullptr, nullptr);
    for (std::size_t i = 1; i < entries.size(); ++i) {
        PoolEntry* entry = entries[i];
        if (entry == nullptr) continue;
        if (entry->entryKind() == EntryKind::SYMBOL) {
            auto* symbol = static_cast<Symbol*>(entry);
            symbol->poolIndex = static_cast<int>(i);
            index->enter(symbol);
            if (symbol->type != nullptr) enterType(symbol->type);
        } else if (entry->entryKind() == EntryKind::TYPE) {
            auto* type = static_cast<Type*>(entry);
            if (!type->isConstant()) enterType(type);
        }
    }
    return index;
}

void ConstantPool::enterType(Type* type) {
    switch (type->tag) {
    case typetag::CLASS: {
        ClassSymbol* c = type->tsym;
        for (Symbol* entry = index->lookup(c->name); entry->scope != nullptr; entry = entry->nextEntry())
            if (entry->sym->kind == TYP && entry->sym->fullName() == c->flatName) return;
        put(c);
        return;
    }
    case typetag::ARRAY: enterType(type->elemType()); return;
    case typetag::METHOD:
        enterType(type->resType());
        for (Type* argument : *type->argTypes()) enterType(argument);
        for (TypeList* thrown = type->thrown(); thrown != nullptr; thrown = thrown->tail) enterType(thrown->head);
        return;
    default: return;
    }
}

} // namespace tarn
