// Makes the programs of tests/programs as projects: the second run has nothing to do, and what the first one learned of
// each class from its compile is what its class file says.

#include "driver/reporter.h"
#include "make/maker.h"
#include "store/directory_store.h"
#include "store/path_list.h"
#include "unit/store/scratch_directory.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace tarn {
namespace {

namespace fs = std::filesystem;

class Counting final : public MakeListener {
public:
    bool parsing(Maker&, const Store&) override { return true; }
    bool needsCompile(Maker&, const Store& source, const std::string& reason) override {
        text += source.toString() + ": " + reason + "\n";
        return true;
    }
    void classUpdated(Maker&, Name*) override {}

    std::string text;
};

/// The programs that need no generator.
std::vector<fs::path> programs() {
    std::vector<fs::path> found;
    for (const auto& entry : fs::directory_iterator(TARN_PROGRAMS))
        if (fs::exists(entry.path() / "expected.txt") && !fs::exists(entry.path() / "generate") &&
            !fs::exists(entry.path() / "expected-compile.txt"))
            found.push_back(entry.path());
    std::sort(found.begin(), found.end());
    return found;
}

/// What `work` says, which runs in a process of its own: there is one make in a process.
std::string inAnotherProcess(const std::function<std::string()>& work) {
    int ends[2];
    if (::pipe(ends) != 0) return "no pipe";
    pid_t child = ::fork();
    if (child == 0) {
        std::string text = work();
        for (std::size_t at = 0; at < text.size();) {
            ssize_t written = ::write(ends[1], text.data() + at, text.size() - at);
            if (written <= 0) break;
            at += static_cast<std::size_t>(written);
        }
        ::_exit(0);
    }
    ::close(ends[1]);
    std::string text;
    char buffer[4096];
    for (ssize_t count; (count = ::read(ends[0], buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<std::size_t>(count));
    ::close(ends[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    return status == 0 ? text : text + "the process failed\n";
}

class Corpus : public testing::TestWithParam<fs::path> {
protected:
    /// What was compiled, and why.
    std::string make() {
        return inAnotherProcess([this] { return makeHere(); });
    }

    /// The fingerprints of the classes of all packages, as their class files have them, as lines.
    std::string printsOfFiles() {
        return inAnotherProcess([this] { return text(printsOfFilesHere()); });
    }

    /// Those that the first run recorded: of classes for which it had a use.
    std::map<std::string, std::int32_t> printsOfCompile() {
        std::map<std::string, std::int32_t> prints;
        for (const auto& entry : fs::recursive_directory_iterator(out.path()))
            if (entry.path().extension() == ".dependency")
                collect(DirectoryStore(entry.path().string()).read(), prints);
        std::erase_if(prints, [](const auto& print) { return print.second == 0; });
        return prints;
    }

    static std::string text(const std::map<std::string, std::int32_t>& prints) {
        std::string lines;
        for (const auto& [name, print] : prints) lines += name + " " + std::to_string(print) + "\n";
        return lines;
    }

    test::ScratchDirectory out;

private:
    std::string makeHere() {
        Counting listener;
        SilentReporter reporter;
        Maker maker(listener);
        configure(maker, reporter);
        maker.setSourcePath(parsePathList(GetParam().string()));
        maker.setOutputDirectory(std::make_shared<DirectoryStore>(out.path()));
        MakeRoots roots;
        for (const auto& entry : fs::recursive_directory_iterator(GetParam()))
            if (entry.path().extension() == ".java")
                roots.sources.push_back(std::make_shared<DirectoryStore>(entry.path().string()));
        maker.makeThem(roots);
        maker.close();
        return reporter.errorCount() == 0 ? listener.text : listener.text + "errors\n";
    }

    std::map<std::string, std::int32_t> printsOfFilesHere() {
        Counting listener;
        SilentReporter reporter;
        Maker maker(listener);
        configure(maker, reporter);
        maker.setSourcePath(nullptr);
        std::set<std::string> packages;
        for (const auto& entry : fs::recursive_directory_iterator(GetParam()))
            if (entry.path().extension() == ".java") packages.insert(packageOf(entry.path()));
        std::map<std::string, std::int32_t> prints;
        for (const Bytes& file : maker.describeLibrary({packages.begin(), packages.end()})) collect(file, prints);
        return prints;
    }

    void configure(Maker& maker, Reporter& reporter) {
        maker.setClassPath(parsePathList(out.path() + ":" + TARN_CLASSES));
        maker.setReporter(&reporter);
    }

    [[nodiscard]] std::string packageOf(const fs::path& source) const {
        std::string name = source.parent_path().lexically_relative(GetParam()).string();
        std::replace(name.begin(), name.end(), '/', '.');
        return name;
    }

    static void collect(const Bytes& file, std::map<std::string, std::int32_t>& prints) {
        Arena arena;
        DependencyDecoder decoder(file, arena);
        decoder.header();
        decoder.sourceCount();
        for (const ClassRecord& c : decoder.records(ImportsRead::ALL).classes) prints[c.name->toString()] = c.fprint;
    }
};

TEST_P(Corpus, SettlesAfterOneRun) {
    if (!fs::exists(TARN_CLASSES)) GTEST_SKIP() << "there is no class library";
    EXPECT_EQ(std::string::npos, make().find("errors"));
    std::map<std::string, std::int32_t> compiled = printsOfCompile();
    EXPECT_EQ("", make());
    std::string files = printsOfFiles();
    for (const auto& print : compiled) {
        std::string line = text({print});
        EXPECT_NE(std::string::npos, files.find(line)) << line << " is not in\n" << files;
    }
}

INSTANTIATE_TEST_SUITE_P(Programs, Corpus, testing::ValuesIn(programs()),
                         [](const auto& tested) { return tested.param.filename().string(); });

} // namespace
} // namespace tarn
