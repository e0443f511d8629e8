// Garbled dependency files: the make that reads them may compile more than it needs, but never fail, and the next one
// finds nothing to do.

#include "driver/reporter.h"
#include "make/maker.h"
#include "runtime/failure.h"
#include "store/directory_store.h"
#include "targets.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <unistd.h>

namespace tarn::fuzz {

namespace {

namespace fs = std::filesystem;

class Counting final : public MakeListener {
public:
    bool parsing(Maker&, const Store&) override { return true; }
    bool needsCompile(Maker&, const Store&, const std::string&) override {
        compiles++;
        return true;
    }
    void classUpdated(Maker&, Name*) override {}

    int compiles = 0;
};

/// How many sources were compiled; -1 after errors.
int make(const fs::path& place, const StoreRef& library, bool nocheckstable) {
    Counting listener;
    SilentReporter reporter;
    Maker maker(listener);
    auto here = std::make_shared<DirectoryStore>(place.string());
    maker.setClassPath(std::make_shared<const std::vector<StoreRef>>(std::vector<StoreRef>{here, library}));
    maker.setSourcePath(std::make_shared<const std::vector<StoreRef>>(1, here));
    maker.setOutputDirectory(here);
    maker.setReporter(&reporter);
    maker.options().nocheckstable = nocheckstable;
    MakeRoots roots;
    for (const auto& entry : fs::recursive_directory_iterator(place))
        if (entry.path().extension() == ".java")
            roots.sources.push_back(std::make_shared<DirectoryStore>(entry.path().string()));
    maker.makeThem(roots);
    maker.close();
    return reporter.errorCount() == 0 ? listener.compiles : -1;
}

void garble(Random& random, const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::string text(std::istreambuf_iterator<char>(in), {});
    mutateBytes(random, text);
    std::ofstream(file, std::ios::binary) << text;
}

} // namespace

void runDependencies(const Corpus& corpus, Random& random) {
    const Program& program = random.oneOf(corpus.programs);
    fs::path place = fs::temp_directory_path() / ("tarn-fuzz-make-" + std::to_string(::getpid()));
    fs::remove_all(place);
    for (const File& file : program.sources) {
        fs::create_directories((place / file.name).parent_path());
        std::ofstream(place / file.name, std::ios::binary) << file.text;
    }
    const StoreRef& library = random.oneIn(2) ? corpus.library.front() : corpus.bareLibrary;
    bool isGood = make(place, library, false) >= 0;
    std::vector<fs::path> records;
    for (const auto& entry : fs::recursive_directory_iterator(place))
        if (entry.path().extension() == ".dependency") records.push_back(entry.path());
    std::sort(records.begin(), records.end());
    for (std::size_t count = 1 + random.below(2); !records.empty() && count > 0; count--) {
        garble(random, random.oneOf(records));
        if (random.oneIn(4)) make(place, library, true);
        require((make(place, library, false) >= 0) == isGood, "a garbled dependency file made an error");
    }
    require(!isGood || make(place, library, false) == 0, "a make did not settle");
    fs::remove_all(place);
}

} // namespace tarn::fuzz
