#include "driver/driver.h"

#include "driver/command_line.h"
#include "driver/properties.h"
#include "driver/reporter.h"
#include "make/maker.h"
#include "runtime/console.h"
#include "runtime/process.h"
#include "store/path_list.h"

#include <chrono>
#include <string>
#include <string_view>

namespace tarn {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int failure = -1;

void printUsage() {
    consolePrintln("Quillon Make 1.1 for Java");
    consolePrintln("by the authors of tarn");
    consolePrintln("Usage: tarn [-g][-verbose][-quiet][-nowarn][-obfuscate][-encoding name][-d dir][-classpath path]"
                   "[-sourcepath path][-rebuild][-nocompile][-nocheckstable][-nomakestable]"
                   " {[-s] {source.java} | -p {package} | -c {class}}");
}

/// The source path is the very list of the class path, not a copy, if nothing else is said.
void setDefaultPaths(CommandLine& line) {
    if (!line.classPath) line.classPath = parsePathList(systemProperty("java.class.path"));
    if (!line.sourcePath) line.sourcePath = parsePathList(environment("SOURCEPATH"));
    if (!line.sourcePath) line.sourcePath = line.classPath;
}

void printPlace(const Store& place) {
    consolePrintln("  " + place.canonicalPath().value_or(place.path()));
}

void printPaths(const CommandLine& line) {
    consolePrintln("classpath:");
    for (const StoreRef& entry : *line.classPath) printPlace(*entry);
    consolePrintln("sourcepath:");
    if (line.sourcePath == line.classPath) {
        consolePrintln("  same as classpath");
    } else {
        for (const StoreRef& entry : *line.sourcePath) printPlace(*entry);
    }
    consolePrintln("outdir:");
    if (line.outputDirectory) {
        printPlace(*line.outputDirectory);
    } else {
        consolePrintln("  default: *.class -> source dir, *.dependency -> current dir");
    }
    consolePrintln("");
}

/// "1 error", "3 warnings"; nothing for none.
void printTotal(int count, std::string_view what) {
    if (count == 0) return;
    consolePrintln(std::to_string(count) + " " + std::string(what) + (count == 1 ? "" : "s"));
}

/// Tells on the console what the make engine is about to do.
class ConsoleListener final : public MakeListener {
public:
    bool parsing(Maker& maker, const Store& source) override {
        if (maker.options().verbose) printlnProgress("  parsing " + source.toString());
        return true;
    }
    bool needsCompile(Maker& maker, const Store& source, const std::string& reason) override {
        const Options& options = maker.options();
        if (options.verbose || options.nocompile)
            printlnProgress("  " + source.toString() + " needs to be compiled, reason: " + reason);
        return !options.nocompile;
    }
    void classUpdated(Maker&, Name*) override {}
};

void make(CommandLine& line, Reporter& reporter) {
    ConsoleListener listener;
    Maker maker(listener);
    maker.options() = line.options;
    maker.setEncoding(line.encoding);
    maker.setClassPath(line.classPath);
    maker.setSourcePath(line.sourcePath);
    maker.setOutputDirectory(line.outputDirectory);
    maker.setReporter(&reporter);
    maker.makeThem({.sources = std::move(line.sources),
                    .classes = std::move(line.classes),
                    .packages = std::move(line.packages),
                    .rebuild = line.rebuild});
    maker.close();
}

} // namespace

int runTool(std::span<const char* const> arguments) {
    Clock::time_point start = Clock::now();
    CommandLine line = parseCommandLine(arguments);
    if (line.usageRequested || !line.hasRoots()) {
        printUsage();
        return 0;
    }
    setDefaultPaths(line);
    if (line.options.verbose) printPaths(line);

    setPromptAfterReport(line.prompt);
    ConsoleReporter reporter(line.encoding);
    make(line, reporter);

    if (line.options.verbose) {
        auto elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
        consolePrintln("[total " + std::to_string(elapsed.count()) + "ms]");
    }
    printTotal(reporter.errorCount(), "error");
    printTotal(reporter.warningCount(), "warning");
    return reporter.errorCount() != 0 ? failure : 0;
}

} // namespace tarn
