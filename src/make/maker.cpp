#include "make/maker.h"

#include "driver/reporter.h"
#include "runtime/failure.h"

#include <new>

namespace tarn {

namespace {

/// Keeps a make's options and reporter current for the span of the make.
class CurrentMake {
public:
    CurrentMake(Options& options, Reporter* reporter) {
        setReporter(reporter);
        currentOptions = &options;
    }
    ~CurrentMake() {
        currentOptions = nullptr;
        setReporter(nullptr);
    }
    CurrentMake(const CurrentMake&) = delete;
    CurrentMake& operator=(const CurrentMake&) = delete;
};

} // namespace

void Maker::makeThem(const std::vector<StoreRef>& sources, const std::vector<std::string>&,
                     const std::vector<std::string>&, bool) {
    CurrentMake current(options_, reporter_);
    options_.keepPool = false;
    options_.trackDependencies = true;
    try {
        compileBatch(sources);
    } catch (const CompileAbort&) { // the failure has been reported; there is no more to do
    } catch (const MakeAbort&) {
    } catch (const std::bad_alloc&) {
        ScopedSource none(nullptr);
        reportError(0, messages::outOfMemory);
    }
}

void Maker::compileBatch(const std::vector<StoreRef>&) {}

void Maker::close() {
    classPath_ = nullptr;
    sourcePath_ = nullptr;
    outputDirectory_ = nullptr;
    reporter_ = nullptr;
}

} // namespace tarn
