#include "make/maker.h"

#include "driver/reporter.h"
#include "runtime/failure.h"

#include <new>

namespace tarn {

namespace {

/// Keeps a make's context and reporter current for the span of the make.
class CurrentMake {
public:
    CurrentMake(Context& made, Reporter* reporter) {
        Context::current = &made;
        setReporter(reporter);
        currentOptions = &made.options;
    }
    ~CurrentMake() {
        currentOptions = nullptr;
        setReporter(nullptr);
        Context::current = nullptr;
    }
    CurrentMake(const CurrentMake&) = delete;
    CurrentMake& operator=(const CurrentMake&) = delete;
};

} // namespace

void Maker::makeThem(const std::vector<StoreRef>& sources, const std::vector<std::string>&,
                     const std::vector<std::string>&, bool) {
    CurrentMake current(context_, reporter_);
    context_.options.keepPool = false;
    context_.options.trackDependencies = false;
    try {
        compileBatch(sources);
    } catch (const CompileAbort&) { // the failure has been reported; there is no more to do
    } catch (const MakeAbort&) {
    } catch (const std::bad_alloc&) {
        ScopedSource none(nullptr);
        reportError(0, messages::outOfMemory);
    }
}

void Maker::compileBatch(const std::vector<StoreRef>& sources) {
    compiler_.compile(sources, outputDirectory_, reporter_);
}

void Maker::close() {
    classPath_ = nullptr;
    sourcePath_ = nullptr;
    outputDirectory_ = nullptr;
    reporter_ = nullptr;
}

} // namespace tarn
