// What decides whether a change of one class matters to another.
//
// A date says only that a class file was written again. So a class has a fingerprint over its fields and methods, and
// each of these has one of its own; an importer remembers, per imported class, that class's fingerprint and those of
// the members that it uses. While the dates agree nothing is read. If a date has moved, the class's fingerprint is
// worked out and compared, and only if that differs too, the members in use are.
//
// What a class refers to is read from its constant pool, so that a class from elsewhere works as well as one that was
// compiled here. The stored fingerprint of a class does not count: it is worked out from the class itself before it is
// used. The exception is a library, which says what is right about all of its classes.

#include "make/change_detection.h"

#include "classfile/constant_pool.h"
#include "driver/reporter.h"
#include "make/maker.h"
#include "make/maker_class_file.h"
#include "runtime/failure.h"
#include "semantic/scope.h"
#include "semantic/type.h"
#include "store/null_store.h"

#include <algorithm>
#include <bit>
#include <unordered_set>
#include <vector>

namespace tarn {

// ---- fingerprints

namespace {

constexpr std::uint32_t MULTIPLIER = 1664525;
/// A method may become `synchronized` or `native` and a field `transient` without anyone who uses it noticing.
constexpr std::uint32_t UNSEEN_FLAGS = flag::SYNCHRONIZED | flag::TRANSIENT | flag::NATIVE;

std::uint32_t hashOf(const Name* name) {
    return static_cast<std::uint32_t>(name->contentHash());
}

/// Sources and class files have a deprecated flag of their own each.
std::uint32_t seenFlags(std::uint32_t flags) {
    if ((flags & flag::SOURCE_DEPRECATED) != 0) flags = (flags & ~flag::SOURCE_DEPRECATED) | flag::DEPRECATED;
    return flags & ~UNSEEN_FLAGS;
}

/// Private names that `-obfuscate` has changed on the way into a class file (`_$` and a number) are not the same in
/// every run.
bool hasChangingName(const Symbol* member) {
    if (!member->isPrivate() || member->name == names().init) return false;
    if (context().options.obfuscate) return true;
    std::string_view name = member->name->view();
    return name.size() > 2 && name.starts_with("_$") && name.find_first_not_of("0123456789", 2) == name.npos;
}

std::uint64_t valueBits(const ConstantType* constant) {
    auto extended = [](std::int32_t value) { return static_cast<std::uint64_t>(std::int64_t{value}); };
    switch (constant->tag) {
    case typetag::BYTE:
    case typetag::CHAR:
    case typetag::SHORT:
    case typetag::INT:
    case typetag::BOOLEAN: return extended(constant->intValue());
    case typetag::LONG: return static_cast<std::uint64_t>(constant->longValue());
    case typetag::FLOAT: return extended(std::bit_cast<std::int32_t>(constant->floatValue()));
    case typetag::DOUBLE: return std::bit_cast<std::uint64_t>(constant->doubleValue());
    case typetag::CLASS: return extended(constant->stringValue()->contentHash());
    default: return 0;
    }
}

} // namespace

std::int32_t memberFingerprint(const Symbol* member) {
    std::uint32_t print = hashOf(signature(member->type)) + seenFlags(member->flags);
    if (!hasChangingName(member)) print += hashOf(member->name);
    if (member->kind == VAR && member->type->isConstant()) {
        std::uint64_t value = valueBits(static_cast<const ConstantType*>(member->type));
        print = print * MULTIPLIER + static_cast<std::uint32_t>(value);
        print = print * MULTIPLIER + static_cast<std::uint32_t>(value >> 32);
    } else if (member->kind == MTH) {
        std::uint32_t thrown = 1;
        for (const TypeList* list = member->type->thrown(); list != nullptr; list = list->tail)
            thrown ^= hashOf(list->head->tsym->flatName);
        print = print * MULTIPLIER + thrown;
    }
    return static_cast<std::int32_t>(print);
}

namespace {

/// The modifiers of a class that importers see, as it was declared: the class file of a member class has others.
std::uint32_t visibleFlags(const ClassSymbol* c) {
    constexpr std::uint32_t OF_TYPE = flag::FINAL | flag::INTERFACE | flag::ABSTRACT;
    const InnerClassRecord* record = context().innerClass(c->flatName);
    if (record != nullptr) return record->flags & (OF_TYPE | ACCESS_FLAGS | flag::STATIC);
    return c->flags & (OF_TYPE | flag::PUBLIC);
}

} // namespace

/// Overloads share one record, in which their order does not show.
void Maker::cacheDefs(ClassNode& c) {
    const ClassSymbol* symbol = loadClass(c, false);
    c.vardefs = c.fundefs = {};
    std::int32_t print = 1;
    c.abstracts = 0;
    for (const Symbol* entry = symbol->members->elems; entry != nullptr; entry = entry->sibling) {
        const Symbol* member = entry->sym;
        if (member->kind != VAR && member->kind != MTH) continue;
        std::int32_t own = memberFingerprint(member);
        NodeTable<DefRecord>& defs = member->kind == VAR ? c.vardefs : c.fundefs;
        if (DefRecord* known = member->kind == MTH ? defs.find(member->name) : nullptr)
            known->fprint ^= own;
        else
            defs.put(graph_.arena, graph_.arena.make<DefRecord>(DefRecord{member->name, own}));
        print ^= own;
        if (member->kind == MTH && member->isAbstract()) c.abstracts ^= own;
    }
    c.fprint = print;
    c.flags = visibleFlags(symbol);
    c.defsCached = true;
    dropSymbol(c);
}

/// The fingerprint of a class whose members need not be known.
void Maker::learnFingerprint(ClassNode& c) {
    const PackageNode* package = graph_.findPackage(c.packageName);
    if (package == nullptr || !package->library || c.date == 0) cacheDefs(c);
}

// ---- references

namespace {

void visitType(const Type* type, ReferenceVisitor& visitor) {
    switch (type->tag) {
    case typetag::CLASS:
        if (type->tsym->flatName != nullptr) visitor.visitClass(type->tsym->flatName);
        return;
    case typetag::ARRAY: visitType(type->elemType(), visitor); return;
    case typetag::METHOD:
        visitType(type->resType(), visitor);
        for (const Type* argument : *type->argTypes()) visitType(argument, visitor);
        for (const TypeList* list = type->thrown(); list != nullptr; list = list->tail) visitType(list->head, visitor);
        return;
    default: return;
    }
}

void visitSymbol(const Symbol* symbol, ReferenceVisitor& visitor) {
    if (symbol->type != nullptr) visitType(symbol->type, visitor);
    if (symbol->kind != VAR && symbol->kind != MTH) return;
    const auto* owner = static_cast<const ClassSymbol*>(symbol->owner);
    if (owner == nullptr || owner->kind != TYP || owner->flatName == nullptr) return;
    if (owner == context().arrayBase->tsym || owner->type->tag == typetag::ARRAY) return;
    visitor.visitClass(owner->flatName);
    visitor.visitMember(owner->flatName, symbol);
}

} // namespace

void visitReferences(const ClassSymbol* c, ReferenceVisitor& visitor) {
    for (const PoolEntry* entry : c->pool->entries) {
        if (entry == nullptr) continue;
        if (entry->entryKind() == EntryKind::SYMBOL) {
            visitSymbol(static_cast<const Symbol*>(entry), visitor);
        } else if (entry->entryKind() == EntryKind::TYPE) {
            const auto* type = static_cast<const Type*>(entry);
            if (!type->isConstant()) visitType(type, visitor);
        }
    }
    if (c->constantRefs == nullptr) return;
    for (const Symbol* entry = c->constantRefs->elems; entry != nullptr; entry = entry->sibling)
        visitSymbol(entry->sym, visitor);
}

/// What attribution came upon, if the class was compiled just now.
void Maker::visitUses(const ClassNode& c, ReferenceVisitor& visitor) {
    auto visit = [&](const Name* by) {
        auto found = uses_.find(const_cast<Name*>(by));
        if (found == uses_.end()) return;
        for (const NameUse& use : found->second) {
            visitSymbol(use.used, visitor);
            if (use.site == nullptr || use.site->flatName == c.name) continue;
            bool hidesOthers = use.used->kind != MTH || use.used->name == names().init;
            if (use.site == use.used->owner && hidesOthers) continue; // an inherited overload could fit better
            visitor.visitClass(use.site->flatName);
            visitor.visitSite(use.site->flatName, use.used);
        }
    };
    visit(c.name);
    if (c.symbol != nullptr && c.symbol->sourcePath != nullptr) visit(c.symbol->sourcePath);
}

namespace {

/// Collects the classes that a class names, but for itself.
class ImportCollector final : public ReferenceVisitor {
public:
    ImportCollector(Arena& arena, ClassNode& c) : arena_(arena), class_(c) {}

    void visitClass(Name* flatName) override {
        if (flatName == class_.name || class_.imps.find(flatName) != nullptr) return;
        auto* import = arena_.make<ImportRecord>();
        import->name = flatName;
        class_.imps.put(arena_, import);
    }
    void visitMember(Name*, const Symbol*) override {}
    void visitSite(Name*, const Symbol*) override {}

private:
    Arena& arena_;
    ClassNode& class_;
};

} // namespace

void Maker::cacheImps(ClassNode& c) {
    const ClassSymbol* symbol = loadClass(c, true);
    c.imps = {};
    ImportCollector collector(graph_.arena, c);
    visitReferences(symbol, collector);
    visitUses(c, collector);
    auto recordOf = [&](const ClassSymbol* supertype) {
        collector.visitClass(supertype->flatName);
        return c.imps.find(supertype->flatName);
    };
    c.superclass = symbol->superclass == nullptr ? nullptr : recordOf(symbol->superclass);
    std::vector<ImportRecord*> interfaces;
    for (const ClassSymbol* i : symbol->interfaces) {
        ImportRecord* import = recordOf(i);
        if (import != nullptr && std::find(interfaces.begin(), interfaces.end(), import) == interfaces.end())
            interfaces.push_back(import);
    }
    c.interfaces = graph_.arena.copyArray<ImportRecord*>(interfaces);
    c.impsCached = c.supersCached = true;
    dropSymbol(c);
}

/// The record of that name in the class, or in the first of its supertypes that has one; null if none has. Class files
/// may have supertypes in circles, and each of them many times.
const DefRecord* Maker::findDef(ClassNode& c, const Name* name, Definitions defs) {
    std::vector<ClassNode*> open{&c};
    std::unordered_set<const ClassNode*> seen;
    while (!open.empty()) {
        ClassNode& next = *open.back();
        open.pop_back();
        if (!next.defsCached) cacheDefs(next);
        if (const DefRecord* own = (next.*defs).find(name)) return own;
        if (!seen.insert(&next).second) continue;
        if (!next.supersCached) cacheImps(next);
        for (auto i = next.interfaces.rbegin(); i != next.interfaces.rend(); ++i)
            open.push_back(&graph_.classNode(**i));
        if (next.superclass != nullptr) open.push_back(&graph_.classNode(*next.superclass));
    }
    return nullptr;
}

namespace {

/// The members that a class uses, each once, by their owners.
class MemberCollector final : public ReferenceVisitor {
public:
    MemberCollector(Arena& arena, ClassNode& c) : arena_(arena), class_(c) {}

    void visitClass(Name*) override {}
    void visitMember(Name* owner, const Symbol* member) override { add(owner, member->kind, member->name); }
    void visitSite(Name* site, const Symbol* member) override {
        add(site, member->kind, Name::fromBytes(WIDE_REFERENCE + member->name->toUtf()));
    }

private:
    void add(Name* owner, int kind, Name* name) {
        ImportRecord* import = class_.imps.find(owner);
        if (import == nullptr) return; // a member of its own
        NodeTable<DefRecord>& refs = kind == VAR ? import->varrefs : import->funrefs;
        if (refs.find(name) == nullptr) refs.put(arena_, arena_.make<DefRecord>(DefRecord{.name = name}));
    }

    Arena& arena_;
    ClassNode& class_;
};

bool isWide(const DefRecord* ref) {
    return ref->name->view().front() == WIDE_REFERENCE;
}

} // namespace

void Maker::cacheLooseRefs(ClassNode& c) {
    const ClassSymbol* symbol = loadClass(c, true);
    for (ImportRecord* import : c.imps.nodes()) import->varrefs = import->funrefs = {};
    MemberCollector collector(graph_.arena, c);
    visitReferences(symbol, collector);
    visitUses(c, collector);
    c.refsCached = true;
    dropSymbol(c);
}

/// As they are now. A member that is not there any more was so when the class was compiled a moment ago, so it has
/// changed in between: it is left without a fingerprint, and shows as changed later.
void Maker::cacheRefs(ClassNode& c) {
    cacheLooseRefs(c);
    for (ImportRecord* import : c.imps.nodes()) {
        ClassNode& imported = graph_.classNode(*import);
        auto learn = [&](NodeTable<DefRecord>& refs, Definitions defs) {
            for (DefRecord* ref : refs.nodes()) {
                if (isWide(ref)) continue;
                if (const DefRecord* def = findDef(imported, ref->name, defs)) ref->fprint = def->fprint;
            }
        };
        learn(import->varrefs, &ClassNode::vardefs);
        learn(import->funrefs, &ClassNode::fundefs);
    }
}

/// The first member in use that has changed; null if none has.
const DefRecord* Maker::strictCheckRefs(const ImportRecord& import, ClassNode& imported) {
    auto changed = [&](const NodeTable<DefRecord>& refs, Definitions defs) -> const DefRecord* {
        for (const DefRecord* ref : refs.nodes()) {
            if (isWide(ref)) continue;
            const DefRecord* def = findDef(imported, ref->name, defs);
            if (def == nullptr || def->fprint != ref->fprint) return ref;
        }
        return nullptr;
    };
    if (const DefRecord* field = changed(import.varrefs, &ClassNode::vardefs)) return field;
    return changed(import.funrefs, &ClassNode::fundefs);
}

/// The first member in use that is gone; null if none is.
const DefRecord* Maker::looseCheckRefs(ClassNode& c, const ImportRecord& import, ClassNode& imported) {
    if (!c.refsCached) cacheLooseRefs(c);
    auto gone = [&](const NodeTable<DefRecord>& refs, Definitions defs) -> const DefRecord* {
        for (const DefRecord* ref : refs.nodes())
            if (!isWide(ref) && findDef(imported, ref->name, defs) == nullptr) return ref;
        return nullptr;
    };
    if (const DefRecord* field = gone(import.varrefs, &ClassNode::vardefs)) return field;
    return gone(import.funrefs, &ClassNode::fundefs);
}

// ---- symbols

/// The symbol of the class, with its constant pool if that is wanted. It is the one that was generated, or the one that
/// the compiler has read already, or is read for this purpose, after the class was brought up to date.
ClassSymbol* Maker::loadClass(ClassNode& c, bool withPool) {
    if (c.symbol != nullptr && (!withPool || c.symbol->pool != nullptr)) return c.symbol;
    std::string cause;
    try {
        StoreRef store = classStore(c.name);
        if (c.symbol != nullptr && (!withPool || c.symbol->pool != nullptr)) return c.symbol; // compiled just now
        ClassSymbol* known = context_.findClass(c.name);
        // One that is just going to be read counts as read already, but has no superclass before it is.
        bool wasRead = known != nullptr && known->kind == TYP && known->reading == Reading::DONE &&
                       known->sourcePath == nullptr && known->superclass != nullptr;
        if (wasRead && !withPool) return known;
        if (store == NullStore::instance()) {
            if (reporter_->errorCount() != 0) throw NotGenerated{};
            throw ClassNotFound("");
        }
        return c.symbol = classFile_->readApart(c.name, *store, withPool);
    } catch (const IoFailure& failure) {
        cause = failure.what();
    }
    {
        ScopedSource none(nullptr);
        reportError(0, messages::cannotAccess, "class", c.name, cause.empty() ? "IOException" : cause);
    }
    flushClass(c);
    if (PackageNode* package = graph_.findPackage(c.packageName))
        package->classes.keepIf([&](const ClassNode* other) { return other != &c; });
    throw MakeAbort{};
}

/// A symbol from which all has been learned is let go, with its pool.
void Maker::dropSymbol(ClassNode& c) {
    if (c.defsCached && c.impsCached && c.refsCached) c.symbol = nullptr;
}

} // namespace tarn
