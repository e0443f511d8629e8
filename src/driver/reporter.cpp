#include "driver/reporter.h"

#include "driver/options.h"
#include "runtime/console.h"
#include "runtime/failure.h"
#include "runtime/utf8.h"
#include "store/encoding.h"
#include "syntax/position.h"

#include <algorithm>
#include <cerrno>
#include <unistd.h>

namespace tarn {

namespace {

/// At most this many errors, and as many warnings, are shown and counted in a run.
constexpr int reportLimit = 100;

/// The reporting state of the process. The reporter is valid from the start of a make to its end; the source is set for
/// as long as positions refer to it.
struct ReportingState {
    Reporter* reporter = nullptr;
    StoreRef source;
    bool suppressed = false;
    bool promptAfterReport = false;
};
constinit ReportingState state;

/// Asks whether to go on. Line ends and other characters that are no answer are passed over; the end of the input
/// counts as "A".
void askToResume() {
    consolePrintln("R)esume, A)bort>");
    flushConsole();
    for (;;) {
        char answer = 0;
        ssize_t count = ::read(STDIN_FILENO, &answer, 1);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) throw UserAbort("input read error");
        if (count == 0 || answer == 'A' || answer == 'a') throw UserAbort("user abort");
        if (answer == 'R' || answer == 'r') return;
    }
}

Message bound(MessageId id, std::initializer_list<Argument> arguments) {
    Message result = message(id);
    int n = 0;
    for (const Argument& argument : arguments) result = bind(std::move(result), argument.toString(), ++n);
    return result;
}

bool isLineEnd(char byte) {
    return byte == '\r' || byte == '\n' || byte == '\f';
}

} // namespace

void ConsoleReporter::print(std::string_view text) {
    consolePrint(text);
}

void ConsoleReporter::println(std::string_view text) {
    consolePrintln(text);
}

void ConsoleReporter::error(const StoreRef& source, int position, const Message& message) {
    show("error #", source, position, message);
    ++errors_;
    if (state.promptAfterReport) askToResume();
}

void ConsoleReporter::warning(const StoreRef& source, int position, const Message& message) {
    show("warning #", source, position, message);
    ++warnings_;
    if (state.promptAfterReport) askToResume();
}

void ConsoleReporter::show(std::string_view kind, const StoreRef& source, int position, const Message& message) {
    println(diagnosticLine(kind, source, position, message));
    if (source && position != 0) showLine(source, lineOf(position), columnOf(position));
}

void ConsoleReporter::showLine(const StoreRef& source, int line, int column) {
    try {
        load(source);
    } catch (const IoFailure&) {
        return; // the diagnostic is out; only its source line is missing
    }
    findLine(line);
    std::string_view text = std::string_view(text_).substr(lineStart_, lineEnd_ - lineStart_);
    println(latin1ToUtf8(text));

    std::string caret(static_cast<std::size_t>(std::max(column, 1)), ' ');
    for (std::size_t i = 0; i + 1 < caret.size() && i < text.size(); ++i)
        if (text[i] == '\t') caret[i] = '\t';
    caret.back() = '^';
    println(caret);
}

/// Makes `source` the file that lines are looked up in, unless it is already.
void ConsoleReporter::load(const StoreRef& source) {
    if (source == source_) return;
    Bytes bytes = source->read();
    if (std::optional<Bytes> decoded = decodeSource(bytes, encoding_)) bytes = std::move(*decoded);
    text_.assign(bytes.begin(), bytes.end());
    source_ = source;
    line_ = 0;
    lineStart_ = lineEnd_ = 0;
}

/// Walks to the wanted line, or to the last one if there are fewer, from the line shown last if that is further up.
void ConsoleReporter::findLine(int line) {
    std::size_t at = 0;
    int next = 1;
    if (line_ > 0 && line_ <= line) {
        at = lineStart_;
        next = line_;
    }
    do {
        line_ = next++;
        lineStart_ = at;
        while (at < text_.size() && !isLineEnd(text_[at])) ++at;
        lineEnd_ = at;
        if (at + 1 < text_.size() && text_[at] == '\r' && text_[at + 1] == '\n') ++at;
        ++at;
    } while (next <= line && at < text_.size());
}

std::string diagnosticLine(std::string_view kind, const StoreRef& source, int position, const Message& message) {
    std::string line;
    if (source && position != 0) {
        line += source->canonicalPath().value_or(source->path());
        line += ":" + std::to_string(lineOf(position)) + ": ";
    }
    line += kind;
    line += std::to_string(message.number) + ": " + message.text;
    return line;
}

void setReporter(Reporter* reporter) {
    state.reporter = reporter;
    state.source = nullptr;
    state.suppressed = false;
}

Reporter* currentReporter() {
    return state.reporter;
}

void replaceReporter(Reporter* reporter) {
    state.reporter = reporter;
}

StoreRef setSource(StoreRef source) {
    return std::exchange(state.source, std::move(source));
}

const StoreRef& currentSource() {
    return state.source;
}

bool setSuppressed(bool suppressed) {
    return std::exchange(state.suppressed, suppressed);
}

bool suppressed() {
    return state.suppressed;
}

void setPromptAfterReport(bool prompt) {
    state.promptAfterReport = prompt;
}

void reportError(int position, MessageId id, std::initializer_list<Argument> arguments) {
    if (!state.reporter || state.suppressed || state.reporter->errorCount() >= reportLimit) return;
    state.reporter->error(state.source, position, bound(id, arguments));
}

void reportWarning(int position, MessageId id, std::initializer_list<Argument> arguments) {
    if (!state.reporter || state.suppressed || state.reporter->warningCount() >= reportLimit) return;
    if (currentOptions && currentOptions->nowarn) return;
    state.reporter->warning(state.source, position, bound(id, arguments));
}

void printProgress(std::string_view text) {
    if (state.reporter) state.reporter->print(text);
}

void printlnProgress(std::string_view text) {
    if (state.reporter) state.reporter->println(text);
}

} // namespace tarn
