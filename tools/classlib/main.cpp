// Makes the class library that the compiler reads out of the one of an installed Java runtime.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <exception>
#include <iterator>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "classlib/archive_writer.h"
#include "classlib/class_writer.h"
#include "classlib/dependency_members.h"
#include "classlib/legacy_library.h"
#include "classlib/runtime_finder.h"
#include "classlib/runtime_image.h"
#include "runtime/process.h"

namespace {

namespace classlib = tarn::classlib;

constexpr const char* usage = "usage: tarn-classlib [-package NAME]... [RUNTIME OUT.zip]\n"
                              "\n"
                              "Writes what a Java 1.1 program can see of a Java runtime's class library, as class\n"
                              "files of version 45.3. RUNTIME is the home of a Java runtime, 17 or newer. Without\n"
                              "arguments it is the one of JAVA_HOME or of the java on the path, and OUT.zip is\n"
                              "classes.zip in the current directory.\n"
                              "\n"
                              "  -package NAME  besides java and javax, the package NAME and those below it\n";

constexpr int failed = 1;
constexpr int misused = 2;

std::vector<classlib::ArchiveMember> classMembers(const classlib::LegacyLibrary& library) {
    std::vector<classlib::ArchiveMember> members;
    members.reserve(library.classes().size());
    for (const auto& [name, model] : library.classes()) {
        std::vector<std::uint8_t> data = classlib::writeClass(model, library);
        std::uint32_t date = classlib::dateOfContents(data);
        members.push_back({std::string(name) + ".class", std::move(data), date});
    }
    return members;
}

std::vector<std::string> packagesOf(const classlib::LegacyLibrary& library) {
    std::set<std::string> packages;
    for (const auto& [name, model] : library.classes()) {
        std::string package(name.substr(0, name.rfind('/')));
        std::replace(package.begin(), package.end(), '/', '.');
        packages.insert(std::move(package));
    }
    return {packages.begin(), packages.end()};
}

/// A file beside the archive, gone when it is not needed any more.
class ScratchFile {
public:
    explicit ScratchFile(std::string path) : path_(std::move(path)) {}
    ~ScratchFile() { std::remove(path_.c_str()); }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }

private:
    std::string path_;
};

/// Dependency files for the packages of these classes, which the make engine wants to see as an archive.
std::vector<classlib::ArchiveMember> dependencyMembers(const std::string& archive,
                                                       const classlib::LegacyLibrary& library,
                                                       const std::vector<classlib::ArchiveMember>& classes) {
    ScratchFile scratch(archive + ".part.zip");
    classlib::writeArchive(scratch.path(), classes);
    return classlib::describePackages(scratch.path(), packagesOf(library));
}

void makeLibrary(const std::string& home, const std::string& archive, const std::vector<std::string>& packages) {
    std::string path = classlib::imageOfRuntime(home);
    auto image = classlib::RuntimeImage::open(path);
    classlib::LegacyLibrary library(image, packages);
    if (library.classes().empty())
        throw classlib::BadInput(path + ": there is no class of java.* in it that could be written");
    std::vector<classlib::ArchiveMember> members = classMembers(library);
    std::vector<classlib::ArchiveMember> dependencies = dependencyMembers(archive, library, members);
    std::move(dependencies.begin(), dependencies.end(), std::back_inserter(members));
    std::uint64_t size = classlib::writeArchive(archive, std::move(members));
    std::printf("read %s: %zu classes; wrote %s: %zu classes of %zu packages, %llu bytes\n", path.c_str(),
                image.classCount(), archive.c_str(), library.classes().size(), library.packageCount(),
                static_cast<unsigned long long>(size));
}

/// Takes the options off the words of the command line and gives the packages that they name.
std::vector<std::string> takePackages(std::vector<std::string>& words) {
    std::vector<std::string> packages;
    while (words.size() >= 2 && words[0] == "-package") {
        packages.push_back(words[1]);
        words.erase(words.begin(), words.begin() + 2);
    }
    return packages;
}

} // namespace

int main(int argc, char** argv) try {
    tarn::prepareProcess();
    std::vector<std::string> words(argv + 1, argv + argc);
    if (words.size() == 1 && (words[0] == "-h" || words[0] == "--help" || words[0] == "-help")) {
        std::fputs(usage, stdout);
        return 0;
    }
    std::vector<std::string> packages = takePackages(words);
    if (words.empty())
        makeLibrary(classlib::findRuntimeHome(), "classes.zip", packages);
    else if (words.size() == 2 && !words[0].starts_with('-'))
        makeLibrary(words[0], words[1], packages);
    else {
        std::fputs(usage, stderr);
        return misused;
    }
    return 0;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "tarn-classlib: %s\n", failure.what());
    return failed;
}
