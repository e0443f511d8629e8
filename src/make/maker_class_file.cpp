#include "make/maker_class_file.h"

#include "driver/reporter.h"
#include "make/maker.h"
#include "runtime/failure.h"
#include "semantic/scope.h"
#include "store/null_store.h"

#include <algorithm>

namespace tarn {

namespace {

/// What the make engine has to say is said, also if a class is named where the compiler only tries whether something
/// holds.
class ScopedSpeech {
public:
    ScopedSpeech() : suppressed_(setSuppressed(false)), source_(currentSource()) {}
    ~ScopedSpeech() {
        setSuppressed(suppressed_);
        setSource(source_);
    }
    ScopedSpeech(const ScopedSpeech&) = delete;
    ScopedSpeech& operator=(const ScopedSpeech&) = delete;

private:
    bool suppressed_;
    StoreRef source_;
};

} // namespace

ClassSymbol* MakerClassFile::refClass(Name* name) {
    ClassSymbol* c = ClassFile::refClass(name);
    if (c == nullptr || c->kind != TYP || c->makeStamp >= maker_.stamp()) return c;
    c->makeStamp = maker_.stamp();
    if (c->reading != Reading::DONE) return c; // it will be asked for when it is read
    ScopedSpeech speech;
    if (maker_.classChanged(name)) renew(c);
    return c;
}

void MakerClassFile::redoClass(Name* name) {
    ClassSymbol* c = ClassFile::refClass(name);
    if (c != nullptr && c->kind == TYP && c->reading == Reading::DONE) renew(c);
}

void MakerClassFile::completeClass(ClassSymbol* c) {
    StoreRef store;
    {
        ScopedSpeech speech;
        store = maker_.storeForCompile(c->flatName);
    }
    if (store == NullStore::instance()) return;
    readFile(*store);
    if (context().options.verbose) printlnProgress("[loading " + store->path() + "]");
    readClass(c);
    c->sourcePath = nullptr;
}

ClassSymbol* MakerClassFile::readApart(Name* flatName, Store& file, bool keepPool) {
    ClassSymbol* c = context().newClass(0, flatName, enterPackage(packagePart(flatName)));
    readFile(file);
    if (context().options.verbose) printlnProgress("[loading " + file.path() + "]");
    bool& keep = context().options.keepPool;
    keep = keepPool;
    try {
        readClass(c);
    } catch (...) {
        keep = false;
        throw;
    }
    keep = false;
    for (Symbol* entry = c->members->elems; entry != nullptr; entry = entry->sibling)
        if (entry->sym->kind == TYP && entry->sym->owner == c) entry->sym->owner = nameClass(flatName);
    return c;
}

void MakerClassFile::forgetInheritors(std::span<Name* const> changing) {
    std::vector<const ClassSymbol*> roots;
    for (Name* name : changing)
        if (const ClassSymbol* c = context().findClass(name)) roots.push_back(c);
    auto isOutdated = [&](const ClassSymbol* c) {
        for (c = c->superclass; c != nullptr; c = c->superclass)
            if (c->sourcePath != nullptr || std::find(roots.begin(), roots.end(), c) != roots.end()) return true;
        return false;
    };
    std::vector<ClassSymbol*> outdated;
    for (const auto& [name, c] : context().classes)
        if (c->kind == TYP && c->reading == Reading::DONE && isOutdated(c)) outdated.push_back(c);
    for (ClassSymbol* c : outdated) forget(c);
}

bool MakerClassFile::fillPackage(ClassSymbol* package) {
    ScopedSpeech speech;
    Name* name = package->flatName == nullptr ? names().dot : package->flatName;
    if (package->members != nullptr && !maker_.classListChanged(name)) return true;
    package->members = Scope::make(nullptr, package);
    bool found = false;
    for (Name* simpleName : maker_.listClasses(name, found)) enterPlaceholder(package, simpleName);
    enterKnownClasses(package);
    return found;
}

void MakerClassFile::classWritten(const StoreRef& out, ClassSymbol* c, const StoreRef& source) {
    maker_.outClassNotify(out, c, source);
}

void MakerClassFile::classEntered(ClassSymbol* symbol, ClassSymbol* clone) {
    maker_.cloneClassNotify(symbol, clone);
}

} // namespace tarn
