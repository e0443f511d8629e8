#include "syntax/well_known_names.h"

#include "syntax/name.h"

namespace tarn::detail {

constinit WellKnownNames wellKnownNames{};

const WellKnownNames& enterWellKnownNames() {
    return wellKnownNames = {
               .init = Name::fromBytes("<init>"),
               .clinit = Name::fromBytes("<clinit>"),
               .this_ = Name::fromBytes("this"),
               .super = Name::fromBytes("super"),
               .class_ = Name::fromBytes("class"),
               .error = Name::fromBytes("<error>"),
               .empty = Name::fromBytes(""),
               .dot = Name::fromBytes("."),
               .star = Name::fromBytes("*"),
               .length = Name::fromBytes("length"),
               .javaLang = Name::fromBytes("java.lang"),
               .javaLangObject = Name::fromBytes("java.lang.Object"),
               .javaLangCloneable = Name::fromBytes("java.lang.Cloneable"),
               .null_ = Name::fromBytes("null"),
               .true_ = Name::fromBytes("true"),
               .false_ = Name::fromBytes("false"),
           };
}

} // namespace tarn::detail
