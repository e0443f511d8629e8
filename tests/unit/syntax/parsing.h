#pragma once

#include "driver/reporter.h"
#include "runtime/arena.h"
#include "semantic/context.h"
#include "syntax/dependency_scanner.h"
#include "syntax/parser.h"
#include "syntax/tree_builder.h"

#include <string>
#include <string_view>
#include <vector>

namespace tarn::test {

/// "line:column".
std::string placeOf(Position position);

/// Is the current reporter while it lives, and keeps what is reported as "place text", a warning with "warning" before.
class MessageLog final : public Reporter {
public:
    MessageLog() { setReporter(this); }
    ~MessageLog() override { setReporter(nullptr); }
    void print(std::string_view text) override { printed += text; }
    void println(std::string_view text) override { printed.append(text).append("\n"); }
    void error(const StoreRef&, int position, const Message& message) override {
        messages.push_back(placeOf(position) + " " + message.text);
    }
    void warning(const StoreRef&, int position, const Message& message) override {
        messages.push_back("warning " + placeOf(position) + " " + message.text);
    }
    [[nodiscard]] int errorCount() const override { return 0; }
    [[nodiscard]] int warningCount() const override { return 0; }
    /// The messages, joined by "; ".
    [[nodiscard]] std::string text() const;

    std::vector<std::string> messages;
    std::string printed;
};

/// A store with that text.
StoreRef sourceOf(std::string_view text);

/// A source that was parsed into trees. One at a time.
class ParsedSource {
public:
    explicit ParsedSource(std::string_view text);

    Context context;
    Arena arena;
    MessageLog log;
    TreeBuilder builder{arena};
    std::vector<Tree*> defs;
};

/// The messages of parsing a source into trees; those of scanning it for dependencies.
std::string messagesOfParse(std::string_view source);
std::string messagesOfScan(std::string_view source);

/// `count` times `text`.
std::string repeat(std::string_view text, int count);

} // namespace tarn::test
