#include "store/single_byte.h"

#include <algorithm>
#include <iterator>

namespace tarn {

namespace {

struct HalfTable {
    const char* name;
    char16_t units[128];
};

constexpr HalfTable HIGH_HALVES[] = {
#include "store/single_byte_high.inc"
};

constexpr HalfTable LOW_HALVES[] = {
#include "store/single_byte_low.inc"
};

const char16_t* findUnits(std::span<const HalfTable> tables, std::string_view name) {
    auto at = std::find_if(tables.begin(), tables.end(), [&](const HalfTable& table) { return table.name == name; });
    return at == tables.end() ? nullptr : at->units;
}

} // namespace

SingleByteSet findSingleByteSet(std::string_view canonicalName) {
    return {findUnits(LOW_HALVES, canonicalName), findUnits(HIGH_HALVES, canonicalName)};
}

} // namespace tarn
