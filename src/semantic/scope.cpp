#include "semantic/scope.h"

#include "runtime/failure.h"
#include "semantic/context.h"

#include <utility>

namespace tarn {

namespace {

/// Ends every bucket; an alias in form, so that code that looks at `sym` finds nothing of use.
Symbol* makeEndMark() {
    static Symbol mark;
    mark.flags = flag::VOLATILE;
    mark.sym = &mark;
    mark.shadowed = &mark;
    return &mark;
}

} // namespace

Symbol* Scope::endMark() {
    static Symbol* const mark = makeEndMark();
    return mark;
}

Scope* Scope::make(Scope* next, Symbol* owner) {
    Arena& arena = universe().arena;
    auto* scope = arena.make<Scope>();
    scope->next = next;
    scope->owner = owner;
    scope->table = arena.make<Table>();
    if (next != nullptr)
        *scope->table = *next->table;
    else
        scope->table->fill(endMark());
    return scope;
}

Scope* Scope::dup(Arena& arena) {
    require(active && !shared, "dup of a scope that is not the innermost");
    shared = true;
    auto* nested = arena.make<Scope>();
    nested->next = this;
    nested->owner = owner;
    nested->table = table;
    return nested;
}

void Scope::leave() {
    require(active && !shared, "leave of a scope that is not the innermost");
    if (next != nullptr) next->shared = false;
    active = false;
    for (Symbol* entry = elems; entry != nullptr; entry = entry->sibling) {
        Symbol*& bucket = (*table)[entry->name->index & (BUCKETS - 1)];
        require(bucket == entry, "leave of a scope out of order");
        bucket = entry->shadowed;
        entry->shadowed = nullptr;
    }
}

namespace {

void relink(Scope::Table& table, Symbol* entry) {
    if (entry == nullptr) return;
    relink(table, entry->sibling);
    Symbol*& bucket = table[entry->name->index & (Scope::BUCKETS - 1)];
    entry->shadowed = bucket;
    bucket = entry;
}

} // namespace

void Scope::reenter() {
    require(!active && !shared, "reenter of a scope that is open");
    if (next != nullptr) next->shared = true;
    active = true;
    relink(*table, elems);
}

void Scope::enter(Symbol* symbol) {
    require(active && !shared, "enter into a scope that is not the innermost");
    Symbol* entry = symbol->scope != nullptr ? symbol->alias(symbol->name) : symbol;
    Symbol*& bucket = (*table)[entry->name->index & (BUCKETS - 1)];
    Symbol* head = bucket;
    entry->scope = this;
    entry->shadowed = head;
    entry->sibling = elems;
    bucket = entry;
    elems = entry;
    if (entry->owner == nullptr) entry->owner = owner;
    for (Scope* sub = firstLinked; sub != nullptr; sub = sub->nextLinked)
        sub->inherit(entry->name->index & (BUCKETS - 1), head, entry);
}

void Scope::setOrder(std::span<Symbol* const> entries) {
    elems = nullptr;
    for (Symbol* entry : entries) {
        entry->sibling = elems;
        elems = entry;
    }
}

void Scope::setNext(Scope* superScope) {
    next = superScope;
    if (superScope == nullptr) return;
    nextLinked = superScope->firstLinked;
    superScope->firstLinked = this;
    for (unsigned i = 0; i < BUCKETS; ++i) {
        Symbol** link = &(*table)[i];
        while ((*link)->scope != nullptr) link = &(*link)->shadowed;
        Symbol* tail = std::exchange(*link, (*superScope->table)[i]);
        if (link != &(*table)[i]) continue;
        for (Scope* sub = firstLinked; sub != nullptr; sub = sub->nextLinked) sub->inherit(i, tail, *link);
    }
}

std::vector<Scope*> Scope::inheritors() const {
    std::vector<Scope*> scopes;
    for (Scope* sub = firstLinked; sub != nullptr; sub = sub->nextLinked) scopes.push_back(sub);
    return scopes;
}

void Scope::inherit(unsigned at, Symbol* oldHead, Symbol* newHead) {
    Symbol** bucket = &(*table)[at];
    Symbol** link = bucket;
    while ((*link)->scope == this) link = &(*link)->shadowed;
    if (*link != oldHead) return;
    *link = newHead;
    if (link != bucket) return;
    for (Scope* sub = firstLinked; sub != nullptr; sub = sub->nextLinked) sub->inherit(at, oldHead, newHead);
}

} // namespace tarn
