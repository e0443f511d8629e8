// Classes that come and go, as far as that changes what the names in other sources mean.
//
// A class that appears may take the place of the one that a simple name meant before, and nothing of what was recorded
// of that one changes. So a class remembers of each import which other classes of the same last name it could see: in
// its own package, in those that its source imports, in java.lang. What members of supertypes hide goes into the shape
// of these (wide_references.cpp).

#include "make/change_detection.h"
#include "make/maker.h"
#include "semantic/universe.h"

#include <algorithm>

namespace tarn {

/// Whether the class is the file of a member or local class that is in the source of its outer class no more. Nobody
/// can name it, and nobody can compile it.
bool Maker::isLeftover(const ClassNode& c) const {
    if (c.source != nullptr) return false;
    for (const ClassNode* outer = c.outer; outer != nullptr; outer = outer->outer)
        if (outer->validated >= base_ && outer->source != nullptr) return true;
    return false;
}

/// Whether there is a source or a class file that counts. What a library has is known without a look at its files.
bool Maker::exists(const ClassNode& c) {
    PackageNode& package = packageNode(c.packageName, false);
    bool isKnown = package.classes.find(c.name) != nullptr;
    if (isUnchecked(package) || (package.library && isKnown)) return isKnown;
    scanPackage(package);
    return c.validated >= base_ && !isLeftover(c);
}

/// A class that names one that is gone may mean another one now; if it has no source, what is recorded of it may be
/// wrong. Whether it was compiled.
bool Maker::remakeForGoneImports(ClassNode& c) {
    if (c.written >= base_) return false; // a compile has found all that it names
    auto isGone = [this](const ImportRecord* import) {
        const ClassNode& imported = graph_.classNode(*import);
        if (imported.state >= stamp_ + progress::IN_HAND && imported.outer == nullptr) return false;
        return !exists(imported);
    };
    std::span<ImportRecord* const> imports = c.imps.nodes();
    auto gone = std::find_if(imports.begin(), imports.end(), isGone);
    if (gone == imports.end()) return false;
    if (c.source == nullptr || c.sourceName == nullptr) {
        c.refsCached = false;
        cacheImps(c);
        return false;
    }
    compileClass(c, reason::REFERENCE, *gone, wholeClassRef());
    return true;
}

/// Sees to it that the classes in the packages that the source imports are known.
void Maker::knowImports(SourceNode& source) {
    if (source.importsKnown >= base_) return;
    source.importsKnown = base_;
    for (Name* name : source.imports) {
        PackageNode& package = packageNode(name, false);
        if (!package.library) scanPackage(package);
    }
}

/// A class that has come may be what another one's name means now. Whether it was compiled.
bool Maker::remakeForHomonyms(ClassNode& c) {
    if (!c.refsCached) return false;
    knowImports(*c.source);
    for (const ImportRecord* import : c.imps.nodes()) {
        std::int32_t now = homonymsOf(c, *import);
        if (now == 0) continue;
        const DefRecord* recorded = import->varrefs.find(homonymsName());
        if (recorded != nullptr && recorded->fprint == now) continue;
        compileClass(c, reason::REFERENCE, import, wholeClassRef());
        return true;
    }
    return false;
}

/// Those that a simple name in the importer could also mean; 0 if there are none, as for most.
std::int32_t Maker::homonymsOf(const ClassNode& importer, const ImportRecord& import) {
    const SourceNode& source = *importer.source;
    auto isNear = [&](Name* place) {
        return place == importer.packageName || place == names().javaLang ||
               std::find(source.imports.begin(), source.imports.end(), place) != source.imports.end();
    };
    std::uint32_t found = 0;
    const ClassNode& imported = graph_.classNode(import);
    for (const ClassNode* c = &imported; c != nullptr; c = c->outer) {
        if (!c->hasHomonym) continue;
        for (const ClassNode* other = graph_.firstOfLastName(c->lastName); other; other = other->nextHomonym)
            if (other != c && isNear(other->outer == nullptr ? other->packageName : other->outer->name) &&
                exists(*other))
                found += mixed(other->name, 2);
    }
    return static_cast<std::int32_t>(found);
}

/// The member classes of the class that a simple name in the importer could mean, but for those that it means.
std::uint32_t Maker::hidingMembers(const ClassNode& importer, const ClassNode& c) {
    std::uint32_t found = 0;
    for (const ClassNode* member = c.members; member != nullptr; member = member->nextMember) {
        if (importer.imps.find(member->name) != nullptr || !exists(*member)) continue;
        for (const ClassNode* other = graph_.firstOfLastName(member->lastName); other; other = other->nextHomonym)
            if (other != member && importer.imps.find(other->name) != nullptr) found += mixed(member->name, 2);
    }
    return found;
}

} // namespace tarn
