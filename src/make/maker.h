#pragma once

#include "driver/options.h"
#include "make/compiler.h"
#include "semantic/context.h"
#include "store/store.h"

#include <optional>
#include <string>
#include <vector>

namespace tarn {

class Reporter;

/// One make: holds what it is configured with, and makes the roots that it is given.
class Maker {
public:
    /// Quiet until the driver says otherwise.
    Maker() { context_.options.quiet = true; }

    Options& options() { return context_.options; }
    void setEncoding(std::optional<std::string> encoding) { context_.encoding = std::move(encoding); }
    void setClassPath(PathList path) {
        context_.classPath = path;
        classPath_ = std::move(path);
    }
    void setSourcePath(PathList path) { sourcePath_ = std::move(path); }
    /// Null puts each class file beside its source.
    void setOutputDirectory(StoreRef directory) { outputDirectory_ = std::move(directory); }
    /// The caller keeps it alive.
    void setReporter(Reporter* reporter) { reporter_ = reporter; }

    /// Makes the roots. Failures have been reported and counted when this returns; what it throws is a fault of the
    /// tool or the user's wish to stop.
    void makeThem(const std::vector<StoreRef>& sources, const std::vector<std::string>& classes,
                  const std::vector<std::string>& packages, bool rebuild);

    /// Ends the make for good.
    void close();

private:
    void compileBatch(const std::vector<StoreRef>& sources);

    Context context_;
    Compiler compiler_;
    PathList classPath_;
    PathList sourcePath_;      ///< the very same list as the class path if none was named
    StoreRef outputDirectory_; ///< null if class files go beside their sources
    Reporter* reporter_ = nullptr;
};

} // namespace tarn
