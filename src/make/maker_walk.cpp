// The walk of a pass: from the roots over imports, class by class, to what is out of date.
//
// A class is decided about once per pass (`classChanged`, by dates and the files), its imports are made before it is
// compared with them, and it is compiled if its superclass or an interface has changed at all, or if something that it
// uses of another import has.

#include "driver/reporter.h"
#include "make/maker.h"
#include "make/maker_class_file.h"
#include "runtime/failure.h"
#include "store/null_store.h"

namespace tarn {

namespace {

bool isInTheAir(const ClassNode& c) {
    return c.store == NullStore::instance();
}

/// The first of the class's supertypes for which that holds; null if there is none.
template <class Predicate>
const ImportRecord* findSupertype(const ClassNode& c, Predicate holds) {
    if (c.superclass != nullptr && holds(*c.superclass)) return c.superclass;
    for (const ImportRecord* import : c.interfaces)
        if (holds(*import)) return import;
    return nullptr;
}

/// Of the tools that make archives, which count in steps of two seconds, some round dates up as dates are here, and
/// some down.
bool hasDate(const Store& file, Date recorded) {
    Date date = file.date();
    return date == recorded || (date != NO_DATE && date + 1 == recorded && isInArchive(&file));
}

} // namespace

/// Whether the package is taken as it is.
bool Maker::isUnchecked(const PackageNode& package) const {
    return package.stable && context_.options.nocheckstable;
}

/// Whether an import of this package draws in all of it.
bool Maker::makesAsAWhole(const PackageNode& package) const {
    if (context_.options.nomakestable || package.name == graph_.unnamedPackage) return false;
    return package.root || package.fresh;
}

void Maker::makeSourceRefs(const SourceNode& source) {
    if (context_.options.nomakestable) return;
    for (std::size_t i = source.imports.size(); i-- != 0;) {
        if (source.imports[i] == source.packageName) continue;
        PackageNode& package = packageNode(source.imports[i], false);
        if (makesAsAWhole(package)) makePackage(package);
    }
}

void Maker::makeSourceDefs(const SourceNode& source) {
    for (std::size_t i = source.defs.size(); i-- != 0;) {
        ClassNode& c = graph_.classNode(source.defs[i]);
        if (c.state < stamp_ + progress::IN_HAND) makeClass(c, packageNode(c.packageName, false));
    }
}

/// The tables may grow under the walk: a compile can bring further sources.
void Maker::makePackage(PackageNode& package) {
    if (isUnchecked(package) || package.library) return;
    scanPackage(package);
    if (package.state >= stamp_ + progress::IN_HAND) return;
    package.state = stamp_ + progress::IN_HAND;
    for (std::uint32_t i = 0; i < package.sources.size(); i++) makeSourceRefs(*package.sources[i]);
    for (std::uint32_t i = 0; i < package.sources.size(); i++) makeSourceDefs(*package.sources[i]);
    for (std::uint32_t i = 0; i < package.classes.size(); i++) makeClass(*package.classes[i], package);
    if (package.stable || compiledInPass_) return;
    closePackage(package);
    package.closed = stamp_;
}

// ---- a class against the files

/// Decides once per pass whether the class itself has changed, and why it is to be compiled if it is.
bool Maker::classChanged(ClassNode& c, PackageNode& package) {
    if (c.state >= stamp_) return false;
    c.state = stamp_;
    c.recompileReason = reason::NONE;
    if (isUnchecked(package)) return false;
    scanPackage(package);
    if (!c.store) {
        c.recompileReason = reason::NO_CLASS_FILE;
    } else if (c.source != nullptr) {
        c.recompileReason = reasonOfSource(c, package);
        if (c.recompileReason != reason::NONE) giveUpFile(c);
    }
    if (c.recompileReason != reason::NONE) {
        flushClass(c);
        return true;
    }
    if (hasDate(*c.store, c.date)) return false;
    if (c.source != nullptr) {
        c.recompileReason = c.date == 0 ? reason::FIRST_BUILD : reason::CLASS_DATE;
        giveUpFile(c);
        flushClass(c);
        return true;
    }
    // A class from elsewhere cannot be compiled; who imports it will look at its fingerprint.
    flushClass(c);
    c.date = c.store->date();
    c.sourceName = nullptr;
    c.sourceDate = 0;
    return true;
}

/// A compile is going to replace the class file, if there is one.
void Maker::giveUpFile(ClassNode& c) {
    if (c.store && !isInTheAir(c)) c.replaced = c.store->date();
    c.store = nullptr;
}

int Maker::reasonOfSource(const ClassNode& c, const PackageNode& package) const {
    if (rebuild_ && !package.stable) return reason::REBUILD;
    if (c.sourceName == nullptr) return package.stable ? reason::NONE : reason::FIRST_BUILD;
    if (c.sourceName != c.source->name) return reason::SOURCE_NAME;
    return c.sourceDate == c.source->date ? reason::NONE : reason::SOURCE_DATE;
}

/// Drops what is remembered of a class that has changed, which breaks the promise of a stable package.
void Maker::flushClass(ClassNode& c) {
    c.symbol = nullptr;
    c.impsCached = c.supersCached = c.refsCached = c.defsCached = false;
    c.imps = {};
    c.superclass = nullptr;
    c.interfaces = {};
    c.fprint = 0;
    c.vardefs = c.fundefs = {};
    if (c.store || c.source != nullptr) leaveStable(c, true);
}

/// The class's package turns out to be no stable one: it is read again as one that is made, and the pass starts over.
void Maker::leaveStable(const ClassNode& c, bool withWarning) {
    PackageNode* package = graph_.findPackage(c.packageName);
    if (package == nullptr || !package->stable) return;
    if (package->writtenHere) { // this very run took it for stable, and still has all that it knew
        package->stable = false;
        return;
    }
    packageNode(c.packageName, true);
    ScopedSource none(nullptr);
    if (withWarning) reportWarning(0, messages::changedInStablePackage, c.name, c.packageName);
    remake_ = true;
    throw MakeAbort{};
}

bool Maker::classChanged(Name* flatName) {
    ClassNode& c = graph_.classNode(flatName);
    if (c.state >= stamp_) return false;
    PackageNode& package = packageNode(c.packageName, false);
    if (classChanged(c, package)) return true;
    if (isUnchecked(package) || package.library || isInTheAir(c) || !c.impsCached) return false;
    std::span<ImportRecord* const> imports = c.imps.nodes();
    for (const ImportRecord* import : imports)
        if (classChanged(import->name)) classFile_->redoClass(import->name);
    return false;
}

StoreRef Maker::classStore(Name* flatName) {
    ClassNode& c = graph_.classNode(flatName);
    PackageNode& package = packageNode(c.packageName, false);
    classChanged(c, package);
    return classStore(c, package);
}

StoreRef Maker::storeForCompile(Name* flatName) {
    ClassNode& c = graph_.classNode(flatName);
    PackageNode& package = packageNode(c.packageName, false);
    classChanged(c, package);
    bool isAtHand = c.recompileReason == reason::NONE && c.store && !isInTheAir(c) && !isUnchecked(package);
    if (isAtHand && remakeUndecided(c)) return NullStore::instance();
    return classStore(c, package);
}

StoreRef Maker::classStore(ClassNode& c, PackageNode& package) {
    if (isInTheAir(c)) return c.store;
    if (c.recompileReason == reason::NONE) {
        if (c.store) return c.store;
        if (isUnchecked(package)) {
            c.store = findClassFile(c);
            if (c.store) return c.store;
            throw ClassNotFound("class " + c.name->toString() + " not found in stable package");
        }
        c.recompileReason = reason::NO_CLASS_FILE;
    }
    if (c.source != nullptr) return compileClass(c, c.recompileReason);
    if (c.store) throw ClassNotFound("class " + c.name->toString() + " needs to be recompiled, but no source found");
    throw ClassNotFound("neither class nor source found for " + c.name->toString());
}

bool Maker::classListChanged(Name* packageName) {
    PackageNode& package = packageNode(packageName, false);
    scanPackage(package);
    return package.listed < package.scanned;
}

std::vector<Name*> Maker::listClasses(Name* packageName, bool& found) {
    PackageNode& package = packageNode(packageName, false);
    found = scanPackage(package);
    std::vector<Name*> names;
    names.reserve(package.classes.size());
    for (const ClassNode* c : package.classes.nodes()) names.push_back(c->simpleName);
    package.listed = base_;
    return names;
}

// ---- a class against its imports

void Maker::makeClass(ClassNode& c, PackageNode& package) {
    if (c.state >= stamp_ + progress::IN_HAND) return;
    if (classChanged(c, package) && c.recompileReason != reason::NONE) {
        try {
            classStore(c, package);
            return;
        } catch (const ClassNotFound& failure) {
            ScopedSource none(nullptr);
            reportError(0, messages::cannotAccess, "class", c.name, failure.what());
        }
        flushClass(c);
        throw MakeAbort{};
    }
    c.state = stamp_ + progress::IN_HAND;
    if (isUnchecked(package) || package.library) return;
    if (isLeftover(c)) {
        c.state = stamp_ + progress::DONE;
        return;
    }
    if (!c.impsCached) cacheImps(c);
    bool isOurs = c.source != nullptr && c.sourceName != nullptr;
    if (remakeForGoneImports(c)) return;
    makeImports(c, package);
    if (isOurs && remakeForHomonyms(c)) return;
    if (c.sourceName != nullptr && remakeForSupertypes(c)) return;
    if (remakeForReferences(c, package)) return;
    updateClass(c);
}

void Maker::makeImports(const ClassNode& c, const PackageNode& package) {
    for (std::uint32_t i = 0; i < c.imps.size(); i++) {
        ClassNode& imported = graph_.classNode(*c.imps[i]);
        if (imported.state >= stamp_ + progress::IN_HAND) continue;
        PackageNode& home = packageNode(imported.packageName, false);
        if (&home != &package && makesAsAWhole(home))
            makePackage(home);
        else
            makeClass(imported, home);
    }
}

/// A class depends on all of its superclass and interfaces. Whether it was compiled.
bool Maker::remakeForSupertypes(ClassNode& c) {
    auto hasChanged = [&](const ImportRecord& import) {
        ClassNode& imported = graph_.classNode(import);
        if (isAsSeen(import, imported)) return false;
        if (!imported.defsCached) cacheDefs(imported);
        return import.fprint != imported.fprint || checkWideRefs(c, import, imported) != nullptr;
    };
    if (c.superclass != nullptr && hasChanged(*c.superclass)) {
        compileClass(c, reason::SUPERCLASS, c.superclass);
        return true;
    }
    for (const ImportRecord* import : c.interfaces) {
        if (import->date == 0 || !hasChanged(*import)) continue;
        compileClass(c, reason::INTERFACE, import);
        return true;
    }
    return false;
}

/// Whether the supertype is another one than its importer has seen, or is gone.
bool Maker::hasMoved(const ImportRecord& import) {
    ClassNode& supertype = graph_.classNode(import);
    if (import.date == 0) return false;
    if (!exists(supertype)) return true;
    if (import.date == supertype.date) return false;
    if (!supertype.defsCached) cacheDefs(supertype);
    return import.fprint != supertype.fprint;
}

/// Whether the class is to be compiled before this pass is over, or may be: it is out of date, or a supertype is.
bool Maker::isUnsettled(ClassNode& c, std::unordered_set<const ClassNode*>& seen) {
    if (isOfLibrary(c) || !seen.insert(&c).second) return false;
    classChanged(c, packageNode(c.packageName, false));
    if (c.source != nullptr && (!c.store || isInTheAir(c) || c.recompileReason != reason::NONE)) return true;
    if (c.state >= stamp_ + progress::WRITTEN) return false;
    return findSupertype(c, [&](const ImportRecord& import) {
               ClassNode& supertype = graph_.classNode(import);
               return isUnsettled(supertype, seen) || (!isOfLibrary(supertype) && hasMoved(import));
           }) != nullptr;
}

/// Whether the class's file has abstract methods, which may be those of its interfaces.
bool Maker::isAbstractInFile(ClassNode& c) {
    if (!c.defsCached) cacheDefs(c);
    return (c.flags & flag::INTERFACE) == 0 && c.abstracts != 0;
}

/// A compile may need a class before the walk has decided about it. The class's file can hold methods of interfaces
/// that have them no more, so the compile takes it along if a supertype is another one than it has seen, or can become
/// one; and also if a name in it has come to mean another class. Whether it does.
bool Maker::remakeUndecided(ClassNode& c) {
    bool isUndecided = compiling_ && c.state >= stamp_ && c.state <= stamp_ + progress::IN_HAND;
    if (!isUndecided || c.source == nullptr || c.sourceName == nullptr || !c.impsCached) return false;
    if (remakeForGoneImports(c) || remakeForHomonyms(c)) return true;
    const ImportRecord* changed = findSupertype(c, [&](const ImportRecord& import) {
        ClassNode& supertype = graph_.classNode(import);
        std::unordered_set<const ClassNode*> seen;
        if (import.date == 0 || isOfLibrary(supertype)) return false;
        return isUnsettled(supertype, seen) ? isAbstractInFile(c) : hasMoved(import);
    });
    if (changed == nullptr) return false;
    compileClass(c, changed == c.superclass ? reason::SUPERCLASS : reason::INTERFACE, changed);
    return true;
}

/// Compares what the class uses with what its imports offer now. Whether it was compiled.
///
/// For a class of a stable package that has lost its source only what is gone counts. From then on it no more agrees
/// with that source: should it come back, the class is out of date.
bool Maker::remakeForReferences(ClassNode& c, PackageNode& package) {
    bool hasRefs = c.refsCached;
    bool isStrict = c.sourceName != nullptr && (c.source != nullptr || (hasRefs && !package.stable));
    bool isIncomparable = false;
    for (std::uint32_t i = 0; i < c.imps.size(); i++) {
        ImportRecord& import = *c.imps[i];
        ClassNode& imported = graph_.classNode(import);
        if (import.date != 0 && isAsSeen(import, imported)) continue;
        if (!imported.defsCached) cacheDefs(imported);
        bool isSame = import.date != 0 && import.fprint == imported.fprint;
        if (isStrict && !isSame && !hasRefs) {
            compileClass(c, reason::NO_REFERENCES);
            return true;
        }
        const DefRecord* changed = nullptr;
        if (!isSame) changed = isStrict ? strictCheckRefs(import, imported) : looseCheckRefs(c, import, imported);
        if (changed == nullptr) changed = checkWideRefs(c, import, imported);
        if (changed != nullptr) {
            compileClass(c, reason::REFERENCE, &import, changed);
            return true;
        }
        isIncomparable = isIncomparable || (!isSame && !isStrict);
        if (!takeAsSeen(import, imported)) continue;
        package.relearned = package.stable;
        if (c.source == nullptr) c.sourceDate = 0;
    }
    if (!isIncomparable) return false;
    warnOfMissingSource(c, package);
    if (c.sourceName != nullptr) c.refsCached = hasRefs;
    return false;
}

void Maker::warnOfMissingSource(const ClassNode& c, PackageNode& package) {
    ScopedSource none(nullptr);
    if (c.sourceName != nullptr) {
        reportWarning(0, messages::sourceOfClassMissing, c.name);
    } else if (package.fresh && !package.warnedMissing) {
        package.warnedMissing = true;
        reportWarning(0, messages::missingSources, package.name, c.name);
    }
}

} // namespace tarn
