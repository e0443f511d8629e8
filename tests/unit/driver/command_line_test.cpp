#include "driver/command_line.h"

#include "driver/driver.h"
#include "syntax/name.h"
#include "unit/driver/surroundings.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace tarn {
namespace {

using test::CapturedOutput;
using test::ScopedDirectory;
using test::ScopedVariable;

using Arguments = std::vector<const char*>;

const std::optional<std::string> none;
const char usage[] = "Quillon Make 1.1 for Java\n"
                     "by the authors of tarn\n"
                     "Usage: tarn [-g][-verbose][-quiet][-nowarn][-obfuscate][-encoding name][-d dir][-classpath path]"
                     "[-sourcepath path][-rebuild][-nocompile][-nocheckstable][-nomakestable] "
                     "{[-s] {source.java} | -p {package} | -c {class}}\n";

/// The roots as text: sources, classes and packages, each kind behind its letter.
std::string rootsOf(const Arguments& arguments) {
    CommandLine line = parseCommandLine(arguments);
    std::string roots = line.usageRequested ? "fault" : "";
    for (const StoreRef& source : line.sources) roots += " s:" + source->path();
    for (const std::string& name : line.classes) roots += " c:" + name;
    for (const std::string& name : line.packages) roots += " p:" + name;
    return roots;
}

TEST(CommandLineTest, AModeHoldsUntilTheNext) {
    ScopedDirectory here;
    here.write("x.java", "");
    here.write("folder/y.java", "");
    const std::pair<Arguments, std::string> rows[] = {
        {{}, ""},
        {{"x.java", "-g", "folder/y.java"}, " s:x.java s:folder/y.java"},
        {{"folder"}, " s:folder"},
        {{"-c", "a.B", "x.java"}, " c:a.B c:x.java"},
        {{"-c", "a.B", "-s", "x.java"}, " s:x.java c:a.B"},
        {{"-p", "a", "-c", "a.B", "-p", "b", ""}, " c:a.B p:a p:b p:"},
        {{"-p"}, ""},
    };
    for (const auto& [arguments, roots] : rows) EXPECT_EQ(rootsOf(arguments), roots);
}

TEST(CommandLineTest, AFaultStopsParsing) {
    ScopedDirectory here;
    here.write("x.java", "");
    struct Row {
        Arguments arguments;
        std::string roots;
        std::string output;
    };
    const Row rows[] = {
        {{"x.java", "-nonsense", "-other", "no.java"}, "fault s:x.java", "unrecognized option: -nonsense\n"},
        {{"-Verbose"}, "fault", "unrecognized option: -Verbose\n"},
        {{"-"}, "fault", "unrecognized option: -\n"},
        {{"no.java", "x.java", "-nonsense"}, "fault", "Source no.java does not exist.\n"},
        {{"*.java"}, "fault", "Source *.java does not exist.\n"},
        {{"x.java", "-d"}, "fault s:x.java", ""},
        {{"x.java", "-classpath"}, "fault s:x.java", ""},
        {{"-encoding"}, "fault", ""},
    };
    for (const Row& row : rows) {
        CapturedOutput output;
        EXPECT_EQ(rootsOf(row.arguments), row.roots);
        EXPECT_EQ(output.text(), row.output);
    }
}

TEST(CommandLineTest, EachFlagSetsItsOwnField) {
    const std::pair<const char*, bool Options::*> flags[] = {
        {"-nocompile", &Options::nocompile},
        {"-nocheckstable", &Options::nocheckstable},
        {"-nomakestable", &Options::nomakestable},
        {"-verbose", &Options::verbose},
        {"-quiet", &Options::quiet},
        {"-nowarn", &Options::nowarn},
        {"-obfuscate", &Options::obfuscate},
        {"-unsafe", &Options::unsafe},
        {"-g", &Options::debugInfo},
        {"-printsearch", &Options::printsearch},
        {"-O", &Options::optimize},
    };
    for (auto [word, field] : flags) {
        CommandLine line = parseCommandLine(Arguments{word});
        for (auto [otherWord, otherField] : flags) EXPECT_EQ(line.options.*otherField, field == otherField) << word;
        EXPECT_FALSE(line.usageRequested || line.rebuild || line.prompt) << word;
    }
    EXPECT_TRUE(parseCommandLine(Arguments{"-rebuild"}).rebuild);
    EXPECT_TRUE(parseCommandLine(Arguments{"-prompt"}).prompt);
}

TEST(CommandLineTest, ValuesAreTakenAsTheyStandAndTheLastOneHolds) {
    ScopedVariable all("LC_ALL", "C");
    CommandLine line = parseCommandLine(Arguments{"-classpath", "-g", "-classpath", "a::b.zip", "-sourcepath", "",
                                                  "-exclude", "a.B", "-exclude", "a.C", "-encoding", "UTF8"});
    ASSERT_EQ(line.classPath->size(), 2u);
    EXPECT_EQ(line.classPath->front()->path(), "a");
    ASSERT_NE(line.sourcePath, nullptr);
    EXPECT_TRUE(line.sourcePath->empty());
    EXPECT_EQ(line.options.exclude, Name::fromString("a.C"));
    EXPECT_EQ(line.encoding, "UTF8");
    EXPECT_FALSE(line.options.debugInfo);

    CommandLine plain = parseCommandLine({});
    EXPECT_EQ(plain.classPath, nullptr);
    EXPECT_EQ(plain.sourcePath, nullptr);
    EXPECT_EQ(plain.outputDirectory, nullptr);
    EXPECT_EQ(plain.encoding, none);
    ScopedVariable russian("LC_ALL", "ru_RU.UTF-8");
    EXPECT_EQ(parseCommandLine({}).encoding, "Cp1251");
    EXPECT_EQ(parseCommandLine(Arguments{"-encoding", "null"}).encoding, none);
}

TEST(CommandLineTest, TheOutputDirectoryIsMadeOneLevelDeepAtOnce) {
    ScopedDirectory here;
    CapturedOutput output;
    CommandLine line = parseCommandLine(Arguments{"-d", "out", "-d", "no/such/place", "-nonsense"});
    EXPECT_TRUE(std::filesystem::is_directory("out"));
    EXPECT_FALSE(std::filesystem::exists("no"));
    ASSERT_NE(line.outputDirectory, nullptr);
    EXPECT_EQ(line.outputDirectory->path(), "no/such/place");
}

std::string outputOf(const Arguments& arguments, int status) {
    CapturedOutput output;
    EXPECT_EQ(runTool(arguments), status);
    return output.text();
}

TEST(RunTest, WithoutRootsOrAfterAFaultItPrintsTheUsage) {
    ScopedDirectory here;
    EXPECT_EQ(outputOf({}, 0), usage);
    EXPECT_EQ(outputOf({"-p"}, 0), usage);
    EXPECT_EQ(outputOf({"-d"}, 0), usage);
    EXPECT_EQ(outputOf({"-g", "-verbose"}, 0), usage);
    EXPECT_EQ(outputOf({"-nonsense", "x.java"}, 0), std::string("unrecognized option: -nonsense\n") + usage);
    EXPECT_EQ(outputOf({"x.java"}, 0), std::string("Source x.java does not exist.\n") + usage);
}

/// The lines of a verbose run up to the empty line behind the output directory.
std::string pathsOf(const Arguments& arguments) {
    CapturedOutput output;
    runTool(arguments);
    std::string all = output.text();
    return all.substr(0, all.find("\n\n") + 1);
}

TEST(RunTest, VerboseShowsThePaths) {
    ScopedDirectory here;
    here.write("x.java", "class x {}");
    ScopedVariable classPath("CLASSPATH", "lib");
    ScopedVariable javaHome("JAVA_HOME", "/opt/jdk");
    ScopedVariable sourcePath("SOURCEPATH", none);
    const std::string defaultClassPath =
        "classpath:\n  " + here.path() + "/lib\n  /opt/jdk/classes\n  /opt/jdk/lib/classes.zip\n";
    const std::string defaultOutput = "outdir:\n  default: *.class -> source dir, *.dependency -> current dir\n";
    EXPECT_EQ(pathsOf({"-verbose", "x.java"}), defaultClassPath + "sourcepath:\n  same as classpath\n" + defaultOutput);
    EXPECT_EQ(pathsOf({"-verbose", "x.java", "-classpath", "/a:/b", "-sourcepath", "/c", "-d", "out"}),
              "classpath:\n  /a\n  /b\nsourcepath:\n  /c\noutdir:\n  " + here.path() + "/out\n");
    ScopedVariable emptyPath("SOURCEPATH", "");
    EXPECT_EQ(pathsOf({"-verbose", "x.java"}), defaultClassPath + "sourcepath:\n" + defaultOutput);
    ScopedVariable otherPath("SOURCEPATH", "/src:/gen");
    EXPECT_EQ(pathsOf({"-verbose", "x.java"}), defaultClassPath + "sourcepath:\n  /src\n  /gen\n" + defaultOutput);
}

} // namespace
} // namespace tarn
