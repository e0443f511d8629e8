#pragma once

#include "semantic/symbol.h"
#include "syntax/name.h"

#include <array>
#include <span>
#include <vector>

namespace tarn {

class Arena;

/// A table from names to symbols. Nested scopes of a method share one table, and leaving one unwinds its entries; the
/// table of a class is linked to that of its superclass, so that one lookup sees inherited members.
///
/// Every bucket ends with `endMark()`, which has no scope; lookups return it when nothing is found.
class Scope {
public:
    static constexpr unsigned BUCKETS = 128;
    using Table = std::array<Symbol*, BUCKETS>;

    /// A scope with a table of its own (a copy of `next`'s, if given). Lives in the current context's arena.
    static Scope* make(Scope* next, Symbol* owner);
    /// The one entry that ends every bucket: no scope, kind NONE.
    static Symbol* endMark();

    /// A nested scope on the same table, made in `arena`; this one stays closed until the nested one is left.
    Scope* dup(Arena& arena);
    /// Removes the own entries from the table; they keep their order for `reenter`.
    void leave();
    /// Puts the entries back, oldest first.
    void reenter();
    /// Enters the symbol, or an alias of it if it already stands in a scope.
    void enter(Symbol* symbol);
    /// Lists these of its entries, and no others, in this order, oldest first. What a lookup finds stays as it is.
    void setOrder(std::span<Symbol* const> entries);
    /// Lets every bucket continue into that of `superScope` (null: only sets `next`). What is entered into `superScope`
    /// later is seen too: a member class may extend the very class that is still being entered around it.
    void setNext(Scope* superScope);
    /// The scopes for which this one was set as the next, also those that are their owner's no more.
    [[nodiscard]] std::vector<Scope*> inheritors() const;
    /// The newest entry of that name, or the end mark. Only on the innermost open scope of a table.
    [[nodiscard]] Symbol* lookup(const Name* name) const {
        Symbol* entry = (*table)[name->index & (BUCKETS - 1)];
        while (entry->scope != nullptr && entry->name != name) entry = entry->shadowed;
        return entry;
    }

    Scope* next = nullptr; ///< enclosing scope; the superclass's; or this, the mark of a class that is being visited
    Symbol* owner = nullptr;
    Table* table = nullptr;
    Symbol* elems = nullptr; ///< the last entered entry; older ones follow through `sibling`
    bool shared = false;     ///< a nested scope is open on the same table
    bool active = true;      ///< entered and not left

private:
    void inherit(unsigned at, Symbol* oldHead, Symbol* newHead);

    Scope* firstLinked = nullptr; ///< the scopes whose buckets continue into this one's
    Scope* nextLinked = nullptr;
};

} // namespace tarn
