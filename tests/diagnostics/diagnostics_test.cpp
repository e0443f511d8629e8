#include "case_file.h"

#include "driver/messages.h"
#include "driver/reporter.h"
#include "make/compiler.h"
#include "semantic/context.h"
#include "store/archive_store.h"
#include "store/memory_store.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

// Compiles the case files of this folder's subfolders, each in a context of its own, and holds what is reported to what
// the files say. The compiler runs here without a make engine.

namespace tarn::test {
namespace {

namespace fs = std::filesystem;

/// Keeps what is reported; `files` tells the path in the case of each store.
class RecordingReporter final : public Reporter {
public:
    explicit RecordingReporter(const std::map<StoreRef, std::string>& files) : files_(files) {}

    void print(std::string_view) override {}
    void println(std::string_view) override {}
    void error(const StoreRef& source, int position, const Message& message) override {
        ++errors_;
        keep("error", source, position, message);
    }
    void warning(const StoreRef& source, int position, const Message& message) override {
        ++warnings_;
        keep("warning", source, position, message);
    }
    [[nodiscard]] int errorCount() const override { return errors_; }
    [[nodiscard]] int warningCount() const override { return warnings_; }

    std::vector<Diagnostic> reported;

private:
    void keep(const char* kind, const StoreRef& source, int position, const Message& message) {
        Diagnostic diagnostic{.kind = kind, .number = message.number, .text = message.text};
        if (source != nullptr && position != 0) {
            diagnostic.file = files_.at(source);
            diagnostic.line = position >> 10;
            diagnostic.column = position & 1023;
        }
        reported.push_back(diagnostic);
    }

    const std::map<StoreRef, std::string>& files_;
    int errors_ = 0;
    int warnings_ = 0;
};

StoreRef makeSource(const StoreRef& root, const std::string& path, const std::string& text) {
    StoreRef folder = root;
    fs::path parts(path);
    for (const fs::path& part : parts.parent_path()) folder = folder->makeDirectory(part.string());
    StoreRef file = folder->create(parts.filename().string());
    file->write({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
    return file;
}

/// What the compile of the case reports, in order of file and position.
std::vector<Diagnostic> compile(const CaseFile& tested) {
    // Contexts are not given back: types that a later one shares may live in them.
    static std::vector<std::unique_ptr<Context>> contexts;
    static const StoreRef library = std::make_shared<ArchiveStore>(TARN_CLASSES);
    contexts.push_back(std::make_unique<Context>());
    Context& context = *contexts.back();
    StoreRef root = ByteArrayStore::root("");
    context.options.quiet = true;
    context.classPath = std::make_shared<std::vector<StoreRef>>(std::vector{library, root});
    std::vector<StoreRef> sources;
    std::map<StoreRef, std::string> files;
    for (const auto& [path, text] : tested.sources) {
        sources.push_back(makeSource(root, path, text));
        files[sources.back()] = path;
    }
    auto output = ByteArrayStore::root("out");
    output->becomeDirectory();
    RecordingReporter reporter(files);
    Compiler().compile(sources, output, &reporter);
    setReporter(nullptr);
    std::sort(reporter.reported.begin(), reporter.reported.end());
    return reporter.reported;
}

std::string lines(const std::vector<Diagnostic>& diagnostics) {
    std::string text;
    for (const Diagnostic& diagnostic : diagnostics) text += "  " + toString(diagnostic) + "\n";
    return text.empty() ? "  nothing\n" : text;
}

std::vector<fs::path> caseFiles() {
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(TARN_CASES)) {
        fs::path file = entry.path();
        bool isOutput = file.parent_path().parent_path().filename() == "output";
        if (!isOutput && (file.extension() == ".java" || file.extension() == ".case")) files.push_back(file);
    }
    std::sort(files.begin(), files.end());
    return files;
}

class Cases : public testing::TestWithParam<fs::path> {};

TEST_P(Cases, ReportsExactlyWhatIsExpected) {
    if (!fs::exists(TARN_CLASSES)) GTEST_SKIP() << "there is no class library";
    CaseFile tested = readCaseFile(GetParam());
    std::vector<Diagnostic> expected = tested.expected;
    std::sort(expected.begin(), expected.end());
    std::vector<Diagnostic> reported = compile(tested);
    std::vector<Diagnostic> missing;
    std::vector<Diagnostic> surplus;
    std::set_difference(expected.begin(), expected.end(), reported.begin(), reported.end(),
                        std::back_inserter(missing));
    std::set_difference(reported.begin(), reported.end(), expected.begin(), expected.end(),
                        std::back_inserter(surplus));
    EXPECT_TRUE(missing.empty() && surplus.empty()) << "missing:\n" << lines(missing) << "surplus:\n" << lines(surplus);
}

std::string caseName(const testing::TestParamInfo<fs::path>& info) {
    std::string name = info.param.parent_path().filename().string() + "_" + info.param.stem().string();
    std::replace_if(
        name.begin(), name.end(), [](char c) { return std::isalnum(c) == 0; }, '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Diagnostics, Cases, testing::ValuesIn(caseFiles()), caseName);

// ---- coverage of the catalogue

/// Messages that no compile of a source in good surroundings reports.
bool isOutOfReach(MessageId id) {
    switch (id) {
    // Kept for their numbers.
    case messages::noEscapeCharacterAllowed:
    case messages::noMatchingConstructor:
    case messages::ambiguousClassReference:
    case messages::accessBeforeSuperConstructor:
    case messages::notFoundFatal:
    case messages::notAPackage:
    case messages::finalNeedsInitializer:
    case messages::packageImported:
    // Interfaces can have member classes.
    case messages::interfaceWithInnerClass:
    // A term that is neither an expression nor a type is broken, and that was reported.
    case messages::malformedExpression:
    // Every result fits the prototype that a call holds its method to.
    case messages::incompatibleReturnType:
    // Attribution refuses such a variable before lowering finds it.
    case messages::notFinalInInnerClass: return true;
    // Files, start-up, evaluator and make engine.
    default: return messageNumber(id) >= messageNumber(messages::cannotRead);
    }
}

std::set<int> numbersInCases() {
    std::set<int> numbers;
    for (const fs::path& file : caseFiles())
        for (const Diagnostic& diagnostic : readCaseFile(file).expected) numbers.insert(diagnostic.number);
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(TARN_CASES) / "output")) {
        if (entry.path().filename() != "expected.txt") continue;
        std::ifstream stream(entry.path());
        for (std::string line; std::getline(stream, line);) {
            std::size_t at = line.find(" #");
            if (at != std::string::npos) numbers.insert(std::atoi(line.c_str() + at + 2));
        }
    }
    return numbers;
}

TEST(Catalogue, EveryMessageOfACompileHasACase) {
    std::set<int> covered = numbersInCases();
    for (std::size_t i = 0; i < messageCount; ++i) {
        auto id = static_cast<MessageId>(i);
        if (isOutOfReach(id) || messageNumber(id) == 223) continue; // too deep a nesting is generated, below
        EXPECT_TRUE(covered.contains(messageNumber(id))) << messageNumber(id) << " " << catalogueText(id);
    }
}

TEST(Nesting, OfASourceIsBoundedAndReportedOnce) {
    if (!fs::exists(TARN_CLASSES)) GTEST_SKIP() << "there is no class library";
    constexpr std::size_t DEEP = 200'000; // more levels than any stack is let to take
    auto repeated = [](std::string_view text) {
        std::string all;
        for (std::size_t i = 0; i < DEEP; ++i) all += text;
        return all;
    };
    const std::string bodies[] = {
        repeated("(\n") + "1" + repeated(")"), repeated("-\n") + "1",       "1" + repeated("\n+ x"),
        "this" + repeated("\n.next"),          "new int[]" + repeated("{"), repeated("x = "),
    };
    for (const std::string& body : bodies) {
        CaseFile tested;
        tested.sources.push_back({"Deep.java", "class Deep { int x = " + body + "; }\n"});
        std::vector<Diagnostic> reported = compile(tested);
        long count =
            std::count_if(reported.begin(), reported.end(), [](const Diagnostic& d) { return d.number == 223; });
        EXPECT_EQ(count, 1) << body.substr(0, 20) << "\n" << lines(reported);
    }
}

/// A name of 40,000 parts would be looked up at each of its dots, and the texts would take gigabytes.
TEST(PackageName, BeyondTheLongestPathIsNotLookedUp) {
    if (!fs::exists(TARN_CLASSES)) GTEST_SKIP() << "there is no class library";
    std::string name = "x";
    for (int i = 0; i < 500; ++i) name += "\n.ninebytes";
    const std::string sources[] = {
        "class D { int i = " + name + "; }",  "class D { " + name + " field; }",   "import " + name + "; class D { }",
        "import " + name + ".*; class D { }", "package " + name + "; class D { }", "class D extends " + name + " { }",
    };
    for (const std::string& source : sources) {
        CaseFile tested;
        tested.sources.push_back({"D.java", source});
        std::vector<Diagnostic> reported = compile(tested);
        ASSERT_EQ(reported.size(), 1) << source.substr(0, 20);
        EXPECT_EQ(reported.front().number, 302) << source.substr(0, 20);
        EXPECT_TRUE(reported.front().text.ends_with("; length of a package name exceeded")) << source.substr(0, 20);
    }
}

} // namespace
} // namespace tarn::test
