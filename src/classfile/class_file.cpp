#include "classfile/class_file.h"

#include "classfile/class_reader.h"
#include "classfile/class_writer.h"
#include "classfile/constant_pool.h"
#include "driver/reporter.h"
#include "runtime/console.h"
#include "runtime/failure.h"
#include "semantic/context.h"
#include "semantic/scope.h"
#include "store/null_store.h"
#include "store/path_list.h"

#include <algorithm>
#include <chrono>

namespace tarn {

namespace {

constexpr std::size_t FIRST_BUFFER = 32768;
constexpr std::string_view CLASS_SUFFIX = ".class";
constexpr std::size_t LONGEST_PACKAGE_NAME = 4096; // no path of this system is longer

/// The relative path of a class or package: its flat name with the file separator for each dot.
void appendPath(std::string& path, const Name* flatName) {
    for (char c : flatName->view()) path += c == '.' ? '/' : c;
}

} // namespace

ClassFile::ClassFile() : buffer(FIRST_BUFFER), reader_(std::make_unique<ClassReader>(*this)) {}

ClassFile::~ClassFile() = default;

void ClassFile::error(const std::string& message) {
    throw ClassNotFound(message);
}

void ClassFile::limitExceeded(const std::string& what) {
    throw ClassNotFound(what + " exceeded");
}

void ClassFile::unknownAttribute(Name*) {}

void ClassFile::classWritten(const StoreRef&, ClassSymbol*, const StoreRef&) {}

void ClassFile::classEntered(ClassSymbol*, ClassSymbol*) {}

// ---- names to symbols

ClassSymbol* ClassFile::refClass(Name* name) {
    return context().findClass(name);
}

/// The table has every class that was ever named, so that a class is one symbol, however it came to be known; but for
/// those that could not be read, which keep their symbol among the failures.
ClassSymbol* ClassFile::nameClass(Name* flatName) {
    if (ClassSymbol* known = context().findClass(flatName)) {
        if (known->kind == PCK) error("package and class with same name: " + flatName->toString());
        return known;
    }
    if (!failures_.empty()) {
        auto failed = failures_.find(flatName);
        if (failed != failures_.end()) return failed->second.symbol;
    }
    ClassSymbol* made = context().newClass(0, flatName, enterPackage(packagePart(flatName)));
    made->members = context().emptyScope;
    made->reading = Reading::NAMED;
    context().classes[flatName] = made;
    return made;
}

ClassSymbol* ClassFile::loadClass(Name* name) {
    if (name == nullptr) return nullptr;
    ClassSymbol* c = refClass(name);
    if (c == nullptr) c = nameClass(name);
    if (c->kind == PCK) error("package and class with same name: " + name->toString());
    if (c->reading != Reading::DONE) renew(c);
    return c;
}

void ClassFile::renew(ClassSymbol* c) {
    if (c->reading == Reading::QUEUED) return;
    if (c->reading == Reading::FAILED) {
        failures_.erase(c->flatName);
        context().classes[c->flatName] = c;
    }
    forget(c);
    c->kind = TYP;
    c->reading = Reading::QUEUED;
    todo.push_back(c);
}

void ClassFile::forget(ClassSymbol* c) {
    c->flags = 0;
    c->superclass = nullptr;
    c->interfaces = {};
    c->members = context().emptyScope;
    c->pool = nullptr;
    c->reading = Reading::NAMED;
}

ClassSymbol* ClassFile::enterPackage(Name* name) {
    if (name == nullptr) return context().rootPackage;
    if (name->length > LONGEST_PACKAGE_NAME) limitExceeded("length of a package name");
    ClassSymbol* known = context().findClass(name);
    if (known != nullptr && known->kind == PCK) return known;
    // A class that nobody has seen yet gives way to the package.
    if (known != nullptr && known->reading == Reading::NAMED)
        fail(known, "package and class with same name: " + name->toString());
    else if (known != nullptr)
        error("package and class with same name: " + name->toString());
    ClassSymbol* package = context().newPackage(name, enterPackage(packagePart(name)));
    context().classes[name] = package;
    return package;
}

// ---- loading

/// Reads what waits, and fails if the class, or one that it inherits from, could not be read. It is no matter of this
/// class if another one that waited could not; who needs that one will be told.
ClassSymbol* ClassFile::load(Name* name) {
    ClassSymbol* c = loadClass(name);
    bool wasRead = c->reading == Reading::DONE;
    drain();
    if (wasRead) return c;
    if (const Name* cause = failureOf(c)) throw ClassNotFound(cause->toString());
    return c;
}

void ClassFile::drain() {
    while (!todo.empty()) {
        ClassSymbol* c = todo.back();
        todo.pop_back();
        if (c->reading != Reading::QUEUED) continue; // it has come from source meanwhile
        c->reading = Reading::DONE;
        if (c->members == context().emptyScope) c->members = Scope::make(nullptr, c);
        complete(c);
    }
}

void ClassFile::complete(ClassSymbol* c) {
    try {
        lastRead_ = nullptr;
        completeClass(c);
        if (lastRead_ != c) return; // it comes from source
        breakCycle(c);
        // Supertypes are asked for only now that the file is done with: the make engine may answer by compiling them,
        // which loads other classes.
        if (c->superclass != nullptr) loadClass(c->superclass->flatName);
        for (const ClassSymbol* i : c->interfaces) loadClass(i->flatName);
    } catch (const IoFailure& failure) {
        fail(c, failure.what());
    } catch (...) {
        c->reading = Reading::NAMED; // the compile of its source was broken off
        throw;
    }
}

namespace {

bool leadsTo(const ClassSymbol* from, const ClassSymbol* c, Walk walk) {
    for (; from != nullptr && from->walked != walk; from = from->superclass) {
        if (from == c) return true;
        from->walked = walk;
        for (const ClassSymbol* i : from->interfaces)
            if (leadsTo(i, c, walk)) return true;
    }
    return false;
}

} // namespace

/// The class that closes a circle of supertypes is the one that is read last.
void ClassFile::breakCycle(ClassSymbol* c) {
    Walk walk = newWalk();
    bool isCyclic = leadsTo(c->superclass, c, walk);
    for (const ClassSymbol* i : c->interfaces) isCyclic = isCyclic || leadsTo(i, c, walk);
    if (!isCyclic) return;
    c->superclass = nullptr;
    c->interfaces = {};
    error("cyclic inheritance involving " + c->toString());
}

void ClassFile::fail(ClassSymbol* c, const std::string& cause) {
    if (context().findClass(c->flatName) == c) context().classes.erase(c->flatName);
    failures_[c->flatName] = {.symbol = c, .cause = Name::fromString(cause)};
    c->reading = Reading::FAILED;
    if (c->members == nullptr || c->members == context().emptyScope) c->members = Scope::make(nullptr, c);
    if (c->superclass == nullptr && !c->isRootClass()) c->superclass = context().objectClass;
}

void ClassFile::readNamed(ClassSymbol* c) {
    if (c->reading == Reading::FAILED) return;
    try {
        load(c->flatName);
    } catch (const ClassNotFound& failure) {
        if (c->reading == Reading::NAMED) fail(c, failure.what());
    }
}

Name* ClassFile::failureOf(const ClassSymbol* c) const {
    return failures_.empty() ? nullptr : failureAbove(c, newWalk());
}

Name* ClassFile::failureAbove(const ClassSymbol* c, Walk walk) const {
    if (c == nullptr || c->walked == walk) return nullptr;
    c->walked = walk;
    if (c->reading == Reading::FAILED) return failures_.at(c->flatName).cause;
    Name* cause = failureAbove(c->superclass, walk);
    for (const ClassSymbol* i : c->interfaces) {
        if (cause != nullptr) break;
        cause = failureAbove(i, walk);
    }
    return cause;
}

// ---- files

StoreRef ClassFile::findFile(const PathList& stores, const std::string& name) {
    if (!context().options.printsearch) return search(stores, name);
    constexpr SearchTrace trace{.header = "looking for ", .println = printlnProgress};
    return search(stores, name, &trace);
}

void ClassFile::completeClass(ClassSymbol* c) {
    auto start = std::chrono::steady_clock::now();
    path_.clear();
    appendPath(path_, c->flatName);
    std::size_t stem = path_.size();
    path_ += CLASS_SUFFIX;
    StoreRef store;
    if (stem == c->name->length && context().outputDirectory) store = context().outputDirectory->lookup(path_);
    if (!store) store = findFile(context().classPath, path_);
    if (!store) {
        if (findFile(context().classPath, path_.substr(0, stem) + ".java") == NullStore::instance()) return;
        error("file " + path_ + " not found");
    }
    bool verbose = context().options.verbose;
    if (verbose) {
        printProgress("[loading " + store->path() + " ");
        flushConsole();
    }
    readFile(*store);
    readClass(c);
    if (!verbose) return;
    auto elapsed = std::chrono::steady_clock::now() - start;
    auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(elapsed).count();
    printlnProgress(std::to_string(milliseconds) + "ms]");
}

void ClassFile::readFile(Store& store) {
    length = store.readInto(buffer);
    if (length < buffer.size()) return;
    buffer = store.read();
    length = buffer.size();
}

void ClassFile::readClass(ClassSymbol* c) {
    reader_->read(c, {buffer.data(), length});
    lastRead_ = c;
}

void ClassFile::readInnerClasses(ClassSymbol* c) {
    reader_->readInnerClasses(c);
}

// ---- packages

bool ClassFile::fillPackage(ClassSymbol* package) {
    if (package->members != nullptr) return true;
    package->members = Scope::make(nullptr, package);
    bool found = false;
    std::string path;
    if (package->flatName == nullptr)
        path = ".";
    else
        appendPath(path, package->flatName);
    if (context().classPath) {
        for (const StoreRef& store : *context().classPath) {
            StoreRef directory = store->file(path);
            if (!directory) continue;
            auto files = directory->list();
            if (!files) continue;
            found = true;
            for (std::string_view file : *files) {
                if (!file.ends_with(CLASS_SUFFIX)) continue;
                file.remove_suffix(CLASS_SUFFIX.size());
                enterPlaceholder(package, Name::fromBytes(file));
            }
        }
    }
    enterKnownClasses(package);
    return found;
}

void ClassFile::enterPlaceholder(ClassSymbol* package, Name* simpleName) {
    if (package->members->lookup(simpleName)->scope == package->members) return;
    auto* placeholder = context().arena.make<ClassSymbol>();
    placeholder->init(0, NONE, simpleName, nullptr, package);
    placeholder->flatName = formFullName(simpleName, package);
    package->members->enter(placeholder);
}

void ClassFile::enterKnownClasses(ClassSymbol* package) {
    for (const auto& [flatName, c] : context().classes)
        if (c->owner == package && c->kind == TYP && c->reading != Reading::NAMED) enterPlaceholder(package, c->name);
}

// ---- writing

void ClassFile::writeClass(ClassSymbol* c, const StoreRef& out) {
    if (!writer_) writer_ = std::make_unique<ClassWriter>(*this);
    writer_->write(c, *out);
}

Name* ClassFile::memberName(const Symbol* symbol) {
    if (!context().options.obfuscate || !symbol->isPrivate() || symbol->name == names().init) return symbol->name;
    return Name::fromBytes("_$" + std::to_string(symbol->name->index));
}

Name* ClassFile::xClassName(Type* type) {
    if (type->tag == typetag::CLASS) return type->tsym->flatName;
    if (type->tag == typetag::METHOD) throw InternalError("xClassName");
    return signature(type);
}

ConstantPool* ClassFile::newPool() {
    if (freePools_.empty()) {
        pools_.push_back(std::make_unique<ConstantPool>());
        return pools_.back().get();
    }
    ConstantPool* pool = freePools_.back();
    freePools_.pop_back();
    return pool;
}

void ClassFile::freePool(ConstantPool* pool) {
    pool->entries.assign(1, nullptr);
    pool->index = nullptr;
    freePools_.push_back(pool);
}

} // namespace tarn
