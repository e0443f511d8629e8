#pragma once

#include "classfile/pool_entry.h"

#include <span>
#include <vector>

namespace tarn {

class Name;
class Scope;
class Type;

/// A name with a descriptor, as a member reference in a pool needs it. Made anew for each reference, never shared.
class NameAndType final : public PoolEntry {
public:
    NameAndType(Name* name_, Name* signature_) : name(name_), signature(signature_) {}
    [[nodiscard]] EntryKind entryKind() const override { return EntryKind::NAME_AND_TYPE; }

    Name* name;
    Name* signature; ///< with dots or slashes as its maker has it; the writer makes slashes
};

/// What a class refers to, as objects: the generator puts entries in, the writer turns them into bytes, and the make
/// engine reads them back as the class's imports and references. Owned by the context's arena through the class symbol.
///
/// Identity is what tells entries apart, so sharing follows interning: one entry for a name, a symbol, an array type or
/// a number, but one for each occurrence of a string literal.
class ConstantPool {
public:
    ConstantPool();

    /// The index of the entry, which is added if this pool has it not. A long or double takes a second slot, which is
    /// null.
    int put(PoolEntry* entry) {
        unsigned at = static_cast<unsigned>(entry->poolIndex);
        if (at < entries.size() && entries[at] == entry) return entry->poolIndex;
        return add(entry);
    }
    [[nodiscard]] int indexOf(const PoolEntry* entry) const { return entry->poolIndex; }
    [[nodiscard]] int count() const { return static_cast<int>(entries.size()); }

    /// Makes every class that is mentioned in a signature of the pool an entry, and gives the scope of all its symbols.
    /// Runs at most once.
    Scope* buildIndex();

    std::vector<PoolEntry*> entries; ///< by index; null for index 0 and behind a long or double
    Scope* index = nullptr;          ///< what `buildIndex` made; null before

private:
    int add(PoolEntry* entry);
    void enterType(Type* type);
};

} // namespace tarn
