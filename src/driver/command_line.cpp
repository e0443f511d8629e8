#include "driver/command_line.h"

#include "runtime/console.h"
#include "store/directory_store.h"
#include "store/encoding.h"
#include "store/path_list.h"
#include "syntax/name.h"

#include <string_view>
#include <sys/stat.h>

namespace tarn {

namespace {

/// An option that sets a flag. Either member is null if the flag is in the other record.
struct FlagOption {
    std::string_view word;
    bool Options::*option;
    bool CommandLine::*field;
};

constexpr FlagOption flagOptions[] = {
    {"-rebuild", nullptr, &CommandLine::rebuild},
    {"-nocompile", &Options::nocompile, nullptr},
    {"-nocheckstable", &Options::nocheckstable, nullptr},
    {"-nomakestable", &Options::nomakestable, nullptr},
    {"-verbose", &Options::verbose, nullptr},
    {"-quiet", &Options::quiet, nullptr},
    {"-nowarn", &Options::nowarn, nullptr},
    {"-obfuscate", &Options::obfuscate, nullptr},
    {"-unsafe", &Options::unsafe, nullptr},
    {"-g", &Options::debugInfo, nullptr},
    {"-printsearch", &Options::printsearch, nullptr},
    {"-O", &Options::optimize, nullptr},
    {"-prompt", nullptr, &CommandLine::prompt},
};

using SetValue = void (*)(CommandLine&, const char* value);

/// An option that takes the argument behind it, whatever that looks like.
struct ValueOption {
    std::string_view word;
    SetValue set;
};

/// The directory need not exist: one level is made at once, and if that fails it shows when the first class is written.
void setOutputDirectory(CommandLine& line, const char* path) {
    ::mkdir(path, 0777);
    line.outputDirectory = std::make_shared<DirectoryStore>(path);
}

constexpr ValueOption valueOptions[] = {
    {"-classpath", [](CommandLine& line, const char* value) { line.classPath = parsePathList(value); }},
    {"-sourcepath", [](CommandLine& line, const char* value) { line.sourcePath = parsePathList(value); }},
    {"-encoding", [](CommandLine& line, const char* value) { line.encoding = resolveEncoding(value); }},
    {"-d", setOutputDirectory},
    {"-exclude", [](CommandLine& line, const char* value) { line.options.exclude = Name::fromString(value); }},
};

enum class Mode { source, package, byClass };

class Parser {
public:
    explicit Parser(std::span<const char* const> arguments) : rest_(arguments) {}

    CommandLine parse() {
        line_.encoding = resolveEncoding("default");
        while (!rest_.empty() && !line_.usageRequested) {
            const char* argument = rest_.front();
            rest_ = rest_.subspan(1);
            line_.usageRequested = !(*argument == '-' ? parseOption(argument) : addRoot(argument));
        }
        return std::move(line_);
    }

private:
    /// False for a fault, as are the next two.
    bool parseOption(std::string_view word) {
        if (setMode(word) || setFlag(word)) return true;
        for (const ValueOption& option : valueOptions)
            if (option.word == word) return setValue(option.set);
        consolePrint("unrecognized option: ");
        consolePrintln(word);
        return false;
    }

    bool setValue(SetValue set) {
        if (rest_.empty()) return false;
        set(line_, rest_.front());
        rest_ = rest_.subspan(1);
        return true;
    }

    bool addRoot(const char* argument) {
        if (mode_ == Mode::byClass) {
            line_.classes.emplace_back(argument);
            return true;
        }
        if (mode_ == Mode::package) {
            line_.packages.emplace_back(argument);
            return true;
        }
        auto source = std::make_shared<DirectoryStore>(argument);
        if (!source->exists()) {
            consolePrintln("Source " + std::string(argument) + " does not exist.");
            return false;
        }
        line_.sources.push_back(std::move(source));
        return true;
    }

    bool setMode(std::string_view word) {
        if (word == "-s") {
            mode_ = Mode::source;
        } else if (word == "-c") {
            mode_ = Mode::byClass;
        } else if (word == "-p") {
            mode_ = Mode::package;
        } else {
            return false;
        }
        return true;
    }

    bool setFlag(std::string_view word) {
        for (const FlagOption& flag : flagOptions) {
            if (flag.word != word) continue;
            (flag.option ? line_.options.*flag.option : line_.*flag.field) = true;
            return true;
        }
        return false;
    }

    std::span<const char* const> rest_; ///< not looked at yet
    Mode mode_ = Mode::source;          ///< what the next root is
    CommandLine line_;
};

} // namespace

CommandLine parseCommandLine(std::span<const char* const> arguments) {
    return Parser(arguments).parse();
}

} // namespace tarn
