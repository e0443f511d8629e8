#pragma once

#include "driver/options.h"
#include "eval/eval_reporter.h"
#include "store/store.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarn {

class ClassSymbol;
class CompilationUnit;
class Symbol;
class TreeFactory;
struct Env;

/// The compiler as another program sees it that has it linked in, such as a debugger. This is the one header that such
/// a host needs; docs/host-interface.md tells how to use it.
///
/// One operation runs at a time, on one thread: options, names and the current reporter are process-wide. What is wrong
/// with a source goes to a reporter or into a failure text; after it the compiler serves the next request as ever.
/// Operations recurse as deep as their input is nested, so a host calls them within `runOnBigStack`
/// (runtime/big_stack.h) if it has to take sources as they come; what is nested too deep for the stack is an error in
/// any case.
///
/// Classes are read afresh for each compile, each source that is evaluated in or searched, and whenever the class path
/// changes. Evaluation goes on with what was read for as long as it stays in one source and nothing is compiled.
class HostCompiler {
public:
    /// The class path is empty at first, the output directory the working directory.
    HostCompiler();
    HostCompiler(const HostCompiler&) = delete;
    HostCompiler& operator=(const HostCompiler&) = delete;
    ~HostCompiler();

    /// Compiles sources as one batch into class files below the directory, or beside the sources if that is null. Makes
    /// `reporter` current, which the caller keeps alive. Tells for each source whether all its classes were written.
    std::vector<bool> compile(std::span<const StoreRef> sources, const StoreRef& outputDirectory, Reporter* reporter);
    /// The same for one source.
    bool compile(const StoreRef& source, const StoreRef& outputDirectory, Reporter* reporter);
    /// Parses one source with any factory; makes `reporter` current.
    void parseWith(const StoreRef& source, TreeFactory& factory, Reporter* reporter);
    /// The symbol whose name stands at a position (`line << 10 | column`, both from 1) of the source; null if there is
    /// none. Reports nothing. Valid until the next `symbolAt` or `compile`.
    Symbol* symbolAt(const StoreRef& source, int position);
    /// A lean copy of the class of that flat name ("java.util.Hashtable") with the constant pool of its file. Valid
    /// until the next `symbolAt` or `compile`. Throws IoFailure if the class can't be read.
    ClassSymbol* classInfo(std::string_view className);
    /// Compiles an expression as if it stood at the line of the source, to a class `prefix.className` that implements
    /// `prefix.IExpression`, and writes the class file to `out`. `prefix` is "quillon.compiler.loader"; the interfaces
    /// are read from the class path. Gives a text for the user on failure; nothing was written then. Throws
    /// InternalError if the classes on the class path don't fit.
    std::optional<std::string> evaluate(std::string_view prefix, std::string_view className, Store& out, int line,
                                        const StoreRef& source, std::string_view expression);

    /// Where classes are searched; null for nowhere.
    [[nodiscard]] const PathList& classPath() const { return classPath_; }
    void setClassPath(PathList path);
    /// Where classes without a package are searched before the class path.
    [[nodiscard]] const StoreRef& outputDirectory() const { return outputDirectory_; }
    void setOutputDirectory(StoreRef directory);
    /// The reporter that is current in the process; null for none.
    [[nodiscard]] static Reporter* reporter();
    /// Makes a reporter current that the caller keeps alive, and leaves the current source as it is.
    static void setReporter(Reporter* reporter);

    /// The encoding of sources, as `resolveEncoding` gives it; absent for plain bytes.
    void setEncoding(std::optional<std::string> encoding);
    /// What every compile starts from. Quiet at first.
    Options& options() { return options_; }

private:
    struct Workspace;
    class ScopedWorkspace;

    std::unique_ptr<Workspace> makeWorkspace();
    void forget();
    void forgetEvaluation();
    bool isPrepared(const StoreRef& source) const;
    Env* envAtLine(const StoreRef& source, int line);
    void writeExpression(std::string_view prefix, std::string_view className, Store& out, int line,
                         const StoreRef& source, std::string_view expression);
    std::optional<std::string> tryEvaluate(std::string_view prefix, std::string_view className, Store& out, int line,
                                           const StoreRef& source, std::string_view expression);

    PathList classPath_;
    StoreRef outputDirectory_;
    std::optional<std::string> encoding_;
    Options options_;
    EvalReporter evalReporter_;
    SilentReporter silentReporter_;

    std::unique_ptr<Workspace> workspace_; ///< of the last `symbolAt` or `parseWith`; null before and once out of date
    std::unique_ptr<Workspace> infoWorkspace_; ///< of `classInfo`; likewise
    std::unique_ptr<Workspace> evaluation_;    ///< has the source that was last evaluated in; null before
    StoreRef evalSource_;                      ///< that source, once it was attributed without an error; else null
    Date evalDate_ = NO_DATE;                  ///< its date when it was read
    CompilationUnit* evalUnit_ = nullptr;      ///< its trees
};

} // namespace tarn
