#pragma once

namespace tarn {

class Name;

/// Names that the compiler itself speaks of; entered at the first use of the table.
struct WellKnownNames {
    Name* init;   ///< "<init>"
    Name* clinit; ///< "<clinit>"
    Name* this_;
    Name* super;
    Name* class_;
    Name* error; ///< "<error>", the name of an identifier that failed to parse
    Name* empty;
    Name* dot;
    Name* star;
    Name* length;
    Name* javaLang; ///< "java.lang"
    Name* javaLangObject;
    Name* javaLangCloneable;
    Name* null_;
    Name* true_;
    Name* false_;
};

namespace detail {
extern constinit WellKnownNames wellKnownNames; ///< null until they are entered
const WellKnownNames& enterWellKnownNames();
} // namespace detail

inline const WellKnownNames& names() {
    return detail::wellKnownNames.init != nullptr ? detail::wellKnownNames : detail::enterWellKnownNames();
}

} // namespace tarn
