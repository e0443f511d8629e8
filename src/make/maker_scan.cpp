// Packages and sources, held against the file system.
//
// A source is validated once per make, and a package's directories are scanned once: what was seen then carries a stamp
// that is not below that of the make's beginning.

#include "driver/reporter.h"
#include "make/maker.h"
#include "runtime/failure.h"
#include "store/file_path.h"
#include "store/path_list.h"
#include "syntax/dependency_scanner.h"

#include <string_view>

namespace tarn {

// ---- packages

/// The node of the package, read from its dependency file if it has to be. One that was only looked into is read again
/// when it is to be made: what was learned of it while it was stable gives way to what the file says.
PackageNode& Maker::packageNode(Name* name, bool forMaking) {
    PackageNode* old = graph_.findPackage(name);
    if (old != nullptr) {
        bool lacksImps = !old->keepImps && !old->library && !context_.options.nocheckstable;
        bool lacksAny = !old->keepImps || !old->keepRefs || (old->stable && !old->writtenHere);
        bool isToBeRead = lacksImps || (forMaking && lacksAny);
        if (!isToBeRead) {
            if (forMaking) old->stable = false;
            return *old;
        }
    }
    PackageNode& package = graph_.newPackage(name);
    StoreRef file = findDependencyFile(name);
    if (!file || !files_.read(package, *file, forMaking)) package.keepImps = package.keepRefs = package.fresh = true;
    if (old != nullptr) carryOver(*old, package);
    return package;
}

/// A package that was named to be made. A library, or a class of it, is left alone also then, unless there are sources
/// for its package beside it.
PackageNode& Maker::rootPackage(Name* name) {
    PackageNode* known = graph_.findPackage(name);
    if (known == nullptr) {
        StoreRef file = search(classPath_, dependencyFileStem(name).append(DEPENDENCY_EXTENSION));
        if (isInArchive(file.get())) known = &packageNode(name, false);
    }
    if (known != nullptr && known->library && scanPackage(*known) && known->sources.empty()) return *known;
    return packageNode(name, true);
}

/// Sources that were validated stay so. The directories are scanned once more, since a class that is out of date has
/// lost its file.
void Maker::carryOver(const PackageNode& old, PackageNode& package) {
    package.root = old.root;
    package.warnedMissing = old.warnedMissing;
    package.compiledHere = old.compiledHere;
    package.writtenHere = old.writtenHere;
    for (SourceNode* source : old.sources.nodes())
        if (source->state >= base_) package.sources.put(graph_.arena, source);
    for (ClassNode* c : old.classes.nodes())
        if (c->validated >= base_) package.classes.put(graph_.arena, c);
}

StoreRef Maker::findDependencyFile(const Name* packageName) {
    constexpr SearchTrace trace{.header = "looking for package dependency file ", .println = printlnProgress};
    std::string file = dependencyFileStem(packageName).append(DEPENDENCY_EXTENSION);
    StoreRef found = search(classPath_, file, context_.options.printsearch ? &trace : nullptr);
    if (found) found->close();
    return found;
}

StoreRef Maker::findClassFile(const ClassNode& c) {
    constexpr SearchTrace trace{.header = "looking for class ", .println = printlnProgress};
    std::string file = directoryOfPackage(c.name) + ".class";
    StoreRef found = search(classPath_, file, context_.options.printsearch ? &trace : nullptr);
    if (found) found->close();
    return found;
}

// ---- sources

namespace {

/// Takes what the package has recorded of the source, which has not changed since.
void adopt(SourceNode& source, const SourceNode& recorded) {
    source.packageName = recorded.packageName;
    source.imports = recorded.imports;
    source.defs = recorded.defs;
    source.date = recorded.date;
}

[[noreturn]] void failMisplaced(const SourceNode& source, const StoreRef& store, Name* directory) {
    ScopedSource here(store);
    bool isCase = equalIgnoringCase(source.packageName->view(), directory->view());
    reportError(0, isCase ? messages::packageDiffersInCase : messages::packageDoesNotMatchDirectory, source.packageName,
                source.path, directory);
    throw MakeAbort{};
}

} // namespace

/// Takes the source up for this make; null if it is passed over: an earlier one of its name has its place, or its
/// faults leave nothing of it. `directory` is the package whose directory it was found in, null for a source that was
/// named.
SourceNode* Maker::validateSource(const StoreRef& store, PackageNode* directory, bool forMaking) {
    std::optional<std::string> path = store->canonicalPath();
    if (!path) {
        ScopedSource none(nullptr);
        reportError(0, messages::cannotRead, store->path());
        throw MakeAbort{};
    }
    SourceNode& source = graph_.sourceNode(Name::fromString(*path));
    if (source.state >= base_) return source.packageName == nullptr ? nullptr : &source;
    Date date = store->date();
    if (date == NO_DATE && directory != nullptr) return nullptr; // no file
    auto isTaken = [this](const SourceNode* other) { return other != nullptr && other->state >= base_; };
    source.store = store;
    if (source.date != date && directory != nullptr) {
        const SourceNode* recorded = directory->sources.find(source.name);
        if (isTaken(recorded)) return nullptr;
        if (recorded != nullptr && recorded->date == date) adopt(source, *recorded);
    }
    if (source.date != date && !scanSource(source, date)) {
        source.state = stamp_;
        return nullptr;
    }
    // One that is empty, or commented out as a whole, may lie anywhere.
    bool isEmpty = source.defs.empty() && source.packageName == graph_.unnamedPackage;
    if (isEmpty && directory != nullptr) source.packageName = directory->name;

    PackageNode& package = packageNode(source.packageName, forMaking);
    if (directory != nullptr && directory->name != package.name) failMisplaced(source, store, directory->name);
    if (isTaken(package.sources.find(source.name))) return nullptr;
    source.state = stamp_;
    package.sources.put(graph_.arena, &source);
    for (std::size_t i = source.defs.size(); i-- != 0;) validateClass(source.defs[i], package, source);
    return &source;
}

/// A faulty source is told of by the compile of its classes. One whose faults leave no class is not compiled, so its
/// faults are told here, and it is passed over; the next run will look at it again. False then.
bool Maker::scanSource(SourceNode& source, Date date) {
    if (!listener_.parsing(*this, *source.store)) throw MakeAbort{};
    ScopedReporting keep;
    DependencyScanner scanner;
    int errors = 0;
    if (rebuild_) {
        errors = reporter_->errorCount();
        compiler_.parseWith(source.store, scanner, reporter_);
        errors = reporter_->errorCount() - errors;
        if (errors != 0) throw MakeAbort{};
    } else {
        SilentReporter silent;
        scanner.wantsCode = false;
        compiler_.parseWith(source.store, scanner, &silent);
        errors = silent.errorCount();
    }
    source.packageName = scanner.packageName;
    source.imports = graph_.arena.copyArray<Name*>(scanner.imports);
    source.defs = graph_.arena.copyArray<Name*>(scanner.classes);
    source.date = date;
    if (errors == 0 || !source.defs.empty()) return true;
    DependencyScanner again;
    compiler_.parseWith(source.store, again, reporter_);
    source.packageName = nullptr;
    source.date = 0;
    return false;
}

// ---- classes

void Maker::validateClass(Name* flatName, PackageNode& package, SourceNode& source) {
    ClassNode& c = graph_.classNode(flatName);
    if (c.validated < base_) {
        c.validated = stamp_;
        c.store = nullptr;
        package.classes.put(graph_.arena, &c);
    } else if (c.source != nullptr && c.source != &source) {
        ScopedSource here(source.store);
        std::string text = c.name->toString() + ", defined in " + source.path->toString() + " and also defined in " +
                           c.source->path->toString();
        reportError(0, messages::duplicateClass, text);
        throw MakeAbort{};
    }
    c.source = &source;
}

void Maker::validateClass(Name* flatName, PackageNode& package, const StoreRef& file) {
    ClassNode& c = graph_.classNode(flatName);
    if (c.validated < base_) {
        c.validated = stamp_;
        c.source = nullptr;
        c.store = nullptr;
        package.classes.put(graph_.arena, &c);
    }
    if (!c.store) c.store = file;
}

// ---- directories

namespace {

using Listing = std::optional<std::vector<std::string>>;

/// The files of a package in one entry of a path.
struct PackageDirectory {
    StoreRef store; ///< null if there is none
    Listing names;
};

std::vector<PackageDirectory> listPackage(const PathList& path, const Name* packageName, bool isUnnamed) {
    std::vector<PackageDirectory> directories;
    if (!path) return directories;
    std::string relative = directoryOfPackage(packageName);
    for (const StoreRef& entry : *path) {
        PackageDirectory directory;
        try {
            directory.store = isUnnamed ? entry : entry->file(relative);
            if (directory.store) directory.names = directory.store->list();
        } catch (const IoFailure&) { // passed over
        }
        if (directory.names) directories.push_back(std::move(directory));
    }
    return directories;
}

} // namespace

/// Brings the package's sources and classes in line with its directories; whether there is such a package, if only an
/// empty directory of it. Sources come first, so that a class that exists both ways has both.
bool Maker::scanPackage(PackageNode& package) {
    if (isUnchecked(package)) return true;
    if (package.scanned >= base_) return package.found || !package.classes.empty();
    package.scanned = base_;
    bool isUnnamed = package.name == graph_.unnamedPackage;
    std::vector<PackageDirectory> directories = listPackage(sourcePath_, package.name, isUnnamed);
    for (const PackageDirectory& directory : directories)
        for (const std::string& name : *directory.names)
            if (name.ends_with(".java"))
                if (StoreRef file = directory.store->file(name)) validateSource(file, &package, false);
    package.found = !directories.empty();
    if (sourcePath_ != classPath_) directories = listPackage(classPath_, package.name, isUnnamed);
    package.found = package.found || !directories.empty();
    constexpr std::string_view extension = ".class";
    std::string flatName = isUnnamed ? std::string() : package.name->toUtf() + ".";
    std::size_t prefix = flatName.size();
    for (const PackageDirectory& directory : directories) {
        for (const std::string& name : *directory.names) {
            if (!name.ends_with(extension) || name.size() == extension.size()) continue;
            flatName.resize(prefix);
            flatName += Name::fromString(name.substr(0, name.size() - extension.size()))->view();
            if (flatName.find('.', prefix) != std::string::npos) continue; // no class can be called so
            if (StoreRef file = directory.store->file(name)) validateClass(Name::fromBytes(flatName), package, file);
        }
    }
    forgetUnseen(package);
    return package.found || !package.classes.empty();
}

void Maker::forgetUnseen(PackageNode& package) {
    package.sources.keepIf([this](const SourceNode* source) { return source->state >= base_; });
    package.classes.keepIf([this](const ClassNode* c) { return c->validated >= base_; });
}

} // namespace tarn
