#pragma once

#include "driver/options.h"
#include "make/compiler.h"
#include "make/dependency_file.h"
#include "make/graph.h"
#include "make/make_listener.h"
#include "semantic/context.h"
#include "store/store.h"

#include <optional>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace tarn {

class MakerClassFile;
class ReferenceVisitor;
class Reporter;

/// What a make starts from.
struct MakeRoots {
    std::vector<StoreRef> sources;
    std::vector<std::string> classes;         ///< flat names
    std::vector<std::string> packages;        ///< dotted names
    std::vector<StoreRef> inputSources;       ///< compiled whatever their state, as one batch, and nothing else is done
    std::vector<StoreRef> projectSources;     ///< known to the caller: need not be found through the source path
    std::vector<std::string> projectPackages; ///< read as packages that are made
    bool rebuild = false;                     ///< in the first pass all that has a source counts as out of date
};

/// The make engine: finds out what is out of date, and compiles exactly that, pass after pass, until a pass compiles
/// nothing.
///
/// A pass walks from the roots over the imports of classes. For each class it compares dates: of its source, of its
/// class file, and of what it imports. Only where a date has moved does it look at fingerprints. A class that is
/// compiled may change its own fingerprint, which can make its importers out of date; those the next pass finds.
///
/// While a compile runs, it asks through the MakerClassFile for every class that it names, and the answer may be to
/// compile that class as well, then and there.
///
/// A package that was up to date as a whole is recorded as stable. That is taken as given until something in it turns
/// out to have changed; then the package is read again as one that has to be made, and the pass starts over.
class Maker {
public:
    /// Quiet until the driver says otherwise.
    explicit Maker(MakeListener& listener);
    ~Maker();
    Maker(const Maker&) = delete;
    Maker& operator=(const Maker&) = delete;

    Options& options() { return context_.options; }
    void setEncoding(std::optional<std::string> encoding) { context_.encoding = std::move(encoding); }
    const PathList& classPath() const { return classPath_; }
    void setClassPath(PathList path);
    const PathList& sourcePath() const { return sourcePath_; }
    void setSourcePath(PathList path);
    const StoreRef& outputDirectory() const { return outputDirectory_; }
    /// Null puts each class file beside its source, and dependency files below the working directory.
    void setOutputDirectory(StoreRef directory) { outputDirectory_ = std::move(directory); }
    Reporter* reporter() const { return reporter_; }
    /// The caller keeps it alive.
    void setReporter(Reporter* reporter) { reporter_ = reporter; }

    /// Makes the roots. Failures have been reported and counted when this returns; what it throws is a fault of the
    /// tool or the user's wish to stop.
    void makeThem(const MakeRoots& roots);
    /// Writes the dependency files that are still to be written, and ends the make for good. Failures are reported.
    void close();

    /// The contents of a stable dependency file for each of these packages of the class path, dated LIBRARY_DATE, for a
    /// library that is never made. Throws IoFailure if a class cannot be read.
    std::vector<Bytes> describeLibrary(const std::vector<std::string>& packages);

    // What the class reader and the generator ask and tell.

    /// Whether the classes of the package are to be listed again.
    bool classListChanged(Name* packageName);
    /// The simple names of the classes of the package; `found` tells whether there is such a package.
    std::vector<Name*> listClasses(Name* packageName, bool& found);
    /// Whether a class that was read is to be read again. Looks once per pass.
    bool classChanged(Name* flatName);
    /// The file of the class, which is up to date, or the NullStore if it is being compiled. May compile it. Throws
    /// ClassNotFound.
    StoreRef classStore(Name* flatName);
    /// The same for the running compile, which takes the class along if it has fallen behind its supertypes.
    StoreRef storeForCompile(Name* flatName);
    /// A class file was written.
    void outClassNotify(const StoreRef& out, ClassSymbol* symbol, const StoreRef& source);
    /// A class that was compiled has a lean copy.
    void cloneClassNotify(ClassSymbol* symbol, ClassSymbol* clone);

    [[nodiscard]] int stamp() const { return stamp_; }

private:
    using SourceNodes = std::vector<SourceNode*>;
    using Definitions = NodeTable<DefRecord> ClassNode::*; ///< the fields or the methods

    // The make (maker.cpp)
    void makePasses(const MakeRoots& roots, bool isRestart);
    void validateRoots(const MakeRoots& roots);
    void pass(const MakeRoots& roots);
    void checkSourcePath(const SourceNode& source, const PackageNode& package);
    void endPass();
    void landAll();
    void closeNodes();
    void closePackage(PackageNode& package);
    void warnOfMissingPackages(const MakeRoots& roots);
    void writeDependencyFile(PackageNode& package);

    // Packages and sources against the file system (maker_scan.cpp)
    PackageNode& packageNode(Name* name, bool forMaking);
    PackageNode& rootPackage(Name* name);
    void carryOver(const PackageNode& old, PackageNode& package);
    StoreRef findDependencyFile(const Name* packageName);
    StoreRef findClassFile(const ClassNode& c);
    SourceNode* validateSource(const StoreRef& store, PackageNode* directory, bool forMaking);
    bool scanSource(SourceNode& source, Date date);
    void validateClass(Name* flatName, PackageNode& package, SourceNode& source);
    void validateClass(Name* flatName, PackageNode& package, const StoreRef& file);
    bool scanPackage(PackageNode& package);
    void forgetUnseen(PackageNode& package);

    // The walk (maker_walk.cpp)
    void makeSourceRefs(const SourceNode& source);
    void makeSourceDefs(const SourceNode& source);
    void makePackage(PackageNode& package);
    bool makesAsAWhole(const PackageNode& package) const;
    void makeClass(ClassNode& c, PackageNode& package);
    void makeImports(const ClassNode& c, const PackageNode& package);
    bool remakeForSupertypes(ClassNode& c);
    bool hasMoved(const ImportRecord& import);
    bool isUnsettled(ClassNode& c, std::unordered_set<const ClassNode*>& seen);
    bool isAbstractInFile(ClassNode& c);
    bool remakeUndecided(ClassNode& c);
    bool remakeForReferences(ClassNode& c, PackageNode& package);
    void warnOfMissingSource(const ClassNode& c, PackageNode& package);
    bool classChanged(ClassNode& c, PackageNode& package);
    int reasonOfSource(const ClassNode& c, const PackageNode& package) const;
    StoreRef classStore(ClassNode& c, PackageNode& package);
    bool isUnchecked(const PackageNode& package) const;
    static void giveUpFile(ClassNode& c);
    void flushClass(ClassNode& c);
    void leaveStable(const ClassNode& c, bool withWarning);

    // Compiling (maker_compile.cpp)
    StoreRef compileClass(ClassNode& c, int reason, const ImportRecord* import = nullptr,
                          const DefRecord* member = nullptr);
    std::string reasonText(const ClassNode& c, int reason, const ImportRecord* import, const DefRecord* member) const;
    [[noreturn]] void failUnexpected(const ClassNode& c);
    void reopenPackages();
    void compileBatch(const std::vector<StoreRef>& sources);
    void updateClass(ClassNode& c);
    bool learnWritten(ClassNode& c);

    // Fingerprints and references (change_detection.cpp)
    void cacheDefs(ClassNode& c);
    void cacheImps(ClassNode& c);
    void cacheRefs(ClassNode& c);
    void cacheLooseRefs(ClassNode& c);
    void visitUses(const ClassNode& c, ReferenceVisitor& visitor);
    const DefRecord* strictCheckRefs(const ImportRecord& import, ClassNode& imported);
    const DefRecord* looseCheckRefs(ClassNode& c, const ImportRecord& import, ClassNode& imported);
    const DefRecord* findDef(ClassNode& c, const Name* name, Definitions defs);
    void learnFingerprint(ClassNode& c);
    ClassSymbol* loadClass(ClassNode& c, bool withPool);
    void dropSymbol(ClassNode& c);

    // Classes that come and go (class_names.cpp)
    bool isLeftover(const ClassNode& c) const;
    bool exists(const ClassNode& c);
    bool remakeForGoneImports(ClassNode& c);
    void knowImports(SourceNode& source);
    bool remakeForHomonyms(ClassNode& c);
    std::int32_t homonymsOf(const ClassNode& importer, const ImportRecord& import);
    std::uint32_t hidingMembers(const ClassNode& importer, const ClassNode& c);

    // Wide references (wide_references.cpp)
    static const DefRecord* wholeClassRef();
    bool isOfLibrary(const ClassNode& c);
    std::vector<ClassNode*> supertypesOf(ClassNode& c);
    std::vector<const Name*> namesIn(ClassNode& c);
    std::int32_t shapeOf(ClassNode& importer, const ImportRecord& import, ClassNode& imported);
    std::uint32_t inheritedFrom(const std::vector<ClassNode*>& supertypes, const std::vector<const Name*>& concerned);
    std::int32_t allNamed(ClassNode& c, const Name* name, Definitions defs);
    std::int32_t datesOfSupertypes(ClassNode& c, bool& areReliable);
    bool isAsSeen(const ImportRecord& import, ClassNode& imported);
    bool takeAsSeen(ImportRecord& import, ClassNode& imported);
    void recordWideRefs(ClassNode& c);
    void recordHomonyms(ClassNode& c);
    const DefRecord* checkWideRefs(ClassNode& c, const ImportRecord& import, ClassNode& imported);

    Context context_;
    Graph graph_;
    DependencyFiles files_;
    Compiler compiler_;
    MakeListener& listener_;
    MakerClassFile* classFile_; ///< the context's reader
    PathList classPath_;
    PathList sourcePath_; ///< the very same list as the class path if none was named
    std::vector<std::optional<std::string>> sourceCanonicalPaths_; ///< of the source path, no separator behind
    StoreRef outputDirectory_;                                     ///< null if class files go beside their sources
    Reporter* reporter_ = nullptr;

    std::unordered_set<const Name*> missing_;     ///< packages in which the last make has found no class
    SourceNodes rootSources_;                     ///< null in the place of a source that was refused
    std::vector<ClassNode*>* compiled_ = nullptr; ///< written by the running batch; null if none runs
    std::vector<ClassNode*>* expected_ = nullptr; ///< asked for and compiled on demand by it; null if none runs
    NameTableOf<std::vector<NameUse>> uses_;      ///< of classes written lately, by class, or by source for imports
    int stamp_ = 0;                               ///< number of the current pass
    int base_ = 0;                                ///< the stamp when the current make began
    bool compiling_ = false;                      ///< the compiler runs
    bool rebuild_ = false;                        ///< sources count as changed
    bool compiledInPass_ = false;                 ///< so that another pass follows
    bool writtenInPass_ = false;                  ///< so that what this pass found may be out of date already
    bool remake_ = false;                         ///< the pass was abandoned to start over
};

} // namespace tarn
