#pragma once

#include "driver/options.h"
#include "mutation.h"
#include "store/store.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarn {
class ByteArrayStore;
}

namespace tarn::fuzz {

/// A class file by its path, which has slashes and the suffix.
using ClassFiles = std::vector<File>;

/// A place for a class path that holds files in memory.
StoreRef placeOf(const ClassFiles& files);

struct Compilation {
    std::vector<File> sources;
    std::vector<StoreRef> classPath;
    Options options = {};
    std::optional<std::string> encoding = {};
};

struct Outcome {
    int errors = 0;
    ClassFiles classes;
};

/// Takes sources through the whole compiler, in memory; messages go to the console. What it throws is a fault of the
/// compiler.
Outcome compile(const Compilation& compilation);

/// Reads each class back, with everything in its pool, and throws InternalError unless that works. Fails likewise if a
/// file has a name that is not its class's.
void readBack(const ClassFiles& classes, std::vector<StoreRef> classPath);

/// Loads the class of that file on its own, whatever it holds; it may fail, but in words.
void tryToRead(const File& file, const std::vector<StoreRef>& classPath);

} // namespace tarn::fuzz
