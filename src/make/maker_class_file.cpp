#include "make/maker_class_file.h"

#include "driver/reporter.h"
#include "make/maker.h"
#include "runtime/failure.h"
#include "semantic/scope.h"
#include "store/null_store.h"

#include <algorithm>
#include <utility>

namespace tarn {

namespace {

/// What the make engine has to say is said, also if a class is named where the compiler only tries whether something
/// holds.
class ScopedSpeech : ScopedReporting {
public:
    ScopedSpeech() { setSuppressed(false); }
};

} // namespace

ClassSymbol* MakerClassFile::refClass(Name* name) {
    ClassSymbol* c = ClassFile::refClass(name);
    if (c == nullptr || c->kind != TYP || c->makeStamp >= maker_.stamp()) return c;
    c->makeStamp = maker_.stamp();
    if (c->reading != Reading::DONE) return c; // it will be asked for when it is read
    ScopedSpeech speech;
    if (maker_.classChanged(name)) redo(c);
    return c;
}

void MakerClassFile::redoClass(Name* name) {
    ClassSymbol* c = ClassFile::refClass(name);
    if (c != nullptr && c->kind == TYP && c->reading == Reading::DONE) redo(c);
}

void MakerClassFile::redo(ClassSymbol* c) {
    replaced_.push_back(c->members);
    renew(c);
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

void MakerClassFile::outdateInheritors(std::span<Name* const> classes) {
    for (Name* name : classes) {
        const ClassSymbol* c = context().findClass(name);
        if (c != nullptr && c->kind == TYP && c->reading == Reading::DONE) replaced_.push_back(c->members);
    }
}

void MakerClassFile::forgetOutdated() {
    while (!replaced_.empty()) {
        const Scope* members = replaced_.back();
        replaced_.pop_back();
        for (Scope* inheriting : members->inheritors()) {
            replaced_.push_back(inheriting);
            auto* c = static_cast<ClassSymbol*>(inheriting->owner);
            bool isCurrent = c->members == inheriting && context().findClass(c->flatName) == c; // arrays inherit too
            if (isCurrent && c->reading == Reading::DONE) forget(c);
        }
    }
}

namespace {

bool inheritsUnread(const ClassSymbol* c, Walk walk) {
    if (c == nullptr || std::exchange(c->walked, walk) == walk) return false;
    if (c->reading == Reading::NAMED || c->reading == Reading::QUEUED) return true;
    return inheritsUnread(c->superclass, walk) ||
           std::any_of(c->interfaces.begin(), c->interfaces.end(), [&](auto* i) { return inheritsUnread(i, walk); });
}

} // namespace

void MakerClassFile::forgetUnfinished(std::span<Name* const> classes) {
    auto forgetRead = [this](ClassSymbol* c) {
        if (c == nullptr || c->kind != TYP || c->reading != Reading::DONE) return;
        replaced_.push_back(c->members);
        forget(c);
    };
    for (Name* name : classes) forgetRead(context().findClass(name));
    for (const auto& [name, c] : context().classes)
        if (c->kind == TYP && inheritsUnread(c, newWalk())) forgetRead(c);
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
