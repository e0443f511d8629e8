// Where the make engine and the compiler meet: what is out of date goes into a batch, or into the one that runs, and
// each class file that comes out is recorded.

#include "driver/reporter.h"
#include "make/change_detection.h"
#include "make/maker.h"
#include "make/maker_class_file.h"
#include "runtime/failure.h"
#include "runtime/scoped_flag.h"
#include "store/directory_store.h"
#include "store/null_store.h"

#include <utility>

namespace tarn {

namespace {

std::string shownName(const DefRecord* member) {
    std::string name = member->name->toString();
    if (name.front() != WIDE_REFERENCE) return name;
    return name.size() == 1 ? "class" : name.substr(1);
}

} // namespace

std::string Maker::reasonText(const ClassNode& c, int reason, const ImportRecord* import,
                              const DefRecord* member) const {
    std::string name = c.name->toString();
    std::string source = c.source == nullptr ? std::string() : c.source->store->toString();
    switch (reason) {
    case reason::REBUILD: return "rebuilding " + name;
    case reason::FIRST_BUILD: return "first build of " + name;
    case reason::NO_CLASS_FILE: return "class " + name + " not found on classpath";
    case reason::SOURCE_NAME: return "name of source " + source + " has changed";
    case reason::SOURCE_DATE: return "date of source " + source + " has changed";
    case reason::CLASS_DATE: return "date of class " + name + " has changed";
    case reason::SUPERCLASS: return "superclass " + import->name->toString() + " of class " + name + " has changed";
    case reason::INTERFACE: return "interface " + import->name->toString() + " of class " + name + " has changed";
    case reason::REFERENCE:
        return import->name->toString() + "." + shownName(member) + " referenced by class " + name + " has changed";
    case reason::NO_REFERENCES: return "previous compile of " + name + " failed";
    default: throw InternalError("reason of a compile");
    }
}

/// Compiles the source of the class, in a batch of its own or in the one that runs. `import` is given for a change of a
/// supertype or reference, `member` for one of a reference.
StoreRef Maker::compileClass(ClassNode& c, int reason, const ImportRecord* import, const DefRecord* member) {
    std::string text = reasonText(c, reason, import, member);
    SourceNode* source = c.source;
    if (source == nullptr) {
        if (!compiling_) setSource(nullptr);
        reportError(0, messages::cannotAccess, "class", c.name, "no source found; must be compiled, because " + text);
        throw MakeAbort{};
    }
    if (reason == reason::REFERENCE || reason == reason::NO_REFERENCES) leaveStable(c, false);
    if (!listener_.needsCompile(*this, *source->store, text)) throw MakeAbort{};
    for (std::size_t i = source->defs.size(); i-- != 0;) {
        ClassNode& defined = graph_.classNode(source->defs[i]);
        flushClass(defined);
        giveUpFile(defined);
        defined.store = NullStore::instance();
        defined.state = stamp_ + progress::IN_HAND;
    }
    classFile_->outdateInheritors(source->defs);
    if (compiling_) {
        expected_->push_back(&c);
        compiler_.compileOnDemand(source->store);
        return NullStore::instance();
    }
    compileBatch({source->store});
    if (c.store != NullStore::instance()) return c.store;
    failUnexpected(c);
}

/// The source has the date that is recorded, but not the classes: the next run scans it.
void Maker::failUnexpected(const ClassNode& c) {
    c.source->date = 0;
    ScopedSource here(c.source->store);
    reportError(0, messages::cannotAccess, "class", c.name, "source does not contain expected class");
    throw MakeAbort{};
}

namespace {

/// Lets a batch collect what it wrote, however it ends.
template <class List>
class ScopedList {
public:
    ScopedList(List*& current, List& list) : current_(current), previous_(std::exchange(current, &list)) {}
    ~ScopedList() { current_ = previous_; }
    ScopedList(const ScopedList&) = delete;
    ScopedList& operator=(const ScopedList&) = delete;

private:
    List*& current_;
    List* previous_;
};

} // namespace

/// What is going to be compiled may be imported by packages that this pass has closed already.
void Maker::reopenPackages() {
    for (PackageNode* package : graph_.packages.nodes())
        if (package->closed == stamp_) package->stable = false;
}

void Maker::compileBatch(const std::vector<StoreRef>& sources) {
    std::vector<ClassNode*> written;
    std::vector<ClassNode*> expected;
    compiledInPass_ = true;
    reopenPackages();
    {
        ScopedList writtenHere(compiled_, written);
        ScopedList expectedHere(expected_, expected);
        ScopedFlag running(compiling_);
        classFile_->forgetOutdated();
        context_.uses.take();
        compiler_.compile(sources, outputDirectory_, reporter_);
    }
    for (const ClassNode* c : written) {
        uses_.erase(c->name);
        uses_.erase(c->symbol->sourcePath);
    }
    for (const NameUse& use : context_.uses.take()) uses_[use.by].push_back(use);
    while (!written.empty()) {
        ClassNode* c = written.back();
        written.pop_back();
        updateClass(*c);
    }
    if (reporter_->errorCount() != 0) throw MakeAbort{};
    for (const ClassNode* c : expected)
        if (c->store == NullStore::instance()) failUnexpected(*c);
}

/// Records the state of a class that is up to date. One that was written in this pass learns what it imports and uses
/// from its constant pool; it stays behind if something that it imports was not generated, after an error, and is
/// compiled again when that is mended.
void Maker::updateClass(ClassNode& c) {
    if (c.state == stamp_ + progress::WRITTEN) {
        try {
            if (!learnWritten(c)) return;
        } catch (const NotGenerated&) { // a supertype of something that it imports
            c.impsCached = c.supersCached = c.refsCached = false;
            c.imps = {};
            c.superclass = nullptr;
            c.interfaces = {};
            return;
        }
    }
    c.state = stamp_ + progress::DONE;
}

/// Whether all that it imports is there.
bool Maker::learnWritten(ClassNode& c) {
    if (!c.impsCached) cacheImps(c);
    bool isWhole = true;
    for (std::uint32_t i = 0; i < c.imps.size(); i++) {
        ImportRecord& import = *c.imps[i];
        ClassNode& imported = graph_.classNode(import);
        if (imported.store == NullStore::instance()) {
            isWhole = false;
            continue;
        }
        if (!imported.defsCached) learnFingerprint(imported);
        import.fprint = imported.fprint;
        import.date = imported.date;
    }
    if (!isWhole) return false;
    if (!c.refsCached) cacheRefs(c);
    recordWideRefs(c);
    recordHomonyms(c);
    uses_.erase(c.name);
    return true;
}

// ---- what the compiler tells

namespace {

/// The date of a class file that was just written. Importers take a class as unchanged while its date is the one that
/// they have seen, and dates are coarse, so a class that is written again within a moment gets a date of its own.
///
/// The one before has the date that is recorded, or that its file has, where nothing is recorded. What comes right
/// after that date is put on a full unit as well, since some archives round down.
Date dateOfWritten(Store& out, Date recorded, Date replaced) {
    constexpr Date MOMENT = 1800; // an hour; what is younger than that has been dated by another clock
    Date date = out.date();
    Date latest = date - 2;
    for (Date before : {recorded, replaced})
        if (before > latest && before - date <= MOMENT) latest = before;
    if (latest < date - 1) return date;
    if (auto* file = dynamic_cast<DirectoryStore*>(&out)) file->moveDateOn(latest - date + 1);
    return out.date();
}

} // namespace

void Maker::outClassNotify(const StoreRef& out, ClassSymbol* symbol, const StoreRef& source) {
    ClassNode& c = graph_.classNode(symbol->flatName);
    c.state = stamp_ + progress::WRITTEN;
    c.written = stamp_;
    c.recompileReason = reason::NONE;
    c.symbol = symbol;
    c.store = out;
    c.date = dateOfWritten(*out, c.date, c.replaced);
    SourceNode& from = graph_.sourceNode(Name::fromString(source->canonicalPath().value_or(source->path())));
    c.sourceName = from.name;
    c.sourceDate = from.date;
    if (PackageNode* package = graph_.findPackage(c.packageName)) package->compiledHere = true;
    writtenInPass_ = true;
    if (compiled_ != nullptr) compiled_->push_back(&c);
}

void Maker::cloneClassNotify(ClassSymbol*, ClassSymbol* clone) {
    graph_.classNode(clone->flatName).symbol = clone;
}

} // namespace tarn
