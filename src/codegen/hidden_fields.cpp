#include "codegen/hidden_fields.h"

#include "semantic/symbol.h"
#include "syntax/name.h"

#include <string>
#include <string_view>

namespace tarn::hidden {

namespace {

constexpr std::string_view COPY = "val$";

} // namespace

Name* outerInstance() {
    static Name* const name = Name::fromBytes("this0");
    return name;
}

Name* copyOf(const Name* variable) {
    return Name::fromString(std::string(COPY) + variable->toString());
}

bool isHidden(const Symbol* field) {
    if (field->kind != VAR || (field->flags & flag::SYNTHETIC) == 0) return false;
    return field->name == outerInstance() || field->name->view().starts_with(COPY);
}

} // namespace tarn::hidden
