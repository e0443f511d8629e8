#pragma once

#include "make/node_table.h"
#include "runtime/arena.h"
#include "semantic/context.h"
#include "store/store.h"

#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarn {

/// Passes of a make are told apart by a stamp that rises by this much, so that a class's `state` can say both in which
/// pass it was looked at and how far it came there. Nodes need not be cleared between passes.
constexpr int STAMP_STEP = 4;

/// How far a class came in a pass, added to the pass's stamp.
namespace progress {
enum : int {
    DECIDED = 0, ///< it was compared with the files
    IN_HAND = 1, ///< it is being made, or generated
    WRITTEN = 2, ///< its class file was written in this pass
    DONE = 3,    ///< it is up to date, its imports and references recorded
};
} // namespace progress

/// Why a class is to be compiled.
namespace reason {
enum : int {
    NONE = -1,
    REBUILD = 0,
    FIRST_BUILD = 1,
    NO_CLASS_FILE = 2,
    SOURCE_NAME = 3,
    SOURCE_DATE = 4,
    CLASS_DATE = 5,
    SUPERCLASS = 6,
    INTERFACE = 7,
    REFERENCE = 8,
    NO_REFERENCES = 9,
};
} // namespace reason

/// A field, or all methods of one name, and the fingerprint of what an importer can see of it.
struct DefRecord {
    Name* name = nullptr;
    std::int32_t fprint = 0;
};

/// References whose name begins with a dot, which no member's does, are about more than one member of the import.
///
/// A dot alone stands for what the importer could see of the class as a whole: its modifiers and its supertypes, and
/// for a subclass or implementor what these have that concerns it. It is there only if that is not what most classes
/// look like: public (or of the importer's package), neither final nor abstract, with no supertype but Object. A dot
/// and a name stand for all members of that name in the class and its supertypes; it is there if a method was looked up
/// in the class, or a field that was found in a supertype, and the class has supertypes that can change. Two dots are
/// the dates of the supertypes. Three dots stand for the other classes that the importer's source could mean by the
/// last name of the import.
constexpr char WIDE_REFERENCE = '.';

struct ClassNode;

/// What a class remembers of a class that it names: how that looked when the two were compared last.
struct ImportRecord {
    Name* name = nullptr;              ///< flat name of the imported class
    Date date = 0;                     ///< of its class file at the last check; 0 for never
    std::int32_t fprint = 0;           ///< its fingerprint then
    NodeTable<DefRecord> varrefs;      ///< its fields that are used, as they were then
    NodeTable<DefRecord> funrefs;      ///< its methods that are used, as they were then
    mutable ClassNode* node = nullptr; ///< of the imported class, once it was asked for
};

/// A source file. One that was only read about in a dependency file has no path and stands in its package alone.
struct SourceNode {
    int state = 0;               ///< the stamp of the validation that accepted it last
    int importsKnown = 0;        ///< when the classes of its imported packages were looked at, as a make's first stamp
    Name* path = nullptr;        ///< canonical; null if not known
    Name* name = nullptr;        ///< simple file name
    Name* packageName = nullptr; ///< which it states; null if it was not scanned
    std::span<Name*> defs;       ///< flat names of the classes that it defines, inner before outer
    std::span<Name*> imports;    ///< package names of its imports
    StoreRef store;              ///< null outside of a make
    Date date = 0;               ///< 0 if not known
    bool scanned = false;        ///< read in this make, not known from a dependency file
};

/// A class, be it known from its source, its class file or a dependency file.
struct ClassNode {
    int state = 0;                       ///< stamp and progress
    int validated = 0;                   ///< the stamp at which it was found in a scan
    int written = 0;                     ///< the stamp of the pass that wrote its class file last
    int recompileReason = reason::NONE;  ///< one of `reason`
    Name* name = nullptr;                ///< flat
    Name* simpleName = nullptr;          ///< behind the last "."
    Name* packageName = nullptr;         ///< "." for the unnamed package
    StoreRef store;                      ///< the class file; null if not found; the NullStore while it is generated
    SourceNode* source = nullptr;        ///< what defines it now; null if not found
    Date date = 0;                       ///< of the class file when it was recorded; 0 for never
    Date replaced = 0;                   ///< of the class file that a compile in this run was to replace; 0 if none
    Date sourceDate = 0;                 ///< of the source that it was compiled from
    Name* sourceName = nullptr;          ///< simple name of that source; null for a class that was not built here
    ClassSymbol* symbol = nullptr;       ///< the loaded class; null if it isn't needed
    bool defsCached = false;             ///< `vardefs` and `fundefs` are valid, and `fprint` was computed from them
    bool impsCached = false;             ///< `imps` are valid
    bool supersCached = false;           ///< `superclass` and `interfaces` are valid; so they are if `imps` are
    bool refsCached = false;             ///< so are the references of `imps`
    std::int32_t fprint = 0;             ///< fingerprint; unless `defsCached`, as it was recorded
    NodeTable<DefRecord> vardefs;        ///< its fields
    NodeTable<DefRecord> fundefs;        ///< its methods
    NodeTable<ImportRecord> imps;        ///< every class named in its constant pool, but for itself
    std::uint32_t flags = 0;             ///< modifiers that importers see; valid with the definitions
    std::int32_t abstracts = 0;          ///< fingerprint of its abstract methods; likewise
    unsigned walked = 0;                 ///< the number of the walk over supertypes that came by last
    ImportRecord* superclass = nullptr;  ///< one of `imps` if they are valid; null for java.lang.Object
    std::span<ImportRecord*> interfaces; ///< some of `imps`, likewise

    // By the shape of names, and so also for nodes of classes that don't exist
    Name* lastName = nullptr;         ///< behind the last "." or "$"; null for local and anonymous classes
    ClassNode* outer = nullptr;       ///< the class around it; null if there is none
    ClassNode* members = nullptr;     ///< the first of its member classes that have homonyms
    ClassNode* nextMember = nullptr;  ///< the next one of the same outer class
    ClassNode* nextHomonym = nullptr; ///< an older one of that last name
    bool hasHomonym = false;          ///< there is another of that last name
};

/// A package, as its dependency file and its directories tell.
struct PackageNode {
    int state = 0;                 ///< the pass in which it was made, as the stamp and IN_HAND
    int scanned = 0;               ///< when its directories were scanned last, as the make's first stamp
    int listed = 0;                ///< when its classes were handed to the compiler last, likewise
    int closed = 0;                ///< the pass whose walk closed it last, as the stamp
    bool stable = false;           ///< all its classes are taken to be up to date
    bool keepImps = false;         ///< the imports of its classes were read
    bool keepRefs = false;         ///< the references of its classes were read
    bool fresh = false;            ///< no dependency file was read
    bool found = false;            ///< the last scan came upon a directory of it
    bool root = false;             ///< named on the command line
    bool warnedMissing = false;    ///< the warning of missing sources was given
    bool library = false;          ///< a class library, by its file, of which nothing is ever made; stable then
    bool compiledHere = false;     ///< a class of it was compiled in this run
    bool writtenHere = false;      ///< its file was written in this run
    bool relearned = false;        ///< stable, but dates of imports have moved on since its file was written
    Date dateOffset = 0;           ///< added to the dates of classes in its dependency file
    std::size_t recorded = 0;      ///< fingerprint of its dependency file as it was read, but for its date
    std::string recordedPath;      ///< of that file, canonical; empty if there is none
    Name* name = nullptr;          ///< dotted; "." for the unnamed package
    NodeTable<SourceNode> sources; ///< by simple file name
    NodeTable<ClassNode> classes;  ///< by flat name
};

/// Everything that is known of packages, sources and classes, for the whole of a run.
///
/// Nodes are made when they are asked for and live as long as the graph; records and tables live in its arena. A class
/// that the last scan did not see is no more in its package's table, but keeps its node.
class Graph {
public:
    Graph();
    Graph(const Graph&) = delete;
    Graph& operator=(const Graph&) = delete;

    /// The node of that flat name, made if it is missing.
    ClassNode& classNode(Name* flatName);
    /// The node of the imported class.
    ClassNode& classNode(const ImportRecord& import);
    /// The node of that canonical path, made if it is missing.
    SourceNode& sourceNode(Name* path);
    /// A source of which only the simple name is known.
    SourceNode& sourceOfRecord(Name* simpleName);
    /// The node of that package, or null.
    [[nodiscard]] PackageNode* findPackage(const Name* packageName) const { return packages.find(packageName); }
    /// A new node, put in the place of any old one of the name.
    PackageNode& newPackage(Name* packageName);

    Arena arena; ///< of records and tables
    std::deque<ClassNode> classes;
    std::deque<SourceNode> sources;
    NodeTable<PackageNode> packages;
    Name* const unnamedPackage; ///< "."

    /// The newest class of that last name, from which the others are chained; null if there is none.
    [[nodiscard]] ClassNode* firstOfLastName(Name* lastName) const;

private:
    void link(ClassNode& node);
    static void markHomonym(ClassNode& node);

    NameTableOf<ClassNode*> classByName_;
    NameTableOf<ClassNode*> classByLastName_;
    NameTableOf<SourceNode*> sourceByPath_;
    std::deque<PackageNode> packageNodes_;
};

/// The package of a class of that flat name; the unnamed one is ".".
Name* packageOfClass(Name* flatName);

/// Whether the texts are the same but for the case of their letters from A to Z.
bool equalIgnoringCase(std::string_view a, std::string_view b);
/// Whether the store is a member of an archive; false for null.
bool isInArchive(const Store* store);

/// Where a package lies below an entry of a path: "a/b" for a.b, "." for the unnamed package.
std::string directoryOfPackage(const Name* packageName);
/// The package's dependency file below an entry of a path, without its extension: "a/b/a.b", "UnnamedPackage".
std::string dependencyFileStem(const Name* packageName);
constexpr std::string_view DEPENDENCY_EXTENSION = ".dependency";

} // namespace tarn
