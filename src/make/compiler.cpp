#include "make/compiler.h"

#include "classfile/class_file.h"
#include "codegen/lowering.h"
#include "driver/reporter.h"
#include "runtime/failure.h"
#include "semantic/context.h"
#include "semantic/entry.h"
#include "syntax/parser.h"
#include "syntax/scanner.h"
#include "syntax/tree_builder.h"
#include "syntax/tree_declarations.h"

#include <chrono>
#include <memory>
#include <ranges>
#include <string>
#include <utility>

namespace tarn {

namespace {

int errorCount() {
    return currentReporter()->errorCount();
}

using Clock = std::chrono::steady_clock;

std::string millisecondsSince(Clock::time_point start) {
    auto elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
    return std::to_string(elapsed.count());
}

/// Runs the grammar over a source. Failures to read or decode it are reported without position, and give null.
TreeBuffer* parse(const StoreRef& source, TreeFactory& factory) {
    ScopedSource here(source);
    try {
        Scanner scanner(*source, context().encoding);
        return Parser(scanner, factory).compilationUnit();
    } catch (const MalformedInput&) {
        reportError(0, messages::malformedInputCharacter, source->toString());
    } catch (const UnsupportedEncoding&) {
        reportError(0, messages::unsupportedEncoding, context().encoding.value_or(""));
    } catch (const IoFailure&) {
        reportError(0, messages::cannotRead, source->toString());
    }
    return nullptr;
}

/// Whether the classes that every program needs could be read. Reports.
bool initUniverse() {
    try {
        context().initUniverse();
        return true;
    } catch (const IoFailure& failure) {
        reportError(0, messages::initializationError, failure.what());
        return false;
    }
}

} // namespace

void CompileTask::release() {
    if (unit != nullptr) std::destroy_at(unit); // it holds its source; all else goes with the arena
    unit = nullptr;
    arena = nullptr;
}

void Compiler::parseWith(const StoreRef& source, TreeFactory& factory, Reporter* reporter) {
    setReporter(reporter);
    parse(source, factory);
}

CompileTask* Compiler::parseFile(const StoreRef& source) {
    const Options& options = context().options;
    std::string shown = source->toString();
    if (!options.quiet) printlnProgress("  compiling " + shown);
    auto start = Clock::now();
    if (options.verbose) printProgress("[parsing " + shown + " ");
    CompileTask* task = tasks_.emplace_back(std::make_unique<CompileTask>()).get();
    TreeBuilder builder(*task->arena);
    if (TreeBuffer* defs = parse(source, builder))
        task->unit = static_cast<CompilationUnit*>(builder.compilationUnit(defs, source));
    if (options.verbose) printlnProgress(millisecondsSince(start) + "ms]");
    return task;
}

// ---- a batch

void Compiler::start(StoreRef outputDirectory) {
    memberQueue_.clear();
    attributeQueue_.clear();
    lowerQueue_.clear();
    std::erase_if(tasks_, [](const auto& task) { return task->arena == nullptr; });
    entering_ = false;
    entry::forgetPending();
    outputDirectory_ = std::move(outputDirectory);
    context().options.deprecationSeen = false;
    context().sourceClasses.clear();
}

CompileTask* Compiler::enterFile(const StoreRef& source) {
    int errors = errorCount();
    CompileTask* task = parseFile(source);
    if (task->unit != nullptr) task->unit->enter();
    task->ok = errorCount() == errors;
    return task;
}

std::vector<bool> Compiler::compile(std::span<const StoreRef> sources, StoreRef outputDirectory, Reporter* reporter) {
    start(std::move(outputDirectory));
    setReporter(reporter);
    std::vector<CompileTask*> batch;
    try {
        for (const StoreRef& source : sources) memberQueue_.push_back(batch.emplace_back(enterFile(source)));
        if (initUniverse()) runQueues();
    } catch (const CompileAbort&) {
        // Reported where it was thrown.
    }
    context().sourceClasses.clear();
    if (context().options.deprecationSeen) reportWarning(0, messages::deprecationNote);
    std::vector<bool> results(sources.size());
    for (std::size_t i = 0; i < batch.size(); i++) results[i] = batch[i]->written;
    return results;
}

CompilationUnit* Compiler::attribute(const StoreRef& source) {
    start(nullptr);
    CompilationUnit* unit = enterFile(source)->unit;
    if (unit == nullptr || !initUniverse()) return unit;
    unit->memberEnter(nullptr);
    unit->attribute();
    return unit;
}

void Compiler::runQueues() {
    for (;;) {
        if (!memberQueue_.empty()) {
            runMemberQueue();
        } else if (!attributeQueue_.empty()) {
            CompileTask* task = attributeQueue_.front();
            attributeQueue_.pop_front();
            attributeAndGenerate(task);
        } else if (!lowerQueue_.empty() && errorCount() == 0) {
            lowerAll();
        } else {
            return;
        }
    }
}

void Compiler::runMemberQueue() {
    while (!memberQueue_.empty()) {
        CompileTask* task = memberQueue_.front();
        memberQueue_.pop_front();
        memberEnter(task);
    }
}

void Compiler::memberEnter(CompileTask* task) {
    entering_ = true;
    int errors = errorCount();
    if (task->unit != nullptr) task->unit->memberEnter(nullptr);
    if (errorCount() != errors) task->ok = false;
    attributeQueue_.push_back(task);
    entering_ = false;
}

void Compiler::attributeAndGenerate(CompileTask* task) {
    CompilationUnit* unit = task->unit;
    if (unit == nullptr) return;
    unit->attribute();
    if (task->ok && errorCount() == 0 && unit->hasInnerClasses)
        lowerQueue_.push_back(task);
    else
        generate(*task);
}

/// Generates the classes of the unit and lets go of its trees, unless there were errors: then some of its classes may
/// not have been attributed, and others may still come upon their trees.
void Compiler::generate(CompileTask& task) {
    CompilationUnit* unit = task.unit;
    if (task.ok && errorCount() == 0) {
        ScopedSource here(unit->source);
        for (Tree* def : unit->defs)
            if (def->tag == treetag::CLASSDEF) static_cast<ClassDef*>(def)->genClass(outputDirectory_);
        task.written = errorCount() == 0;
    }
    if (!task.onDemand) cloneForMake(*unit);
    if (errorCount() == 0) task.release();
}

/// The make engine keeps a lean copy of each class, so that the trees can go.
void Compiler::cloneForMake(CompilationUnit& unit) {
    if (!context().options.trackDependencies) return;
    for (Tree* def : unit.defs | std::views::reverse) {
        if (def->tag != treetag::CLASSDEF) continue;
        ClassSymbol* symbol = static_cast<ClassDef*>(def)->classSymbol();
        context().classReader->classEntered(symbol, symbol->clone());
    }
}

/// Lowers and generates the units that have waited for it.
void Compiler::lowerAll() {
    std::deque<CompileTask*> tasks = std::exchange(lowerQueue_, {});
    Lowering lowering;
    for (const CompileTask* task : tasks) {
        ScopedSource here(task->unit->source);
        lowering.lower(task->unit);
        if (context().options.backendTrace) task->unit->Tree::print();
    }
    for (CompileTask* task : tasks) generate(*task);
}

// ---- on demand

void Compiler::compileOnDemand(const StoreRef& source) {
    ScopedSource same(currentSource());
    int errors = errorCount();
    CompileTask* task = nullptr;
    if (context().initialized) {
        task = parseFile(source);
    } else {
        ScopedSource here(source);
        reportError(0, messages::initializationError, "cannot recompile missing class during initialization");
    }
    if (task != nullptr && task->unit != nullptr) {
        task->unit->enter();
        task->onDemand = true;
        memberQueue_.push_back(task);
        if (!entering_) runMemberQueue();
    }
    if (errorCount() != errors) throw CompileAbort{};
}

} // namespace tarn
