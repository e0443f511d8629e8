#pragma once

#include "driver/messages.h"
#include "store/store.h"

#include <concepts>
#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tarn {

/// Where diagnostics and progress go. The process has one current reporter; all code reports through the functions
/// below, which apply suppression and the limits, and not to a reporter directly.
///
/// A source is null and a position 0 if not known. A position is `line << 10 | column`, both counted from 1.
class Reporter {
public:
    virtual ~Reporter() = default;

    /// Text in UTF-8 to standard output.
    virtual void print(std::string_view text) = 0;
    /// The same with a line end.
    virtual void println(std::string_view text) = 0;
    /// Shows and counts an error. Throws UserAbort if the user is asked and does not want to go on.
    virtual void error(const StoreRef& source, int position, const Message& message) = 0;
    /// Shows and counts a warning; throws like `error`.
    virtual void warning(const StoreRef& source, int position, const Message& message) = 0;
    [[nodiscard]] virtual int errorCount() const = 0;
    [[nodiscard]] virtual int warningCount() const = 0;
};

/// Prints a diagnostic with its source line and a caret below the column.
class ConsoleReporter final : public Reporter {
public:
    /// `encoding` names the converter that source files are read with for display; absent for plain bytes.
    explicit ConsoleReporter(std::optional<std::string> encoding) : encoding_(std::move(encoding)) {}

    void print(std::string_view text) override;
    void println(std::string_view text) override;
    void error(const StoreRef& source, int position, const Message& message) override;
    void warning(const StoreRef& source, int position, const Message& message) override;
    [[nodiscard]] int errorCount() const override { return errors_; }
    [[nodiscard]] int warningCount() const override { return warnings_; }

private:
    void show(std::string_view kind, const StoreRef& source, int position, const Message& message);
    void showLine(const StoreRef& source, int line, int column);
    void load(const StoreRef& source);
    void findLine(int line);

    std::optional<std::string> encoding_;
    int errors_ = 0;
    int warnings_ = 0;

    // The file shown last and the line where the search for the next one may start.
    StoreRef source_;
    std::string text_;          ///< its contents as the scanner sees them; each byte is a Latin-1 character
    int line_ = 0;              ///< number of the line shown last, counted from 1; 0 if none
    std::size_t lineStart_ = 0; ///< offset of its first byte
    std::size_t lineEnd_ = 0;   ///< offset behind its last one, before the line end
};

/// Counts and prints nothing; for the scan of a source that is looked at but not compiled.
class SilentReporter final : public Reporter {
public:
    void print(std::string_view) override {}
    void println(std::string_view) override {}
    void error(const StoreRef&, int, const Message&) override { ++errors_; }
    void warning(const StoreRef&, int, const Message&) override { ++warnings_; }
    [[nodiscard]] int errorCount() const override { return errors_; }
    [[nodiscard]] int warningCount() const override { return warnings_; }

private:
    int errors_ = 0;
    int warnings_ = 0;
};

/// What fills a placeholder: a text in UTF-8, or a pointer to anything that has a `toString()` (a Name, a Type, ...).
/// It refers to what it was made from, and turns it into text only if the message is really reported.
class Argument {
public:
    Argument(std::string_view text) : text_(text) {}
    Argument(const std::string& text) : text_(text) {}
    Argument(const char* text) : text_(text) {}

    template <class Thing>
    requires requires(Thing* thing) {
        { thing->toString() } -> std::convertible_to<std::string>;
    }
    Argument(Thing* thing)
        : thing_(thing), describe_([](const void* of) -> std::string {
            return const_cast<Thing*>(static_cast<const Thing*>(of))->toString();
        }) {}

    [[nodiscard]] std::string toString() const { return describe_ ? describe_(thing_) : std::string(text_); }

private:
    std::string_view text_;
    const void* thing_ = nullptr;
    std::string (*describe_)(const void*) = nullptr;
};

/// Makes `reporter` current, and clears the source and the suppression. Null drops the current one. The caller keeps it
/// alive while it is current.
void setReporter(Reporter* reporter);
/// The current reporter; null before the first `setReporter`.
Reporter* currentReporter();
/// Makes `reporter` current and leaves source and suppression as they are.
void replaceReporter(Reporter* reporter);

/// The first line in which a diagnostic of that kind ("error #") is shown: path and line, if known, number and text.
std::string diagnosticLine(std::string_view kind, const StoreRef& source, int position, const Message& message);

/// Makes `source` the file that positions refer to (null for none) and returns the one before.
StoreRef setSource(StoreRef source);
const StoreRef& currentSource();

/// Errors and warnings reported while this is set are dropped uncounted. Returns the value before.
bool setSuppressed(bool suppressed);
bool suppressed();

/// Asks the user after each error and warning whether to go on.
void setPromptAfterReport(bool prompt);

/// Keeps another source current for its own life.
class ScopedSource {
public:
    explicit ScopedSource(StoreRef source) : previous_(setSource(std::move(source))) {}
    ~ScopedSource() { setSource(std::move(previous_)); }
    ScopedSource(const ScopedSource&) = delete;
    ScopedSource& operator=(const ScopedSource&) = delete;

private:
    StoreRef previous_;
};

/// Drops all errors and warnings for its own life.
class ScopedSuppress {
public:
    ScopedSuppress() : previous_(setSuppressed(true)) {}
    ~ScopedSuppress() { setSuppressed(previous_); }
    ScopedSuppress(const ScopedSuppress&) = delete;
    ScopedSuppress& operator=(const ScopedSuppress&) = delete;

private:
    bool previous_;
};

/// Keeps reporter, source and suppression as they are at its start, whatever becomes current in its life.
class ScopedReporting {
public:
    ScopedReporting() : reporter_(currentReporter()), source_(currentSource()), suppressed_(suppressed()) {}
    ~ScopedReporting() {
        setReporter(reporter_);
        setSource(std::move(source_));
        setSuppressed(suppressed_);
    }
    ScopedReporting(const ScopedReporting&) = delete;
    ScopedReporting& operator=(const ScopedReporting&) = delete;

private:
    Reporter* reporter_;
    StoreRef source_;
    bool suppressed_;
};

/// Reports an error at a position of the current source (0: at no position), with up to five arguments for "%1" to
/// "%5". Nothing happens while errors are suppressed, nor after 100 errors.
void reportError(int position, MessageId id, std::initializer_list<Argument> arguments);
/// The same for a warning, which `Options.nowarn` drops as well.
void reportWarning(int position, MessageId id, std::initializer_list<Argument> arguments);

template <class... Arguments>
requires(sizeof...(Arguments) <= 5 &&
         (std::convertible_to<const Arguments&, Argument> && ...)) void reportError(int position, MessageId id,
                                                                                    const Arguments&... arguments) {
    reportError(position, id, std::initializer_list<Argument>{Argument(arguments)...});
}

template <class... Arguments>
requires(sizeof...(Arguments) <= 5 &&
         (std::convertible_to<const Arguments&, Argument> && ...)) void reportWarning(int position, MessageId id,
                                                                                      const Arguments&... arguments) {
    reportWarning(position, id, std::initializer_list<Argument>{Argument(arguments)...});
}

/// A progress text to the current reporter; nothing if there is none.
void printProgress(std::string_view text);
void printlnProgress(std::string_view text);

} // namespace tarn
