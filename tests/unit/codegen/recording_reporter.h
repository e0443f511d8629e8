#pragma once

#include "driver/reporter.h"

#include <string>
#include <string_view>
#include <vector>

namespace tarn {

/// Keeps each diagnostic as "line:column text", warnings with "warning: " in front of the text.
class RecordingReporter final : public Reporter {
public:
    RecordingReporter() { setReporter(this); }
    ~RecordingReporter() override { setReporter(nullptr); }
    void print(std::string_view text) override { printed += text; }
    void println(std::string_view) override {}
    void error(const StoreRef&, int position, const Message& message) override {
        ++errors_;
        keep(position, message.text);
    }
    void warning(const StoreRef&, int position, const Message& message) override {
        ++warnings_;
        keep(position, "warning: " + message.text);
    }
    [[nodiscard]] int errorCount() const override { return errors_; }
    [[nodiscard]] int warningCount() const override { return warnings_; }

    std::vector<std::string> said;
    std::string printed;

private:
    void keep(int position, const std::string& text) {
        said.push_back(std::to_string(position >> 10) + ":" + std::to_string(position & 1023) + " " + text);
    }

    int errors_ = 0;
    int warnings_ = 0;
};

} // namespace tarn
