#pragma once

#include "driver/options.h"
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
    Maker() { options_.quiet = true; }

    Options& options() { return options_; }
    void setEncoding(std::optional<std::string> encoding) { encoding_ = std::move(encoding); }
    void setClassPath(PathList path) { classPath_ = std::move(path); }
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

    Options options_;
    std::optional<std::string> encoding_; ///< absent for plain bytes
    PathList classPath_;
    PathList sourcePath_;      ///< the very same list as the class path if none was named
    StoreRef outputDirectory_; ///< null if class files go beside their sources
    Reporter* reporter_ = nullptr;
};

} // namespace tarn
