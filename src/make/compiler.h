#pragma once

#include "runtime/arena.h"
#include "store/store.h"

#include <deque>
#include <memory>
#include <span>
#include <vector>

namespace tarn {

class CompilationUnit;
class Reporter;
class TreeFactory;

/// One unit on its way through the compiler.
struct CompileTask {
    CompileTask() = default;
    CompileTask(const CompileTask&) = delete;
    CompileTask& operator=(const CompileTask&) = delete;
    ~CompileTask() { release(); }

    /// Lets go of the unit and its trees.
    void release();

    std::unique_ptr<Arena> arena = std::make_unique<Arena>(); ///< owns the unit and its trees; null once they are gone
    CompilationUnit* unit = nullptr;                          ///< null if parsing gave no tree, and once it is gone
    bool onDemand = false;                                    ///< added while a compile was running
    bool ok = true;                                           ///< no error while the unit was parsed or entered
    bool written = false;                                     ///< all its classes were
};

/// Takes a batch of sources through parsing, entry, attribution, generation and lowering, by way of three work queues.
///
/// A source is parsed and entered on arrival; the queues then complete its classes, attribute and generate it. A unit
/// with inner classes waits until all others are generated; it is lowered to plain classes then. Any error stops
/// generation from then on, while attribution goes on. One compile runs at a time, in the current context.
class Compiler {
public:
    /// Compiles a batch. A null output directory puts each class file beside its source. Makes `reporter` current; what
    /// is wrong was reported when this returns. Tells for each source whether all its classes were written.
    std::vector<bool> compile(std::span<const StoreRef> sources, StoreRef outputDirectory, Reporter* reporter);
    /// Parses and attributes one source, and generates nothing. The unit, which is null if parsing gave no tree, lives
    /// as long as this compiler. Reports.
    CompilationUnit* attribute(const StoreRef& source);
    /// Parses one source with any factory, which keeps what it learns; makes `reporter` current.
    void parseWith(const StoreRef& source, TreeFactory& factory, Reporter* reporter);
    /// Adds a source to the running compile. Throws CompileAbort if that gives an error.
    void compileOnDemand(const StoreRef& source);

private:
    void start(StoreRef outputDirectory);
    CompileTask* parseFile(const StoreRef& source);
    CompileTask* enterFile(const StoreRef& source);
    void runQueues();
    void runMemberQueue();
    void memberEnter(CompileTask* task);
    void attributeAndGenerate(CompileTask* task);
    void generate(CompileTask& task);
    void cloneForMake(CompilationUnit& unit);
    void lowerAll();

    /// All tasks. Symbols of classes that were not compiled to the end may lead to the trees of theirs, in this batch
    /// or a later one, so those stay.
    std::vector<std::unique_ptr<CompileTask>> tasks_;
    std::deque<CompileTask*> memberQueue_;
    std::deque<CompileTask*> attributeQueue_;
    std::deque<CompileTask*> lowerQueue_;
    StoreRef outputDirectory_;
    bool entering_ = false; ///< during the member entry of a task
};

} // namespace tarn
