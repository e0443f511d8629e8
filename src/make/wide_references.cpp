// What a class depends on beyond the members that it uses: what kind of class an import is, what it inherits from, and
// what a search through its supertypes could find.
//
// The fingerprint of a class covers its own members only. So a class that became abstract, or final, or got another
// superclass, and a supertype's supertype that changed, would pass unnoticed. What was seen of these is folded into
// references of their own (see WIDE_REFERENCE), which are stored and compared like those to members. A library counts
// as one with what it says of itself: none of its classes is read for this.

#include "make/change_detection.h"
#include "make/maker.h"
#include "semantic/symbol.h"
#include "semantic/universe.h"

#include <algorithm>
#include <utility>

namespace tarn {

std::uint32_t mixed(const Name* name, std::uint32_t value) {
    std::uint32_t hash = static_cast<std::uint32_t>(name->contentHash()) * 1664525 + value;
    hash = (hash ^ hash >> 16) * 0x85EBCA6B;
    hash = (hash ^ hash >> 13) * 0xC2B2AE35;
    return hash ^ hash >> 16;
}

namespace {

/// The name of the members that a wide reference is about; null for any other reference.
Name* widelyReferenced(const DefRecord* ref) {
    std::string_view name = ref->name->view();
    if (name.front() != WIDE_REFERENCE || name.size() == 1 || name[1] == WIDE_REFERENCE) return nullptr;
    return Name::fromBytes(name.substr(1));
}

Name* wholeClass() {
    static Name* const name = Name::fromBytes(".");
    return name;
}

Name* supertypeDates() {
    static Name* const name = Name::fromBytes("..");
    return name;
}

} // namespace

Name* homonymsName() {
    static Name* const name = Name::fromBytes("...");
    return name;
}

/// Stands for a class as a whole in the reason of a compile.
const DefRecord* Maker::wholeClassRef() {
    static const DefRecord whole{wholeClass(), 0};
    return &whole;
}

bool Maker::isOfLibrary(const ClassNode& c) {
    return packageNode(c.packageName, false).library;
}

/// All supertypes but Object, each once; those of a class of a library are not looked for. One that is gone is left
/// out: what inherits from it by its file is out of date, though the walk may not have come to it.
std::vector<ClassNode*> Maker::supertypesOf(ClassNode& c) {
    std::vector<ClassNode*> found;
    const Walk walk = newWalk();
    c.walked = walk;
    auto add = [&](const ImportRecord* supertype) {
        if (supertype == nullptr || supertype->name == names().javaLangObject) return;
        ClassNode& node = graph_.classNode(*supertype);
        if (node.validated < base_ && !exists(node)) return;
        if (std::exchange(node.walked, walk) != walk) found.push_back(&node);
    };
    auto learn = [&](ClassNode& next) { // which can lead to a compile, and to other walks
        cacheImps(next);
        c.walked = walk;
        for (ClassNode* node : found) node->walked = walk;
    };
    for (std::size_t i = 0; i <= found.size(); i++) {
        ClassNode& next = i == 0 ? c : *found[i - 1];
        if (i != 0 && isOfLibrary(next)) continue;
        if (!next.supersCached) learn(next);
        add(next.superclass);
        for (const ImportRecord* supertype : next.interfaces) add(supertype);
    }
    return found;
}

/// The names that a class uses or has members of: what an indirect supertype has under another name is of no concern to
/// it, but for abstract methods.
std::vector<const Name*> Maker::namesIn(ClassNode& c) {
    if (!c.defsCached) cacheDefs(c);
    std::vector<const Name*> names;
    auto addAll = [&](const NodeTable<DefRecord>& records) {
        for (const DefRecord* record : records.nodes()) {
            const Name* wide = widelyReferenced(record);
            if (wide != nullptr || record->name->view().front() != WIDE_REFERENCE)
                names.push_back(wide == nullptr ? record->name : wide);
        }
    };
    addAll(c.vardefs);
    addAll(c.fundefs);
    for (const ImportRecord* import : c.imps.nodes()) {
        addAll(import->varrefs);
        addAll(import->funrefs);
    }
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

/// What the importer can see of the class as a whole; 0 for a class like most.
std::int32_t Maker::shapeOf(ClassNode& importer, const ImportRecord& import, ClassNode& imported) {
    std::uint32_t flags = imported.flags ^ flag::PUBLIC;
    if (importer.packageName == imported.packageName) flags &= ~flag::PUBLIC;
    std::uint32_t shape = flags == 0 ? 0 : mixed(names().empty, flags);
    std::vector<ClassNode*> supertypes = supertypesOf(imported);
    shape += hidingMembers(importer, imported);
    for (const ClassNode* supertype : supertypes)
        shape += mixed(supertype->name, 1) + hidingMembers(importer, *supertype);
    bool isInherited =
        importer.superclass == &import ||
        std::find(importer.interfaces.begin(), importer.interfaces.end(), &import) != importer.interfaces.end();
    if (isInherited && !supertypes.empty()) shape += inheritedFrom(supertypes, namesIn(importer));
    return static_cast<std::int32_t>(shape);
}

std::uint32_t Maker::inheritedFrom(const std::vector<ClassNode*>& supertypes,
                                   const std::vector<const Name*>& concerned) {
    std::uint32_t all = 0;
    for (ClassNode* supertype : supertypes) {
        if (isOfLibrary(*supertype)) {
            all += mixed(supertype->name, static_cast<std::uint32_t>(supertype->fprint));
            continue;
        }
        if (!supertype->defsCached) cacheDefs(*supertype);
        all += mixed(supertype->name, static_cast<std::uint32_t>(supertype->abstracts));
        for (const Name* name : concerned) {
            for (Definitions defs : {&ClassNode::vardefs, &ClassNode::fundefs})
                if (const DefRecord* def = (supertype->*defs).find(name))
                    all += mixed(name, static_cast<std::uint32_t>(def->fprint));
        }
    }
    return all;
}

/// Of all members of that name in the class and its supertypes.
std::int32_t Maker::allNamed(ClassNode& c, const Name* name, Definitions defs) {
    std::uint32_t all = 0;
    auto addOwn = [&](ClassNode& of) {
        if (isOfLibrary(of)) return;
        if (!of.defsCached) cacheDefs(of);
        if (const DefRecord* def = (of.*defs).find(name))
            all += mixed(of.name, static_cast<std::uint32_t>(def->fprint));
    };
    addOwn(c);
    for (ClassNode* supertype : supertypesOf(c)) addOwn(*supertype);
    return static_cast<std::int32_t>(all);
}

/// The dates of the class's supertypes, as distances from its own; 0 if they are all of libraries. They can be relied
/// on if no supertype was written in this make: what it was before may have had the same date.
std::int32_t Maker::datesOfSupertypes(ClassNode& c, bool& areReliable) {
    std::uint32_t all = 0;
    for (const ClassNode* supertype : supertypesOf(c)) {
        if (isOfLibrary(*supertype)) continue;
        areReliable = areReliable && supertype->written < base_;
        all += mixed(supertype->name, static_cast<std::uint32_t>(supertype->date - c.date));
    }
    return static_cast<std::int32_t>(all);
}

/// Whether the import's dates, and those of its supertypes, say that nothing is to be looked at. A class that this make
/// wrote may have the date that it had before, since dates are coarse.
bool Maker::isAsSeen(const ImportRecord& import, ClassNode& imported) {
    if (import.date != imported.date || imported.written >= base_) return false;
    const DefRecord* recorded = import.varrefs.find(supertypeDates());
    if (recorded == nullptr) return true;
    bool areReliable = true;
    return datesOfSupertypes(imported, areReliable) == recorded->fprint && areReliable;
}

/// Takes the import as it is now, with its dates. Whether anything has moved.
bool Maker::takeAsSeen(ImportRecord& import, ClassNode& imported) {
    bool hasMoved = import.date != imported.date || import.fprint != imported.fprint;
    import.date = imported.date;
    import.fprint = imported.fprint;
    if (DefRecord* dates = import.varrefs.find(supertypeDates())) {
        bool areReliable = true;
        std::int32_t before = std::exchange(dates->fprint, datesOfSupertypes(imported, areReliable));
        hasMoved = hasMoved || before != dates->fprint;
    }
    return hasMoved;
}

namespace {

/// In a class that inherits from libraries at most its own methods are the only ones to be found.
void dropSites(ImportRecord& import) {
    std::vector<const Name*> own;
    for (const DefRecord* ref : import.funrefs.nodes()) own.push_back(ref->name);
    auto isFoundElsewhere = [&own](const DefRecord* ref) {
        return std::find(own.begin(), own.end(), widelyReferenced(ref)) == own.end();
    };
    import.funrefs.keepIf(isFoundElsewhere);
}

} // namespace

/// Fills the wide references of a class whose references were cached when it was compiled.
void Maker::recordWideRefs(ClassNode& c) {
    for (ImportRecord* import : c.imps.nodes()) {
        ClassNode& imported = graph_.classNode(*import);
        if (isOfLibrary(imported)) continue;
        auto learn = [&](NodeTable<DefRecord>& refs, Definitions defs) {
            for (DefRecord* ref : refs.nodes())
                if (const Name* name = widelyReferenced(ref)) ref->fprint = allNamed(imported, name, defs);
        };
        bool areReliable = true;
        std::int32_t dates = datesOfSupertypes(imported, areReliable);
        if (dates == 0) dropSites(*import);
        learn(import->varrefs, &ClassNode::vardefs);
        learn(import->funrefs, &ClassNode::fundefs);
        auto add = [&](Name* name, std::int32_t fprint) {
            if (fprint != 0) import->varrefs.put(graph_.arena, graph_.arena.make<DefRecord>(DefRecord{name, fprint}));
        };
        add(wholeClass(), shapeOf(c, *import, imported));
        add(supertypeDates(), dates);
    }
}

/// Also of imports from libraries.
void Maker::recordHomonyms(ClassNode& c) {
    if (c.source == nullptr) return;
    knowImports(*c.source);
    for (ImportRecord* import : c.imps.nodes()) {
        std::int32_t homonyms = homonymsOf(c, *import);
        if (homonyms == 0) continue;
        import->varrefs.put(graph_.arena, graph_.arena.make<DefRecord>(DefRecord{homonymsName(), homonyms}));
    }
}

/// The first wide reference that has changed; null if none has, or the class can't be compiled anyway.
const DefRecord* Maker::checkWideRefs(ClassNode& c, const ImportRecord& import, ClassNode& imported) {
    if (!c.refsCached || c.source == nullptr || c.sourceName == nullptr || isOfLibrary(imported)) return nullptr;
    auto changed = [&](const NodeTable<DefRecord>& refs, Definitions defs) -> const DefRecord* {
        for (const DefRecord* ref : refs.nodes())
            if (const Name* name = widelyReferenced(ref))
                if (ref->fprint != allNamed(imported, name, defs)) return ref;
        return nullptr;
    };
    const DefRecord* recorded = import.varrefs.find(wholeClass());
    if (shapeOf(c, import, imported) != (recorded == nullptr ? 0 : recorded->fprint)) return wholeClassRef();
    if (const DefRecord* field = changed(import.varrefs, &ClassNode::vardefs)) return field;
    return changed(import.funrefs, &ClassNode::fundefs);
}

} // namespace tarn
