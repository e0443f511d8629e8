#include "make/dependency_file.h"
#include "runtime/failure.h"
#include "semantic/universe.h"

#include <algorithm>
#include <string>

namespace tarn {

namespace {

[[noreturn]] void failCorrupted() {
    throw IoFailure("corrupted file");
}

/// Whether the flat name is that of a class in the package itself.
bool isInPackage(const Name* flatName, const Name* package) {
    std::string_view rest = flatName->view();
    if (package != names().dot) {
        if (!rest.starts_with(package->view())) return false;
        rest.remove_prefix(package->length);
        if (!rest.starts_with('.')) return false;
        rest.remove_prefix(1);
    }
    return !rest.empty() && rest.find('.') == std::string_view::npos;
}

/// The names of the records, sorted by their places in memory. No two records may have the same.
template <class Record>
std::vector<const Name*> namesOf(const std::vector<Record>& records) {
    std::vector<const Name*> seen;
    seen.reserve(records.size());
    for (const Record& record : records) seen.push_back(record.name);
    std::sort(seen.begin(), seen.end());
    if (std::adjacent_find(seen.begin(), seen.end()) != seen.end()) failCorrupted();
    return seen;
}

} // namespace

std::span<const std::uint8_t> DependencyDecoder::take(std::size_t count) {
    if (count > bytes_.size() - position_) failCorrupted();
    auto taken = bytes_.subspan(position_, count);
    position_ += count;
    return taken;
}

std::uint8_t DependencyDecoder::byte() {
    return take(1)[0];
}

int DependencyDecoder::u16() {
    auto b = take(2);
    return b[0] << 8 | b[1];
}

std::uint32_t DependencyDecoder::u32() {
    auto b = take(4);
    return std::uint32_t{b[0]} << 24 | std::uint32_t{b[1]} << 16 | std::uint32_t{b[2]} << 8 | b[3];
}

Date DependencyDecoder::date() {
    std::uint64_t high = u32();
    return static_cast<Date>(high << 32 | u32());
}

/// The bytes of a name.
std::span<const std::uint8_t> DependencyDecoder::text() {
    return take(static_cast<std::size_t>(u16()));
}

Name* DependencyDecoder::optionalName() {
    std::span<const std::uint8_t> bytes = text();
    return bytes.empty() ? nullptr : Name::fromBytes(bytes);
}

Name* DependencyDecoder::name() {
    Name* name = optionalName();
    if (name == nullptr) failCorrupted();
    return name;
}

Name* DependencyDecoder::classOfPackage() {
    Name* flatName = name();
    if (!isInPackage(flatName, package_)) failCorrupted();
    return flatName;
}

/// A name takes two bytes at least, so a count that the data cannot hold gets no memory.
std::span<Name*> DependencyDecoder::names() {
    auto count = static_cast<std::size_t>(u16());
    if (count > (bytes_.size() - position_) / 2) failCorrupted();
    std::span<Name*> names = arena_.makeArray<Name*>(count);
    for (Name*& each : names) each = name();
    return names;
}

std::span<Name*> DependencyDecoder::classNames() {
    std::span<Name*> classes = names();
    for (const Name* each : classes)
        if (!isInPackage(each, package_)) failCorrupted();
    return classes;
}

DependencyHeader DependencyDecoder::header() {
    if (byte() != dependencyformat::VERSION) throw IoFailure("bad format version");
    DependencyHeader header;
    header.package = package_ = name();
    header.stable = byte();
    header.writeDate = date();
    return header;
}

int DependencyDecoder::sourceCount() {
    return sourceCount_ = u16();
}

SourceRecord DependencyDecoder::source() {
    SourceRecord record;
    record.name = name();
    record.date = date();
    record.defs = classNames();
    record.imports = names();
    return record;
}

DependencyRecords DependencyDecoder::records(ImportsRead wanted) {
    DependencyRecords records;
    for (int i = 0; i < sourceCount_; i++) records.sources.push_back(source());
    for (int rest = u16(); rest > 0; rest--) records.classes.push_back(classRecord(wanted));
    if (position_ != bytes_.size()) failCorrupted();
    namesOf(records.sources);
    std::vector<const Name*> known = namesOf(records.classes);
    for (const SourceRecord& source : records.sources)
        for (const Name* defined : source.defs)
            if (!std::binary_search(known.begin(), known.end(), defined)) failCorrupted();
    return records;
}

ClassRecord DependencyDecoder::classRecord(ImportsRead wanted) {
    ClassRecord record;
    record.name = classOfPackage();
    record.date = date();
    record.fprint = static_cast<std::int32_t>(u32());
    record.sourceName = optionalName();
    record.sourceDate = date();
    int count = u16();
    if (count == 0) return record;
    if (wanted == ImportsRead::ALL)
        imports(record, count);
    else
        supertypes(record, count, wanted == ImportsRead::SUPERTYPES);
    return record;
}

namespace {

void setSuperclass(ClassRecord& record, ImportRecord* import) {
    if (record.superclass != nullptr) failCorrupted();
    record.superclass = import;
}

} // namespace

void DependencyDecoder::imports(ClassRecord& record, int count) {
    int interfaceCount = u16();
    if (interfaceCount > count) failCorrupted();
    record.hasImports = record.hasSupertypes = true;
    record.hasRefs = byte() == 1;
    std::vector<ImportRecord*> interfaces;
    for (int i = 0; i < count; i++) {
        auto* import = arena_.make<ImportRecord>();
        import->name = name();
        int flags = byte();
        import->date = date();
        import->fprint = static_cast<std::int32_t>(u32());
        if ((flags & dependencyformat::IS_SUPERCLASS) != 0) setSuperclass(record, import);
        if ((flags & dependencyformat::IS_INTERFACE) != 0) interfaces.push_back(import);
        if (record.hasRefs) {
            refs(import->varrefs);
            refs(import->funrefs);
        }
        record.imps.put(arena_, import);
    }
    bool isTwice = record.imps.size() != static_cast<std::uint32_t>(count);
    if (isTwice || record.imps.find(record.name) != nullptr) failCorrupted();
    if (interfaces.size() != static_cast<std::size_t>(interfaceCount)) failCorrupted();
    if (record.superclass == nullptr && record.name != tarn::names().javaLangObject) failCorrupted();
    record.interfaces = arena_.copyArray<ImportRecord*>(interfaces);
}

/// Steps over the imports, and keeps those that are supertypes if they are wanted.
void DependencyDecoder::supertypes(ClassRecord& record, int count, bool areWanted) {
    take(2);
    bool hasRefs = byte() == 1;
    record.hasSupertypes = areWanted;
    std::vector<ImportRecord*> interfaces;
    for (; count > 0; count--) {
        std::span<const std::uint8_t> name = text();
        int flags = byte();
        take(8 + 4);
        if (hasRefs) {
            skipRefs();
            skipRefs();
        }
        if (!areWanted || (flags & (dependencyformat::IS_SUPERCLASS | dependencyformat::IS_INTERFACE)) == 0) continue;
        auto* supertype = arena_.make<ImportRecord>();
        supertype->name = Name::fromBytes(name);
        if (name.empty() || supertype->name == record.name) failCorrupted();
        if ((flags & dependencyformat::IS_SUPERCLASS) != 0) setSuperclass(record, supertype);
        if ((flags & dependencyformat::IS_INTERFACE) != 0) interfaces.push_back(supertype);
    }
    record.interfaces = arena_.copyArray<ImportRecord*>(interfaces);
}

void DependencyDecoder::skipRefs() {
    for (int count = u16(); count > 0; count--) {
        text();
        take(4);
    }
}

void DependencyDecoder::refs(NodeTable<DefRecord>& table) {
    int count = u16();
    for (int i = 0; i < count; i++) {
        auto* ref = arena_.make<DefRecord>();
        ref->name = name();
        ref->fprint = static_cast<std::int32_t>(u32());
        table.put(arena_, ref);
    }
    if (table.size() != static_cast<std::uint32_t>(count)) failCorrupted();
}

} // namespace tarn
