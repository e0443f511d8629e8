#include "driver/reporter.h"

#include "driver/options.h"
#include "runtime/failure.h"
#include "runtime/process.h"
#include "store/memory_store.h"
#include "syntax/name.h"
#include "unit/driver/surroundings.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tarn {
namespace {

using test::CapturedOutput;
using test::FedInput;

constexpr int at(int line, int column) {
    return line << 10 | column;
}

StoreRef fileOf(std::string_view text) {
    auto file = ByteArrayStore::root("A.java");
    file->write({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
    return file;
}

class ReporterTest : public ::testing::Test {
protected:
    ReporterTest() { setReporter(&reporter_); }
    ~ReporterTest() override { setReporter(nullptr); }

    ConsoleReporter reporter_{std::nullopt};
};

/// What an error at a position of a file shows below its head line.
std::string shown(std::string_view text, int position, std::optional<std::string> encoding = std::nullopt) {
    CapturedOutput output;
    ConsoleReporter reporter(std::move(encoding));
    setReporter(&reporter);
    StoreRef file = fileOf(text);
    setSource(file);
    reportError(position, messages::illegalCharacter);
    setReporter(nullptr);
    EXPECT_EQ(reporter.errorCount(), 1);
    std::string all = output.text();
    std::string head =
        file->canonicalPath().value() + ":" + std::to_string(position >> 10) + ": error #100: illegal character\n";
    EXPECT_EQ(all.substr(0, head.size()), head);
    return all.substr(std::min(head.size(), all.size()));
}

TEST_F(ReporterTest, ShowsTheLineAndACaretBelowTheColumn) {
    struct Row {
        std::string_view text;
        int position;
        const char* shown;
    };
    const Row rows[] = {
        {"first\nint x;\n", at(2, 5), "int x;\n    ^\n"},
        {"int x;", at(1, 1), "int x;\n^\n"},
        {"\tif (\tx)", at(1, 7), "\tif (\tx)\n\t    \t^\n"},
        {"\tif (\tx)", at(1, 8), "\tif (\tx)\n\t    \t ^\n"},
        {"\tx", at(1, 1), "\tx\n^\n"},
        {"a\rb\r\nc\fd", at(2, 1), "b\n^\n"},
        {"a\rb\r\nc\fd", at(3, 1), "c\n^\n"},
        {"a\rb\r\nc\fd", at(4, 1), "d\n^\n"},
        {"a\n\nb", at(2, 1), "\n^\n"},
        {"a\nb\n", at(3, 1), "b\n^\n"},
        {"a\nb", at(99, 3), "b\n  ^\n"},
        {"", at(1, 1), "\n^\n"},
        {"a\xE9z", at(1, 3), "a\xC3\xA9z\n  ^\n"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(shown(row.text, row.position), row.shown) << row.text << " at " << row.position;
}

TEST_F(ReporterTest, LeavesOutTheLineOfAFileThatCannotBeShown) {
    EXPECT_EQ(shown("\xFF\xFF\xFF #", at(1, 8), "UTF8"), "");
    EXPECT_EQ(shown("#", at(1, 1), "no such encoding"), "");
}

TEST_F(ReporterTest, ShowsNeitherPathNorLineWithoutPositionOrSource) {
    CapturedOutput output;
    reportError(at(1, 1), messages::illegalCharacter);
    ScopedSource source(fileOf("x"));
    reportError(0, messages::cannotRead, "x");
    reportWarning(0, messages::deprecationNote);
    EXPECT_EQ(output.text(), "error #100: illegal character\n"
                             "error #700: can't read: x\n"
                             "warning #369: There have been deprecation warnings. "
                             "Please consult the documentation for a better alternative\n");
    EXPECT_EQ(reporter_.errorCount(), 2);
    EXPECT_EQ(reporter_.warningCount(), 1);
}

TEST_F(ReporterTest, ReadsAFileOnceAndFindsLinesInBothDirections) {
    StoreRef file = fileOf("one\ntwo\nthree\n");
    StoreRef other = fileOf("other");
    auto showLine = [&](const StoreRef& source, int line) {
        CapturedOutput output;
        reporter_.error(source, at(line, 1), message(messages::illegalCharacter));
        std::string all = output.text();
        return all.substr(all.find('\n') + 1);
    };
    EXPECT_EQ(showLine(file, 2), "two\n^\n");
    file->write({}); // what was read before stays what is shown
    EXPECT_EQ(showLine(file, 3), "three\n^\n");
    EXPECT_EQ(showLine(file, 3), "three\n^\n");
    EXPECT_EQ(showLine(file, 1), "one\n^\n");
    EXPECT_EQ(showLine(file, 9), "three\n^\n");
    EXPECT_EQ(showLine(file, 2), "two\n^\n");
    EXPECT_EQ(showLine(other, 1), "other\n^\n");
    EXPECT_EQ(showLine(file, 1), "\n^\n");
}

TEST_F(ReporterTest, StopsAfterAHundredErrorsAndAHundredWarnings) {
    CapturedOutput output;
    for (int i = 0; i < 105; ++i) {
        reportError(0, messages::statementNotReachable);
        reportWarning(0, messages::deprecated, "m", "()");
    }
    EXPECT_EQ(reporter_.errorCount(), 100);
    EXPECT_EQ(reporter_.warningCount(), 100);
    std::string all = output.text();
    EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 200);
}

TEST_F(ReporterTest, SuppressionLastsForItsScopeAndEndsWithAnotherReporter) {
    CapturedOutput output;
    {
        ScopedSuppress outer;
        { ScopedSuppress inner; }
        reportError(0, messages::outOfMemory);
        reportWarning(0, messages::deprecationNote);
    }
    EXPECT_EQ(reporter_.errorCount() + reporter_.warningCount(), 0);

    setSuppressed(true);
    setSource(fileOf("x"));
    setReporter(&reporter_);
    EXPECT_FALSE(suppressed());
    EXPECT_EQ(currentSource(), nullptr);
    reportError(0, messages::outOfMemory);
    EXPECT_EQ(reporter_.errorCount(), 1);
}

TEST_F(ReporterTest, AnArgumentThatHoldsAPlaceholderIsBoundOver) {
    CapturedOutput output;
    reportError(0, messages::cannotCast, "%2", "B");
    EXPECT_EQ(output.text(), "error #364: cannot cast B to %2\n");
}

TEST(BindTest, ReplacesTheFirstPlaceholderOnly) {
    struct Row {
        const char* text;
        const char* argument;
        int n;
        const char* bound;
    };
    const Row rows[] = {
        {"%1 and %1", "a", 1, "a and %1"},
        {"%1, %2", "b", 2, "%1, b"},
        {"nothing here", "a", 1, "nothing here"},
        {"%12", "a", 1, "a2"}, // a placeholder is exactly two characters long
        {"%1", "%2", 1, "%2"},
        {"%1", "", 1, ""},
        {"100%", "a", 1, "100%"},
    };
    for (const Row& row : rows) {
        Message bound = bind({7, row.text}, row.argument, row.n);
        EXPECT_EQ(bound.text, row.bound) << row.text;
        EXPECT_EQ(bound.number, 7);
    }
}

class PromptTest : public ReporterTest {
protected:
    PromptTest() { setPromptAfterReport(true); }
    ~PromptTest() override { setPromptAfterReport(false); }

    /// The text that an error at the prompt ends the run with; empty if the run goes on.
    std::string endOfRun() {
        try {
            reportError(0, messages::outOfMemory);
            return "";
        } catch (const UserAbort& abort) {
            return abort.what();
        }
    }
};

TEST_F(PromptTest, GoesOnAtRAndSkipsWhatIsNoAnswer) {
    CapturedOutput output;
    FedInput input("\nxr\nR");
    reportError(0, messages::outOfMemory);
    reportWarning(0, messages::deprecated, "m", "()");
    EXPECT_EQ(output.text(), "error #900: out of memory\nR)esume, A)bort>\n"
                             "warning #368: m() has been deprecated\nR)esume, A)bort>\n");
}

TEST_F(PromptTest, EndsTheRunAtAAndAtTheEndOfTheInput) {
    for (const char* answers : {"a", "A", "\nA", "", "\n\n"}) {
        CapturedOutput output;
        FedInput input(answers);
        EXPECT_EQ(endOfRun(), "user abort") << answers;
    }
    EXPECT_EQ(reporter_.errorCount(), 5) << "the message that was asked about counts";
}

TEST_F(PromptTest, EndsTheRunIfTheAnswerCannotBeRead) {
    CapturedOutput output;
    int saved = ::dup(STDIN_FILENO);
    ::close(STDIN_FILENO);
    EXPECT_EQ(endOfRun(), "input read error");
    // A file that is opened now must not be taken for the answers.
    prepareProcess();
    EXPECT_EQ(endOfRun(), "user abort");
    ::dup2(saved, STDIN_FILENO);
    ::close(saved);
}

} // namespace
} // namespace tarn
