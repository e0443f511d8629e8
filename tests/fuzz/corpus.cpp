#include "corpus.h"

#include "runtime/failure.h"
#include "store/archive_store.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace tarn::fuzz {

namespace {

namespace fs = std::filesystem;

/// The sources below a folder, in the order of their names, which is the same everywhere.
std::vector<File> sourcesBelow(const fs::path& folder) {
    std::vector<File> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.path().extension() != ".java") continue;
        std::ifstream in(entry.path(), std::ios::binary);
        files.push_back({fs::relative(entry.path(), folder), std::string(std::istreambuf_iterator<char>(in), {})});
    }
    std::sort(files.begin(), files.end(), [](const File& a, const File& b) { return a.name < b.name; });
    return files;
}

void addPrograms(Corpus& corpus, const fs::path& folder) {
    std::vector<fs::path> folders;
    for (const auto& entry : fs::directory_iterator(folder))
        if (entry.is_directory()) folders.push_back(entry.path());
    std::sort(folders.begin(), folders.end());
    for (const fs::path& path : folders) {
        Program program{.name = path.filename(), .sources = sourcesBelow(path)};
        if (program.sources.empty()) continue;
        Outcome outcome = compile({.sources = program.sources, .classPath = corpus.library});
        if (outcome.errors == 0) program.classes = std::move(outcome.classes);
        corpus.sources.insert(corpus.sources.end(), program.sources.begin(), program.sources.end());
        corpus.programs.push_back(std::move(program));
    }
}

} // namespace

Corpus readCorpus(const std::vector<std::string>& folders, const std::string& archive) {
    Corpus corpus;
    auto library = std::make_shared<ArchiveStore>(archive);
    ClassFiles classes;
    for (int i = 0; i < library->memberCount(); i++) {
        std::string name(library->member(i).name);
        if (!name.starts_with("java/") || !name.ends_with(".class")) continue;
        Bytes contents = library->readMember(i);
        classes.push_back({name, std::string(contents.begin(), contents.end())});
        if (name.starts_with("java/lang/") && name.find('/', 10) == name.npos)
            corpus.libraryFiles.push_back(classes.back());
    }
    corpus.bareLibrary = placeOf(classes);
    corpus.library.push_back(std::move(library));
    for (const std::string& folder : folders) addPrograms(corpus, folder);
    auto good = std::count_if(corpus.programs.begin(), corpus.programs.end(),
                              [](const Program& program) { return !program.classes.empty(); });
    if (static_cast<std::size_t>(good) * 4 < corpus.programs.size() * 3 || good == 0)
        throw InternalError("too few programs of the corpus compile");
    return corpus;
}

} // namespace tarn::fuzz
