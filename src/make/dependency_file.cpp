#include "make/dependency_file.h"

#include "driver/options.h"
#include "driver/reporter.h"
#include "runtime/failure.h"
#include "store/directory_store.h"
#include "store/file_date.h"
#include "store/path_list.h"

#include <algorithm>
#include <ctime>
#include <functional>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

namespace tarn {

namespace {

constexpr Date QUARTER_HOUR = 450;
constexpr std::size_t MOST = std::numeric_limits<std::uint16_t>::max(); ///< what a count or length can say

/// Dates from a file can be any number, so sums wrap around.
Date sum(Date a, Date b) {
    return static_cast<Date>(static_cast<std::uint64_t>(a) + static_cast<std::uint64_t>(b));
}

Date difference(Date a, Date b) {
    return static_cast<Date>(static_cast<std::uint64_t>(a) - static_cast<std::uint64_t>(b));
}

/// The nearest multiple of a quarter of an hour: clocks that are put forward or back, and time zones, differ by those.
Date toQuarterHours(Date span) {
    Date moved = sum(span, span < 0 ? -QUARTER_HOUR / 2 : QUARTER_HOUR / 2);
    return moved - moved % QUARTER_HOUR;
}

/// Of the contents of the package's file, but for its date.
std::size_t fingerprintOf(std::span<const std::uint8_t> file, const PackageNode& package) {
    std::size_t date = 1 + 2 + package.name->length + 1;
    auto hash = [&](std::size_t from, std::size_t end) {
        const char* bytes = reinterpret_cast<const char*>(file.data());
        return std::hash<std::string_view>()({bytes + from, end - from});
    };
    return hash(0, date) * 31 + hash(date + sizeof(Date), file.size());
}

Date shifted(Date date, Date offset) {
    return date == 0 ? 0 : sum(date, offset);
}

} // namespace

// ---- reading

bool DependencyFiles::read(PackageNode& package, Store& store, bool forMaking) {
    std::string cause;
    try {
        readRecords(package, store, forMaking);
        return true;
    } catch (const IoFailure& failure) {
        cause = failure.what();
    }
    if (cause.empty()) cause = "corrupted file";
    ScopedSource none(nullptr);
    reportWarning(0, messages::errorReadingDependencies, package.name, cause);
    return false;
}

/// A file that does not even begin like a dependency file of the package is not read any further.
std::span<const std::uint8_t> DependencyFiles::contents(Store& store, const PackageNode& package) {
    std::size_t length = store.readInto(buffer_);
    std::span<const std::uint8_t> whole(buffer_);
    DependencyHeader header = DependencyDecoder(whole.first(std::min(length, whole.size())), graph_.arena).header();
    if (header.package != package.name) throw IoFailure("contains wrong package " + header.package->toString());
    if (length >= LARGEST_FILE) throw IoFailure("file too large");
    if (length >= buffer_.size()) {
        buffer_ = store.read();
        length = buffer_.size();
    }
    return std::span(buffer_).first(length);
}

void DependencyFiles::readRecords(PackageNode& package, Store& store, bool forMaking) {
    const Options& options = *currentOptions;
    std::span<const std::uint8_t> whole = contents(store, package);
    DependencyDecoder decoder(whole, graph_.arena);
    store.close();
    DependencyHeader header = decoder.header();
    if (header.package != package.name) throw IoFailure("contains wrong package " + header.package->toString());
    if (options.verbose) {
        std::string_view word = header.stable == 0 ? "not " : header.stable == 1 && forMaking ? "was " : "";
        printlnProgress("  reading " + store.toString() + " (" + std::string(word) + "stable)");
    }
    bool stable = header.stable == 1 && !forMaking;
    bool hasSources = decoder.sourceCount() != 0;
    bool isLibrary = stable && !hasSources && header.writeDate == LIBRARY_DATE && isInArchive(&store);
    bool isUnchecked = stable && options.nocheckstable;
    ImportsRead wanted = isLibrary ? ImportsRead::NONE : isUnchecked ? ImportsRead::SUPERTYPES : ImportsRead::ALL;
    DependencyRecords records = decoder.records(wanted);

    package.stable = stable;
    package.library = isLibrary;
    package.keepImps = package.keepRefs = wanted == ImportsRead::ALL;
    package.fresh = false;
    package.dateOffset = toQuarterHours(difference(store.date(), header.writeDate));
    package.recorded = fingerprintOf(whole, package);
    package.recordedPath = store.canonicalPath().value_or("");
    enter(package, records);
}

void DependencyFiles::enter(PackageNode& package, const DependencyRecords& records) {
    package.sources = {};
    package.classes = {};
    for (const SourceRecord& record : records.sources) {
        SourceNode& source = graph_.sourceOfRecord(record.name);
        source.packageName = package.name;
        source.date = record.date;
        source.defs = record.defs;
        source.imports = record.imports;
        package.sources.put(graph_.arena, &source);
    }
    package.classes.reserve(graph_.arena, static_cast<std::uint32_t>(records.classes.size()));
    for (const ClassRecord& record : records.classes) enterClass(package, record);
}

void DependencyFiles::enterClass(PackageNode& package, const ClassRecord& record) {
    Date offset = package.dateOffset;
    ClassNode& c = graph_.classNode(record.name);
    c.state = 0;
    c.date = shifted(record.date, offset);
    c.fprint = record.fprint;
    c.sourceName = record.sourceName;
    c.sourceDate = record.sourceName == nullptr ? 0 : shifted(record.sourceDate, offset);
    c.symbol = nullptr;
    c.defsCached = false;
    c.vardefs = c.fundefs = {};
    c.impsCached = record.hasImports;
    c.supersCached = record.hasSupertypes;
    c.refsCached = record.hasRefs;
    c.imps = record.imps;
    c.superclass = record.superclass;
    c.interfaces = record.interfaces;
    for (ImportRecord* import : c.imps.nodes()) import->date = shifted(import->date, offset);
    package.classes.put(graph_.arena, &c);
}

// ---- writing

void DependencyFiles::write(PackageNode& package, StoreRef outputDirectory) {
    std::string cause;
    StoreRef store;
    try {
        if (!outputDirectory) outputDirectory = std::make_shared<DirectoryStore>(".");
        if (saysTheSame(package, *outputDirectory)) return;
        store = outputStore(std::move(outputDirectory), dependencyFileStem(package.name), DEPENDENCY_EXTENSION);
        if (currentOptions->verbose) {
            printlnProgress("  writing " + (store ? store->toString() : "null") +
                            (package.stable ? " (stable)" : " (not stable)"));
        }
        if (!store) throw IoFailure("cannot create");
        package.recordedPath.clear();
        std::span<const std::uint8_t> contents = encode(package, dateOfUnixTime(std::time(nullptr)));
        store->write(contents);
        package.recorded = fingerprintOf(contents, package);
        package.recordedPath = store->canonicalPath().value_or("");
        return;
    } catch (const IoFailure& failure) {
        cause = failure.what();
    }
    if (store) store->close();
    reportError(0, messages::errorWriting, "dependency file for package " + package.name->toString(), cause);
    throw MakeAbort{};
}

/// Whether the file that is to be written is the one that was read, and says all this already. Also when that was
/// written counts, if dates are shifted by it.
bool DependencyFiles::saysTheSame(const PackageNode& package, Store& outputDirectory) {
    if (package.recordedPath.empty() || package.dateOffset != 0) return false;
    StoreRef file = outputDirectory.file(dependencyFileStem(package.name).append(DEPENDENCY_EXTENSION));
    if (!file || file->canonicalPath() != package.recordedPath) return false;
    return fingerprintOf(encode(package, 0), package) == package.recorded;
}

// What the format has no room for is left out, as if it was never learned: such a source is scanned in each run, such a
// class is compiled in each.

namespace {

bool fits(const Name* name) {
    return name->length <= MOST;
}

bool fits(std::span<Name* const> names) {
    return names.size() <= MOST && std::all_of(names.begin(), names.end(), [](const Name* name) { return fits(name); });
}

template <class Record>
bool fits(const NodeTable<Record>& records) {
    std::span<Record* const> all = records.nodes();
    return all.size() <= MOST && std::all_of(all.begin(), all.end(), [](const Record* r) { return fits(r->name); });
}

} // namespace

bool DependencyFiles::hasRoomForImports(const ClassNode& c) {
    auto refsFit = [](const ImportRecord* import) { return fits(import->varrefs) && fits(import->funrefs); };
    std::span<ImportRecord* const> imports = c.imps.nodes();
    return fits(c.imps) && (!c.refsCached || std::all_of(imports.begin(), imports.end(), refsFit));
}

std::span<const std::uint8_t> DependencyFiles::encode(const PackageNode& package, Date writeDate) {
    if (package.sources.size() > MOST || package.classes.size() > MOST) throw IoFailure("too many classes");
    position_ = 0;
    byte(dependencyformat::VERSION);
    name(package.name);
    byte(package.stable ? 1 : 0);
    date(writeDate);
    u16(package.sources.size());
    for (const SourceNode* source : package.sources.nodes()) putSource(*source, package);
    std::span<ClassNode* const> classes = package.classes.nodes();
    auto fitsName = [](const ClassNode* c) { return fits(c->name); };
    u16(static_cast<std::size_t>(std::count_if(classes.begin(), classes.end(), fitsName)));
    for (const ClassNode* c : classes)
        if (fitsName(c)) putClass(*c);
    return std::span(buffer_).first(position_);
}

/// A source of which the package does not have all classes, after an error, is scanned anew as well.
void DependencyFiles::putSource(const SourceNode& source, const PackageNode& package) {
    auto hasClass = [&](const Name* defined) { return package.classes.find(defined) != nullptr; };
    bool isKnown = source.date != 0 && fits(source.defs) && fits(source.imports) &&
                   std::all_of(source.defs.begin(), source.defs.end(), hasClass);
    name(source.name);
    date(isKnown ? source.date : 0);
    names(isKnown ? source.defs : std::span<Name*>());
    names(isKnown ? source.imports : std::span<Name*>());
}

void DependencyFiles::putClass(const ClassNode& c) {
    name(c.name);
    date(c.date);
    u32(static_cast<std::uint32_t>(c.fprint));
    name(c.sourceName);
    date(c.sourceDate);
    std::size_t count = c.impsCached && hasRoomForImports(c) ? c.imps.size() : 0;
    u16(count);
    if (count == 0) return;
    auto isInterface = [&c](const ImportRecord* import) {
        return std::find(c.interfaces.begin(), c.interfaces.end(), import) != c.interfaces.end();
    };
    u16(static_cast<std::size_t>(std::count_if(c.imps.nodes().begin(), c.imps.nodes().end(), isInterface)));
    byte(c.refsCached ? 1 : 0);
    for (const ImportRecord* import : c.imps.nodes()) {
        name(import->name);
        byte((import == c.superclass ? dependencyformat::IS_SUPERCLASS : 0) |
             (isInterface(import) ? dependencyformat::IS_INTERFACE : 0));
        date(import->date);
        u32(static_cast<std::uint32_t>(import->fprint));
        if (!c.refsCached) continue;
        refs(import->varrefs);
        refs(import->funrefs);
    }
}

void DependencyFiles::refs(const NodeTable<DefRecord>& table) {
    u16(table.size());
    for (const DefRecord* ref : table.nodes()) {
        name(ref->name);
        u32(static_cast<std::uint32_t>(ref->fprint));
    }
}

/// Room for so many bytes more, which count as put.
std::uint8_t* DependencyFiles::room(std::size_t count) {
    if (count > buffer_.size() - position_) buffer_.resize(std::max(buffer_.size() * 2, position_ + count));
    std::uint8_t* at = buffer_.data() + position_;
    position_ += count;
    return at;
}

namespace {

void put32(std::uint8_t* at, std::uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8) *at++ = static_cast<std::uint8_t>(value >> shift);
}

} // namespace

void DependencyFiles::byte(int value) {
    *room(1) = static_cast<std::uint8_t>(value);
}

void DependencyFiles::u16(std::size_t value) {
    if (value > MOST) throw IoFailure("too many entries, or a name that is too long");
    std::uint8_t* at = room(2);
    at[0] = static_cast<std::uint8_t>(value >> 8);
    at[1] = static_cast<std::uint8_t>(value);
}

void DependencyFiles::u32(std::uint32_t value) {
    put32(room(4), value);
}

void DependencyFiles::date(Date value) {
    auto bits = static_cast<std::uint64_t>(value);
    std::uint8_t* at = room(8);
    put32(at, static_cast<std::uint32_t>(bits >> 32));
    put32(at + 4, static_cast<std::uint32_t>(bits));
}

void DependencyFiles::name(const Name* name) {
    std::size_t length = name == nullptr ? 0 : name->length;
    u16(length);
    if (length != 0) name->copyTo(room(length));
}

void DependencyFiles::names(std::span<Name* const> names) {
    u16(names.size());
    for (const Name* each : names) name(each);
}

} // namespace tarn
