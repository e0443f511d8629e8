#include "driver/reporter.h"
#include "semantic/context.h"
#include "semantic/symbol.h"

#include <string>

// What a failed search reports.

namespace tarn {

namespace {

const char* wordFor(int kind) {
    if (kind == VAR_NOT_FOUND) return "variable";
    return kind == METHOD_NOT_FOUND ? "method" : "class";
}

void reportNotFound(int kind, int pos, ClassSymbol* site, const Types* args, Name* wantedName) {
    if (wantedName == names().error) return;
    std::string what = std::string(wordFor(kind)) + " " + wantedName->toString();
    if (args != nullptr) {
        Types shown = *args;
        if (wantedName == names().init) {
            std::string siteName = site->name == nullptr ? "" : site->name->toString();
            if (site->hasOuterInstance() && !shown.empty()) {
                siteName =
                    "(" + shown.front()->toString() + ")" + context().innerClass(site->flatName)->name->toString();
                shown = shown.subspan(1);
            }
            what = "constructor " + siteName;
        }
        what += "(" + toString(shown) + ")";
    }
    bool hasName = site->name != nullptr && site->name->length != 0;
    reportError(pos, messages::notFound, what, hasName ? " in " + site->toString() : std::string());
}

} // namespace

void ResolveError::report(int pos, ClassSymbol* site, const Types* args, Name* wantedName) {
    reportNotFound(kind, pos, site, args, wantedName);
}

void LoadError::report(int pos, ClassSymbol*, const Types*, Name* wantedName) {
    reportError(pos, messages::cannotAccess, kindNames(wantedKinds), wantedName, cause);
}

void AmbiguityError::report(int pos, ClassSymbol*, const Types*, Name*) {
    Name* ambiguous = sym1->name == names().init ? sym1->owner->name : sym1->name;
    reportError(pos, messages::ambiguousReference, ambiguous, sym1, sym1->location(), sym2, sym2->location());
}

void AccessError::report(int pos, ClassSymbol* site, const Types* args, Name* wantedName) {
    Symbol* sym = inaccessible;
    if (sym->name == names().init && sym->owner != site)
        reportNotFound(METHOD_NOT_FOUND, pos, site, args, wantedName);
    else if ((sym->flags & flag::PUBLIC) != 0)
        reportError(pos, messages::memberOfNonPublic, sym->owner, sym);
    else if ((sym->flags & (flag::PRIVATE | flag::PROTECTED)) != 0)
        reportError(pos, messages::hasAccess, sym, flagNames(sym->flags & (flag::PRIVATE | flag::PROTECTED)),
                    sym->location());
    else
        reportError(pos, messages::notPublic, sym, sym->location());
}

} // namespace tarn
