// The tool on the runtime of this machine, and what a user can do wrong with it.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sys/wait.h>
#include <zip.h>

#include "classlib/byte_reader.h"
#include "classlib/old_class.h"
#include "classlib/runtime_finder.h"

namespace tarn::classlib::test {

namespace {

namespace fs = std::filesystem;

struct Outcome {
    int status;
    std::string output; ///< of both streams
};

Outcome run(const std::string& command) {
    FILE* pipe = ::popen((command + " 2>&1").c_str(), "r");
    Outcome outcome{-1, ""};
    if (pipe == nullptr) return outcome;
    char buffer[4096];
    while (std::size_t count = std::fread(buffer, 1, sizeof buffer, pipe)) outcome.output.append(buffer, count);
    int status = ::pclose(pipe);
    outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return outcome;
}

Archive readZip(const std::string& path) {
    Archive files;
    zip_t* archive = zip_open(path.c_str(), ZIP_RDONLY | ZIP_CHECKCONS, nullptr);
    for (zip_int64_t i = 0; archive != nullptr && i < zip_get_num_entries(archive, 0); i++) {
        zip_stat_t status;
        zip_stat_index(archive, static_cast<zip_uint64_t>(i), 0, &status);
        std::vector<std::uint8_t> data(status.size);
        zip_file_t* file = zip_fopen_index(archive, static_cast<zip_uint64_t>(i), 0);
        zip_fread(file, data.data(), data.size());
        zip_fclose(file);
        files[status.name] = std::move(data);
    }
    if (archive != nullptr) zip_discard(archive);
    return files;
}

/// Takes the dependency files out of the archive and gives their names.
std::set<std::string> takeDependencyFiles(Archive& archive) {
    std::set<std::string> names;
    for (const auto& [name, data] : archive)
        if (name.ends_with(".dependency")) names.insert(name);
    for (const std::string& name : names) archive.erase(name);
    return names;
}

/// The names of the dependency files of the packages that the classes are in.
std::set<std::string> dependencyFilesOf(const std::map<std::string, OldClass>& library) {
    std::set<std::string> names;
    for (const auto& [name, read] : library) {
        std::string folder = name.substr(0, name.rfind('/'));
        std::string package = folder;
        std::replace(package.begin(), package.end(), '/', '.');
        names.insert(folder + "/" + package + ".dependency");
    }
    return names;
}

/// A fresh folder that each test works in.
class InstalledRuntime : public testing::Test {
protected:
    InstalledRuntime()
        : folder_(fs::path(testing::TempDir()) / testing::UnitTest::GetInstance()->current_test_info()->name()) {
        fs::remove_all(folder_);
        fs::create_directories(folder_);
    }
    ~InstalledRuntime() override { fs::remove_all(folder_); }

    /// Runs the tool there with these words behind its name, and with `environment` set before.
    [[nodiscard]] Outcome tool(const std::string& words, const std::string& environment = "") const {
        return run("cd '" + folder_.string() + "' && " + environment + " '" CLASSLIB_PROGRAM "' " + words);
    }

    [[nodiscard]] std::string path(const std::string& name) const { return (folder_ / name).string(); }

    fs::path folder_;
};

/// The home of the machine's runtime; empty if it has none.
std::string installedHome() {
    try {
        return findRuntimeHome();
    } catch (const BadInput&) {
        return "";
    }
}

#define SKIP_WITHOUT_RUNTIME(home)                                                                                     \
    if (home.empty()) GTEST_SKIP() << "neither JAVA_HOME nor the path leads to a Java runtime"

/// What stands of a member, or an empty text.
std::string lineOf(const OldClass& read, const std::string& member) {
    for (const std::string& line : read.lines)
        if (line.find(" " + member) != std::string::npos) return line;
    return "";
}

} // namespace

TEST_F(InstalledRuntime, BecomesAClosedLibraryOfOldClassFiles) {
    std::string home = installedHome();
    SKIP_WITHOUT_RUNTIME(home);
    Outcome outcome = tool("");
    ASSERT_EQ(outcome.status, 0) << outcome.output;
    EXPECT_TRUE(outcome.output.starts_with("read " + home + "/lib/modules: ")) << outcome.output;
    Archive archive = readZip(path("classes.zip"));
    std::set<std::string> dependencyFiles = takeDependencyFiles(archive);
    std::map<std::string, OldClass> library = readClosedArchive(archive);
    EXPECT_EQ(dependencyFiles, dependencyFilesOf(library));
    EXPECT_NE(outcome.output.find("; wrote classes.zip: " + std::to_string(library.size()) + " classes of "),
              std::string::npos)
        << outcome.output;

    struct {
        const char* name;
        const char* member;
        const char* line; ///< empty if the member must not be there
    } rows[] = {
        {"java/lang/Object", "hashCode", "method 101 hashCode ()I"},
        {"java/lang/Object", "clone",
         "method 104 clone ()Ljava/lang/Object; throws java/lang/CloneNotSupportedException"},
        {"java/lang/AbstractStringBuilder", "setLength", "method 1 setLength (I)V"},
        {"java/lang/Integer", "MAX_VALUE", "field 19 MAX_VALUE I = 2147483647"},
        {"java/lang/Integer", "compareTo (Ljava/lang/Object;)", ""},
        {"java/lang/Thread", "getPriority", "method 11 getPriority ()I"},
        {"java/lang/Object", "finalize", "method 4 finalize ()V throws java/lang/Throwable"},
        {"java/lang/String", "format (Ljava/lang/String;", // varargs
         "method 9 format (Ljava/lang/String;[Ljava/lang/Object;)Ljava/lang/String;"},
        {"java/lang/String", "getBytes (II[BI)V", "method 1 getBytes (II[BI)V deprecated"},
        {"java/lang/String", "value ", ""},
        {"java/lang/Character", "isSpace (C)", "method 9 isSpace (C)Z deprecated"},
        {"java/util/Collection", "size", "method 401 size ()I"},
        {"java/util/Collection", "stream", ""},
        {"java/util/Map$Entry", "java/util/Map$Entry = ", "inner 609 java/util/Map$Entry = Entry of java/util/Map"},
        {"java/util/HashMap", "hash ", ""},
    };
    for (const auto& row : rows) {
        auto found = library.find(row.name);
        ASSERT_NE(found, library.end()) << row.name;
        EXPECT_EQ(lineOf(found->second, row.member), row.line) << row.name;
    }
    for (const char* absent : {"java/util/HashMap$Node.class", "java/lang/CharacterDataLatin1.class",
                               "module-info.class", "sun/misc/Unsafe.class"})
        EXPECT_FALSE(archive.contains(absent)) << absent;
}

TEST_F(InstalledRuntime, BecomesTheSameBytesEachTime) {
    std::string home = installedHome();
    SKIP_WITHOUT_RUNTIME(home);
    for (const char* name : {"1.zip", "2.zip"}) ASSERT_EQ(tool("'" + home + "' " + name).status, 0);
    EXPECT_EQ(run("cmp '" + path("1.zip") + "' '" + path("2.zip") + "'").status, 0);
}

TEST_F(InstalledRuntime, IsWhatReflectionSaysOfIt) {
    std::string home = installedHome();
    SKIP_WITHOUT_RUNTIME(home);
    if (!fs::exists(home + "/bin/javac")) GTEST_SKIP() << home << " has no tools to run a program from source";
    ASSERT_EQ(tool("'" + home + "' a.zip").status, 0);
    Outcome outcome = run("'" + home + "/bin/java' '" CLASSLIB_COMPARISON "' '" + path("a.zip") + "'");
    EXPECT_EQ(outcome.status, 0) << outcome.output;
}

TEST_F(InstalledRuntime, IsLookedForOnThePathIfJavaHomeHasNone) {
    std::string home = installedHome();
    SKIP_WITHOUT_RUNTIME(home);
    fs::create_directories(path("bin"));
    fs::create_symlink(home + "/bin/java", path("bin/java"));
    std::string search = "PATH='" + path("absent") + ":" + path("bin") + "'";
    std::string real = fs::canonical(home + "/bin/java").parent_path().parent_path().string();
    for (const std::string& javaHome : {std::string(), path("bin")}) {
        Outcome outcome = tool("", "JAVA_HOME='" + javaHome + "' " + search);
        EXPECT_TRUE(outcome.output.starts_with("read " + real + "/lib/modules: ")) << outcome.output;
    }
}

TEST_F(InstalledRuntime, IsMissedInWords) {
    fs::create_directories(path("old/lib"));
    std::ofstream(path("old/lib/rt.jar")) << "x";
    fs::create_directories(path("text/lib"));
    std::ofstream(path("text/lib/modules")) << "this is no image of any kind";
    struct {
        std::string words, environment;
        int status;
        std::string output;
    } rows[] = {
        {"absent a.zip", "", 1, "tarn-classlib: absent: no such directory; the home of a Java runtime is wanted\n"},
        {". a.zip", "", 1, "tarn-classlib: .: not the home of a Java runtime; it has no lib/modules\n"},
        {"old a.zip", "", 1,
         "tarn-classlib: old: a Java runtime of before 9, which has no lib/modules; 17 or a newer one is wanted\n"},
        {"text/ a.zip", "", 1,
         "tarn-classlib: text/lib/modules: not a class library image: it does not begin with the magic number "
         "CAFEDADA\n"},
        {"", "JAVA_HOME= PATH=/absent", 1,
         "tarn-classlib: no Java runtime found: JAVA_HOME is not set, and no java is on the path\n"},
        {"", "JAVA_HOME=old PATH=/absent", 1,
         "tarn-classlib: no Java runtime found: old/lib/modules, by JAVA_HOME, is not there, and no java is on the "
         "path\n"},
    };
    for (const auto& row : rows) {
        Outcome outcome = tool(row.words, row.environment);
        EXPECT_EQ(outcome.status, row.status) << row.words;
        EXPECT_EQ(outcome.output, row.output);
    }
    EXPECT_FALSE(fs::exists(path("a.zip")));
    for (const char* words : {"one", "one two three", "-x", "-package", "-package sun one", "one two -package sun"}) {
        Outcome outcome = tool(words);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_TRUE(outcome.output.starts_with("usage: tarn-classlib [-package NAME]... [RUNTIME OUT.zip]\n"))
            << outcome.output;
    }
    EXPECT_EQ(tool("--help").status, 0);
}

} // namespace tarn::classlib::test
