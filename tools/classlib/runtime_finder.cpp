#include "classlib/runtime_finder.h"

#include <filesystem>
#include <string_view>
#include <unistd.h>

#include "classlib/byte_reader.h"
#include "runtime/process.h"

namespace tarn::classlib {

namespace {

namespace fs = std::filesystem;

bool exists(const std::string& path) {
    std::error_code ignored;
    return fs::exists(path, ignored);
}

std::string imagePath(std::string home) {
    while (home.size() > 1 && home.ends_with('/')) home.pop_back();
    return home + "/lib/modules";
}

/// The home around the first executable `java` on the path, with links followed; empty if there is none.
std::string homeOfJavaOnPath() {
    std::string path = environment("PATH").value_or("");
    std::string_view rest = path;
    while (!rest.empty()) {
        std::size_t end = rest.find(':');
        fs::path java = fs::path(rest.substr(0, end)) / "java";
        rest = end == std::string_view::npos ? "" : rest.substr(end + 1);
        std::error_code failed;
        if (!fs::is_regular_file(java, failed) || ::access(java.c_str(), X_OK) != 0) continue;
        fs::path real = fs::canonical(java, failed);
        if (!failed) return real.parent_path().parent_path().string();
    }
    return {};
}

} // namespace

std::string findRuntimeHome() {
    std::string javaHome = environment("JAVA_HOME").value_or("");
    if (!javaHome.empty() && exists(imagePath(javaHome))) return javaHome;
    std::string home = homeOfJavaOnPath();
    if (!home.empty() && exists(imagePath(home))) return home;
    std::string text = "no Java runtime found: ";
    text += javaHome.empty() ? "JAVA_HOME is not set" : imagePath(javaHome) + ", by JAVA_HOME, is not there";
    text += home.empty() ? ", and no java is on the path" : ", and neither is " + imagePath(home) + ", by the path";
    throw BadInput(text);
}

std::string imageOfRuntime(const std::string& home) {
    std::error_code ignored;
    if (!fs::is_directory(home, ignored))
        throw BadInput(home + ": no such directory; the home of a Java runtime is wanted");
    std::string image = imagePath(home);
    if (exists(image)) return image;
    if (exists(home + "/lib/rt.jar") || exists(home + "/jre/lib/rt.jar"))
        throw BadInput(home + ": a Java runtime of before 9, which has no lib/modules; 17 or a newer one is wanted");
    throw BadInput(home + ": not the home of a Java runtime; it has no lib/modules");
}

} // namespace tarn::classlib
