#include "eval/host_compiler.h"

#include "classfile/class_file.h"
#include "eval/expression.h"
#include "eval/tree_search.h"
#include "make/compiler.h"
#include "runtime/failure.h"
#include "runtime/scoped_flag.h"
#include "semantic/context.h"
#include "semantic/entry.h"
#include "store/directory_store.h"
#include "store/encoding.h"
#include "syntax/position.h"
#include "syntax/tree_declarations.h"

#include <algorithm>
#include <utility>

namespace tarn {

/// The classes that some operations share, and the trees that came with them.
struct HostCompiler::Workspace {
    Context context;
    Compiler compiler;
    NameTableOf<ClassSymbol*> infos; ///< what `classInfo` has given
};

/// Makes a workspace's context current for its own life.
class HostCompiler::ScopedWorkspace {
public:
    explicit ScopedWorkspace(Workspace& workspace) : previous_(Context::current) { workspace.context.makeCurrent(); }
    ~ScopedWorkspace() {
        if (previous_ != nullptr) {
            previous_->makeCurrent();
        } else {
            Context::current = nullptr;
            currentOptions = nullptr;
        }
    }
    ScopedWorkspace(const ScopedWorkspace&) = delete;
    ScopedWorkspace& operator=(const ScopedWorkspace&) = delete;

private:
    Context* previous_;
};

HostCompiler::HostCompiler()
    : outputDirectory_(std::make_shared<DirectoryStore>(".")), encoding_(resolveEncoding("default")) {
    options_.quiet = true;
}

HostCompiler::~HostCompiler() {
    Reporter* current = currentReporter();
    if (current == &evalReporter_ || current == &silentReporter_) tarn::setReporter(nullptr);
}

// ---- workspaces

std::unique_ptr<HostCompiler::Workspace> HostCompiler::makeWorkspace() {
    Context* previous = Context::current;
    auto made = std::make_unique<Workspace>();
    Context& context = made->context;
    context.options = options_;
    context.encoding = encoding_;
    context.classPath = classPath_;
    context.outputDirectory = outputDirectory_;
    Context::current = previous;
    return made;
}

void HostCompiler::forgetEvaluation() {
    evalSource_ = nullptr;
    evalUnit_ = nullptr;
    evalDate_ = NO_DATE;
}

void HostCompiler::forget() {
    workspace_ = nullptr;
    infoWorkspace_ = nullptr;
    forgetEvaluation();
}

void HostCompiler::setClassPath(PathList path) {
    classPath_ = std::move(path);
    forget();
}

void HostCompiler::setOutputDirectory(StoreRef directory) {
    outputDirectory_ = std::move(directory);
    forget();
}

void HostCompiler::setEncoding(std::optional<std::string> encoding) {
    encoding_ = std::move(encoding);
    forget();
}

Reporter* HostCompiler::reporter() {
    return currentReporter();
}

void HostCompiler::setReporter(Reporter* reporter) {
    replaceReporter(reporter);
}

// ---- compiling and looking

std::vector<bool> HostCompiler::compile(std::span<const StoreRef> sources, const StoreRef& outputDirectory,
                                        Reporter* reporter) {
    std::unique_ptr<Workspace> fresh = makeWorkspace();
    forget(); // what was read may be out of date afterwards
    ScopedWorkspace current(*fresh);
    return fresh->compiler.compile(sources, outputDirectory, reporter);
}

bool HostCompiler::compile(const StoreRef& source, const StoreRef& outputDirectory, Reporter* reporter) {
    return compile({&source, 1}, outputDirectory, reporter).front();
}

void HostCompiler::parseWith(const StoreRef& source, TreeFactory& factory, Reporter* reporter) {
    if (workspace_ == nullptr) workspace_ = makeWorkspace();
    ScopedWorkspace current(*workspace_);
    workspace_->compiler.parseWith(source, factory, reporter);
}

Symbol* HostCompiler::symbolAt(const StoreRef& source, int position) {
    infoWorkspace_ = nullptr;
    workspace_ = makeWorkspace();
    ScopedWorkspace current(*workspace_);
    silentReporter_ = SilentReporter();
    tarn::setReporter(&silentReporter_);
    return eval::find(workspace_->compiler.attribute(source), position);
}

/// Classes that another operation has read, or compiled, have no pool any more, so these have a workspace of their own.
ClassSymbol* HostCompiler::classInfo(std::string_view className) {
    if (infoWorkspace_ == nullptr) {
        infoWorkspace_ = makeWorkspace();
        infoWorkspace_->context.options.keepPool = true;
    }
    ScopedWorkspace current(*infoWorkspace_);
    Name* name = Name::fromString(className);
    ClassSymbol*& info = infoWorkspace_->infos[name];
    if (info == nullptr) info = infoWorkspace_->context.classReader->load(name)->clone();
    return info;
}

// ---- evaluation

namespace {

/// Lines that no position can tell are shown as the last one that can.
Position startOfLine(int line) {
    constexpr int LAST = (1 << 22) - 1;
    return makePosition(static_cast<unsigned>(std::clamp(line, 0, LAST)), 1);
}

} // namespace

bool HostCompiler::isPrepared(const StoreRef& source) const {
    return evalSource_ != nullptr && evalSource_->equals(*source) && evalDate_ == source->date();
}

Env* HostCompiler::envAtLine(const StoreRef& source, int line) {
    if (evalSource_ == nullptr) {
        Date date = source->date(); // of what is read, or older
        evalUnit_ = evaluation_->compiler.attribute(source);
        evalSource_ = source;
        evalDate_ = date;
    }
    Env* env = eval::envAt(evalUnit_, line);
    if (env == nullptr) reportError(startOfLine(line), messages::lineHasNoCode);
    return env;
}

void HostCompiler::writeExpression(std::string_view prefix, std::string_view className, Store& out, int line,
                                   const StoreRef& source, std::string_view expression) {
    Env* env = envAtLine(source, line);
    eval::ClassName name{prefix, className};
    if (!eval::isLegal(name))
        throw EvalError("illegal name of a class: " + std::string(prefix) + "." + std::string(className));
    entry::forgetPending();
    context().sourceClasses.clear();
    CompileTask task;
    Tree* tree = eval::parseExpression(expression, *task.arena);
    out.write(eval::translate(name, tree, env, line, task));
}

std::optional<std::string> HostCompiler::tryEvaluate(std::string_view prefix, std::string_view className, Store& out,
                                                     int line, const StoreRef& source, std::string_view expression) {
    try {
        context().initUniverse();
    } catch (const IoFailure&) {
        return "compiler initialization error";
    }
    try {
        writeExpression(prefix, className, out, line, source, expression);
    } catch (const EvalError& failure) {
        return failure.what();
    } catch (const IoFailure& failure) {
        return std::string("error writing to outStream: ") + failure.what();
    }
    return std::nullopt;
}

std::optional<std::string> HostCompiler::evaluate(std::string_view prefix, std::string_view className, Store& out,
                                                  int line, const StoreRef& source, std::string_view expression) {
    if (!isPrepared(source)) {
        forgetEvaluation();
        evaluation_ = makeWorkspace();
    }
    ScopedWorkspace current(*evaluation_);
    ScopedFlag evaluating(context().options.evaluating);
    tarn::setReporter(&evalReporter_);
    ScopedSource here(source);
    try {
        return tryEvaluate(prefix, className, out, line, source, expression);
    } catch (...) {
        forgetEvaluation(); // nothing is known of the state that the trees are in
        throw;
    }
}

} // namespace tarn
