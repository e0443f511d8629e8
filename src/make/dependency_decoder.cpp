#include "make/dependency_file.h"
#include "runtime/failure.h"
#include "semantic/universe.h"

#include <algorithm>
#include <string>

namespace tarn {

namespace {

constexpr int VERSION = 4;
constexpr int IS_SUPERCLASS = 1;
constexpr int IS_INTERFACE = 2;

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

template <class Record>
bool hasTwice(const std::vector<Record>& records) {
    std::vector<const Name*> seen;
    for (const Record& record : records) seen.push_back(record.name);
    std::sort(seen.begin(), seen.end());
    return std::adjacent_find(seen.begin(), seen.end()) != seen.end();
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

Name* DependencyDecoder::optionalName() {
    auto length = static_cast<std::size_t>(u16());
    return length == 0 ? nullptr : Name::fromBytes(take(length));
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

void DependencyDecoder::skipName() {
    take(static_cast<std::size_t>(u16()));
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
    if (byte() != VERSION) throw IoFailure("bad format version");
    DependencyHeader header;
    header.package = package_ = name();
    header.stable = byte() == 1;
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

DependencyRecords DependencyDecoder::records(bool withImports) {
    DependencyRecords records;
    for (int i = 0; i < sourceCount_; i++) records.sources.push_back(source());
    for (int rest = u16(); rest > 0; rest--) records.classes.push_back(classRecord(withImports));
    if (position_ != bytes_.size()) failCorrupted();
    if (hasTwice(records.sources) || hasTwice(records.classes)) failCorrupted();
    return records;
}

ClassRecord DependencyDecoder::classRecord(bool withImports) {
    ClassRecord record;
    record.name = classOfPackage();
    record.date = date();
    record.fprint = static_cast<std::int32_t>(u32());
    record.sourceName = optionalName();
    record.sourceDate = date();
    int count = u16();
    if (count == 0) return record;
    if (withImports)
        imports(record, count);
    else
        skipImports(count);
    return record;
}

void DependencyDecoder::imports(ClassRecord& record, int count) {
    int interfaceCount = u16();
    if (interfaceCount > count) failCorrupted();
    record.hasImports = true;
    record.hasRefs = byte() == 1;
    std::vector<ImportRecord*> interfaces;
    for (int i = 0; i < count; i++) {
        auto* import = arena_.make<ImportRecord>();
        import->name = name();
        int flags = byte();
        import->date = date();
        import->fprint = static_cast<std::int32_t>(u32());
        if ((flags & IS_SUPERCLASS) != 0) record.superclass = import;
        if ((flags & IS_INTERFACE) != 0) interfaces.push_back(import);
        if (record.hasRefs) {
            refs(import->varrefs);
            refs(import->funrefs);
        }
        record.imps.put(arena_, import);
    }
    bool isTwice = record.imps.size() != static_cast<std::uint32_t>(count);
    if (isTwice || record.imps.find(record.name) != nullptr) failCorrupted();
    if (interfaces.size() != static_cast<std::size_t>(interfaceCount)) failCorrupted();
    record.interfaces = arena_.copyArray<ImportRecord*>(interfaces);
}

void DependencyDecoder::skipImports(int count) {
    take(2);
    bool hasRefs = byte() == 1;
    for (; count > 0; count--) {
        skipName();
        take(1 + 8 + 4);
        if (!hasRefs) continue;
        skipRefs();
        skipRefs();
    }
}

void DependencyDecoder::skipRefs() {
    for (int count = u16(); count > 0; count--) {
        skipName();
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
