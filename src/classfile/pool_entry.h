#pragma once

#include <cstdint>

namespace tarn {

/// Which of the classes derived from PoolEntry an entry is.
enum class EntryKind : std::uint8_t { NAME, TYPE, SYMBOL, NAME_AND_TYPE };

/// Base of what can stand in a constant pool: names, types, symbols, and pairs of name and type.
///
/// While a class is written the one field says which slot of its pool the object has, so that a pool needs no table to
/// find it again. It is 0 at first; what an earlier pool left there does no harm, since a pool looks at its slot.
class PoolEntry {
public:
    virtual ~PoolEntry() = default;

    [[nodiscard]] virtual EntryKind entryKind() const = 0;

    int poolIndex = 0;

protected:
    PoolEntry() = default;
    PoolEntry(const PoolEntry&) = default;
    PoolEntry& operator=(const PoolEntry&) = default;
};

} // namespace tarn
