#pragma once

namespace tarn {

class Name;
class Symbol;

/// The fields that lowering gives an inner class, by their names, which also a stopped program shows.
namespace hidden {

/// Of the field that holds the enclosing instance.
Name* outerInstance();
/// Of the field that holds the copy of a captured variable. If several variables of one name meet in a class, all but
/// the first have "$" added.
Name* copyOf(const Name* variable);
/// Whether it is such a field.
bool isHidden(const Symbol* field);

} // namespace hidden
} // namespace tarn
