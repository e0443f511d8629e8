// Makes the class library that the compiler reads out of the one of an installed Java runtime.

#include <cstdio>
#include <cstring>
#include <exception>
#include <string>
#include <vector>

#include "classlib/archive_writer.h"
#include "classlib/class_writer.h"
#include "classlib/legacy_library.h"
#include "classlib/runtime_finder.h"
#include "classlib/runtime_image.h"

namespace {

using namespace std::string_literals;
namespace classlib = tarn::classlib;

constexpr const char* usage = "usage: tarn-classlib [RUNTIME OUT.zip]\n"
                              "\n"
                              "Writes what a Java 1.1 program can see of a Java runtime's class library, as class\n"
                              "files of version 45.3. RUNTIME is the home of a Java runtime, 17 or newer. Without\n"
                              "arguments it is the one of JAVA_HOME or of the java on the path, and OUT.zip is\n"
                              "classes.zip in the current directory.\n";

constexpr int failed = 1;
constexpr int misused = 2;

/// The files that the archive gets. What else a package is to bring along belongs here, beside its classes.
std::vector<classlib::ArchiveMember> archiveMembers(const classlib::LegacyLibrary& library) {
    std::vector<classlib::ArchiveMember> members;
    members.reserve(library.classes().size());
    for (const auto& [name, model] : library.classes())
        members.push_back({std::string(name) + ".class", classlib::writeClass(model, library)});
    return members;
}

void makeLibrary(const std::string& home, const std::string& archive) {
    std::string path = classlib::imageOfRuntime(home);
    auto image = classlib::RuntimeImage::open(path);
    classlib::LegacyLibrary library(image);
    if (library.classes().empty())
        throw classlib::BadInput(path + ": there is no class of java.* in it that could be written");
    std::uint64_t size = classlib::writeArchive(archive, archiveMembers(library));
    std::printf("read %s: %zu classes; wrote %s: %zu classes of %zu packages, %llu bytes\n", path.c_str(),
                image.classCount(), archive.c_str(), library.classes().size(), library.packageCount(),
                static_cast<unsigned long long>(size));
}

} // namespace

int main(int argc, char** argv) try {
    if (argc == 2 && (argv[1] == "-h"s || argv[1] == "--help"s || argv[1] == "-help"s)) {
        std::fputs(usage, stdout);
        return 0;
    }
    if (argc == 1)
        makeLibrary(classlib::findRuntimeHome(), "classes.zip");
    else if (argc == 3)
        makeLibrary(argv[1], argv[2]);
    else {
        std::fputs(usage, stderr);
        return misused;
    }
    return 0;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "tarn-classlib: %s\n", failure.what());
    return failed;
}
