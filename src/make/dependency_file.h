#pragma once

#include "make/graph.h"
#include "store/store.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tarn {

/// Numbers of the format, which docs/dependency-files.md tells: its version, and the flags of an import.
namespace dependencyformat {
constexpr int VERSION = 4;
constexpr int IS_SUPERCLASS = 1;
constexpr int IS_INTERFACE = 2;
} // namespace dependencyformat

/// When the dependency files of a class library are said to be written: 1997-01-01 00:00:00. By this they are told from
/// those of another archive without sources, which says no more of its classes than any other package.
constexpr Date LIBRARY_DATE = 6248275200;

/// What a dependency file says before its records.
struct DependencyHeader {
    Name* package = nullptr; ///< dotted; "." for the unnamed package
    int stable = 0;          ///< 1 if the package was stable, 0 if not; what else stands there promises nothing
    Date writeDate = 0;      ///< when the file was written, by the clock of its writer
};

/// A source as a dependency file tells of it. Dates are as they stand in the file.
struct SourceRecord {
    Name* name = nullptr; ///< simple file name
    Date date = 0;        ///< 0 if not known
    std::span<Name*> defs;
    std::span<Name*> imports;
};

/// What is taken up of the imports of classes.
enum class ImportsRead {
    ALL,
    SUPERTYPES, ///< only the names of superclass and interfaces
    NONE,
};

/// A class as a dependency file tells of it. Dates are as they stand in the file, those of its imports too.
struct ClassRecord {
    Name* name = nullptr; ///< flat
    Date date = 0;        ///< 0 if none was recorded
    std::int32_t fprint = 0;
    Name* sourceName = nullptr; ///< null if it has no source
    Date sourceDate = 0;
    bool hasImports = false;    ///< the record tells of imports, and all were taken up
    bool hasRefs = false;       ///< and of what is used of them
    bool hasSupertypes = false; ///< `superclass` and `interfaces` were taken up
    NodeTable<ImportRecord> imps;
    ImportRecord* superclass = nullptr;
    std::span<ImportRecord*> interfaces;
};

/// The records of one file, in its order.
struct DependencyRecords {
    std::vector<SourceRecord> sources;
    std::vector<ClassRecord> classes;
};

/// Takes a dependency file apart, and touches nothing but the arena that its records go into.
///
/// Every length and count is held against the data, every name against the place where it stands: a file that is cut,
/// garbled or longer than its contents throws IoFailure ("corrupted file", or what is wrong with its version).
class DependencyDecoder {
public:
    DependencyDecoder(std::span<const std::uint8_t> bytes, Arena& arena) : bytes_(bytes), arena_(arena) {}

    /// Comes first.
    DependencyHeader header();
    /// How many source records there are. Comes second.
    int sourceCount();
    /// Comes last.
    DependencyRecords records(ImportsRead wanted);

private:
    std::uint8_t byte();
    int u16();
    std::uint32_t u32();
    Date date();
    std::span<const std::uint8_t> text();
    Name* optionalName();
    Name* name();
    Name* classOfPackage();
    std::span<Name*> names();
    std::span<Name*> classNames();
    SourceRecord source();
    ClassRecord classRecord(ImportsRead wanted);
    void imports(ClassRecord& record, int count);
    void supertypes(ClassRecord& record, int count, bool areWanted);
    void skipRefs();
    void refs(NodeTable<DefRecord>& table);
    std::span<const std::uint8_t> take(std::size_t count);

    std::span<const std::uint8_t> bytes_;
    std::size_t position_ = 0;
    Arena& arena_;
    Name* package_ = nullptr;
    int sourceCount_ = 0;
};

/// Reads and writes the dependency files of a graph, through one buffer that only grows.
class DependencyFiles {
public:
    explicit DependencyFiles(Graph& graph) : graph_(graph), buffer_(FIRST_BUFFER) {}

    /// Fills a new package node from the file. False after any failure: a warning was given then, and the graph is as
    /// it was. `forMaking` takes what the file says as a record, and not as a promise that all is up to date.
    bool read(PackageNode& package, Store& store, bool forMaking);

    /// Writes the package's file below the output directory (null: the working directory), with one write, unless it
    /// says the same already. Reports a failure and throws MakeAbort. The package has its imports and references.
    void write(PackageNode& package, StoreRef outputDirectory);

    /// The contents of the package's file, in the buffer. Throws IoFailure if the format has no room for them.
    std::span<const std::uint8_t> encode(const PackageNode& package, Date writeDate);
    /// Whether counts and lengths of 16 bits suffice for what the class imports. They are left out otherwise.
    static bool hasRoomForImports(const ClassNode& c);

private:
    static constexpr std::size_t FIRST_BUFFER = 65536;
    static constexpr std::size_t LARGEST_FILE = std::size_t{1} << 28; ///< far above what records of 16-bit counts fill

    std::span<const std::uint8_t> contents(Store& store, const PackageNode& package);
    void readRecords(PackageNode& package, Store& store, bool forMaking);
    bool saysTheSame(const PackageNode& package, Store& outputDirectory);
    void enter(PackageNode& package, const DependencyRecords& records);
    void enterClass(PackageNode& package, const ClassRecord& record);

    void byte(int value);
    void u16(std::size_t value);
    void u32(std::uint32_t value);
    void date(Date value);
    void name(const Name* name);
    void names(std::span<Name* const> names);
    void refs(const NodeTable<DefRecord>& table);
    void putSource(const SourceNode& source, const PackageNode& package);
    void putClass(const ClassNode& c);
    std::uint8_t* room(std::size_t count);

    Graph& graph_;
    Bytes buffer_;
    std::size_t position_ = 0;
};

} // namespace tarn
