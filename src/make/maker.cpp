#include "make/maker.h"

#include "driver/reporter.h"
#include "make/maker_class_file.h"
#include "runtime/failure.h"
#include "store/file_path.h"
#include "store/null_store.h"

#include <algorithm>
#include <memory>
#include <new>

namespace tarn {

namespace {

/// Keeps a make's context and reporter current for its own life.
class CurrentMake {
public:
    CurrentMake(Context& made, Reporter* reporter) {
        made.makeCurrent();
        setReporter(reporter);
    }
    ~CurrentMake() {
        currentOptions = nullptr;
        setReporter(nullptr);
        Context::current = nullptr;
    }
    CurrentMake(const CurrentMake&) = delete;
    CurrentMake& operator=(const CurrentMake&) = delete;
};

} // namespace

Maker::Maker(MakeListener& listener) : files_(graph_), listener_(listener) {
    context_.options.quiet = true;
    auto reader = std::make_unique<MakerClassFile>(*this);
    classFile_ = reader.get();
    context_.classReader = std::move(reader);
}

Maker::~Maker() = default;

void Maker::setClassPath(PathList path) {
    context_.classPath = path;
    classPath_ = std::move(path);
}

void Maker::setSourcePath(PathList path) {
    sourcePath_ = std::move(path);
    sourceCanonicalPaths_.clear();
    if (!sourcePath_) return;
    for (const StoreRef& entry : *sourcePath_) {
        std::optional<std::string> canonical = entry->canonicalPath();
        if (canonical && canonical->ends_with(FILE_SEPARATOR)) canonical->pop_back();
        sourceCanonicalPaths_.push_back(std::move(canonical));
    }
}

// ---- the passes

void Maker::makeThem(const MakeRoots& roots) {
    require(!compiling_, "make within a compile");
    stamp_ += STAMP_STEP;
    base_ = stamp_;
    bool isRestart = false;
    do {
        remake_ = false;
        CurrentMake current(context_, reporter_);
        context_.options.keepPool = false;
        context_.options.trackDependencies = true;
        try {
            makePasses(roots, isRestart);
        } catch (const CompileAbort&) { // reported, like what ends a pass
        } catch (const MakeAbort&) {
        } catch (const std::bad_alloc&) {
            ScopedSource none(nullptr);
            reportError(0, messages::outOfMemory);
        } catch (...) {
            remake_ = false;
            endPass();
            throw;
        }
        endPass();
        if (!remake_) warnOfMissingPackages(roots);
        isRestart = true;
    } while (remake_);
    rebuild_ = false;
}

void Maker::makePasses(const MakeRoots& roots, bool isRestart) {
    if (!isRestart) {
        rebuild_ = roots.rebuild;
        validateRoots(roots);
        if (!roots.inputSources.empty()) {
            compileBatch(roots.inputSources);
            return;
        }
        stamp_ -= STAMP_STEP;
        rebuild_ = roots.rebuild;
    }
    do {
        pass(roots);
        rebuild_ = false;
    } while (compiledInPass_);
}

void Maker::validateRoots(const MakeRoots& roots) {
    rootSources_.clear();
    auto isOfProject = [&roots](const Store& store) {
        return std::any_of(roots.projectSources.begin(), roots.projectSources.end(),
                           [&store](const StoreRef& other) { return other->equals(store); });
    };
    for (const StoreRef& store : roots.sources) {
        SourceNode* source = validateSource(store, nullptr, true);
        rootSources_.push_back(source);
        if (source == nullptr) continue;
        PackageNode& package = packageNode(source->packageName, true);
        if (!isOfProject(*store)) checkSourcePath(*source, package);
    }
    for (const std::string& name : roots.classes) rootPackage(graph_.classNode(Name::fromString(name)).packageName);
    for (const std::string& name : roots.packages) rootPackage(Name::fromString(name)).root = true;
    for (const StoreRef& store : roots.inputSources) validateSource(store, nullptr, true);
    rebuild_ = false;
    for (const StoreRef& store : roots.projectSources)
        if (const SourceNode* source = validateSource(store, nullptr, false)) packageNode(source->packageName, true);
    for (const std::string& name : roots.projectPackages) packageNode(Name::fromString(name), true);
}

/// A source that the scan of its package would not find is compiled all the same, but other runs will not know of it.
void Maker::checkSourcePath(const SourceNode& source, const PackageNode& package) {
    std::string relative(1, FILE_SEPARATOR);
    if (package.name != graph_.unnamedPackage) relative += directoryOfPackage(package.name) + FILE_SEPARATOR;
    relative += source.name->toString();
    std::string path = source.path->toString();
    for (const std::optional<std::string>& entry : sourceCanonicalPaths_)
        if (entry && equalIgnoringCase(*entry + relative, path)) return;
    ScopedSource none(nullptr);
    reportWarning(0, messages::sourceNotOnSourcePath, path, relative);
}

void Maker::pass(const MakeRoots& roots) {
    compiledInPass_ = writtenInPass_ = false;
    stamp_ += STAMP_STEP;
    for (const SourceNode* source : rootSources_)
        if (source != nullptr) makeSourceRefs(*source);
    for (const SourceNode* source : rootSources_)
        if (source != nullptr) makeSourceDefs(*source);
    for (const std::string& name : roots.classes) {
        ClassNode& c = graph_.classNode(Name::fromString(name));
        makeClass(c, packageNode(c.packageName, false));
    }
    for (const std::string& name : roots.packages) makePackage(packageNode(Name::fromString(name), false));
}

// ---- the end

/// Takes off the marks of sources that are in the air no more; at the end of the make, lets go of the file system and
/// writes what was made as a whole.
void Maker::endPass() {
    compiling_ = false;
    compiled_ = expected_ = nullptr;
    if (remake_) return landAll();
    try {
        closeNodes();
    } catch (const MakeAbort&) { // an unwritable file, reported
    }
}

/// What was in the air when the pass was abandoned is found again by the next one.
void Maker::landAll() {
    std::vector<Name*> landed;
    for (ClassNode& c : graph_.classes) {
        if (c.store != NullStore::instance()) continue;
        c.store = nullptr;
        landed.push_back(c.name);
    }
    classFile_->forgetUnfinished(landed);
}

void Maker::closeNodes() {
    for (ClassNode& c : graph_.classes) {
        if (c.state == stamp_ + progress::DONE) listener_.classUpdated(*this, c.name);
        c.symbol = nullptr;
        c.store = nullptr;
        c.source = nullptr;
    }
    for (SourceNode& source : graph_.sources) source.store = nullptr;
    missing_.clear();
    graph_.packages.keepIf([this](const PackageNode* package) {
        if (package->stable || !package->classes.empty()) return true;
        if (package->scanned >= base_) missing_.insert(package->name);
        return false;
    });
    for (PackageNode* package : graph_.packages.nodes())
        if (!package->stable) closePackage(*package);
}

/// A pass that wrote a class file and did not end by itself may have left importers behind, so nothing is stable after
/// it.
void Maker::closePackage(PackageNode& package) {
    if (writtenInPass_ || package.classes.empty()) return;
    for (const ClassNode* c : package.classes.nodes())
        if (c->state < stamp_ + progress::DONE || !DependencyFiles::hasRoomForImports(*c)) return;
    package.stable = true;
    writeDependencyFile(package);
}

void Maker::warnOfMissingPackages(const MakeRoots& roots) {
    ScopedSource none(nullptr);
    for (const std::string& name : roots.packages)
        if (missing_.contains(Name::fromString(name))) reportWarning(0, messages::packageWithoutClasses, name);
}

void Maker::writeDependencyFile(PackageNode& package) {
    if (!package.keepImps || !package.keepRefs) return;
    files_.write(package, outputDirectory_);
    package.writtenHere = true;
    package.relearned = false;
}

void Maker::close() {
    CurrentMake current(context_, reporter_);
    try {
        for (PackageNode* package : graph_.packages.nodes()) {
            if (package->classes.empty() || package->library) continue;
            bool wasMade = package->state > 0 && !package->warnedMissing;
            bool isWanted = !package->stable && (!package->fresh || wasMade || package->compiledHere);
            if (isWanted || (package->stable && package->relearned)) writeDependencyFile(*package);
        }
    } catch (const MakeAbort&) { // an unwritable file, reported
    }
    classPath_ = sourcePath_ = nullptr;
    outputDirectory_ = nullptr;
    reporter_ = nullptr;
}

// ---- libraries

std::vector<Bytes> Maker::describeLibrary(const std::vector<std::string>& names) {
    CurrentMake current(context_, reporter_);
    stamp_ += STAMP_STEP;
    base_ = stamp_;
    std::vector<PackageNode*> packages;
    for (const std::string& name : names) {
        PackageNode& package = packageNode(Name::fromString(name), true);
        scanPackage(package);
        package.stable = true;
        packages.push_back(&package);
        for (ClassNode* c : package.classes.nodes()) {
            c->date = c->store->date();
            c->refsCached = false;
            ClassSymbol* symbol = c->symbol = classFile_->readApart(c->name, *c->store, true);
            cacheDefs(*c);
            cacheImps(*c);
            classFile_->freePool(symbol->pool);
            c->symbol = nullptr;
        }
    }
    std::vector<Bytes> files;
    for (const PackageNode* package : packages) {
        for (const ClassNode* c : package->classes.nodes()) {
            for (ImportRecord* import : c->imps.nodes()) {
                const ClassNode& imported = graph_.classNode(*import);
                import->date = imported.date;
                import->fprint = imported.fprint;
            }
        }
        std::span<const std::uint8_t> contents = files_.encode(*package, LIBRARY_DATE);
        files.emplace_back(contents.begin(), contents.end());
    }
    return files;
}

} // namespace tarn
