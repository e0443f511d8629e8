#pragma once

#include "driver/reporter.h"

#include <string>

namespace tarn::test {

/// Becomes the current reporter and keeps what is told, one line each: "error TEXT", "warning TEXT", progress as it is.
class RecordedReports final : public Reporter {
public:
    RecordedReports() { setReporter(this); }
    ~RecordedReports() override { setReporter(nullptr); }
    RecordedReports(const RecordedReports&) = delete;
    RecordedReports& operator=(const RecordedReports&) = delete;

    void print(std::string_view progress) override { text += progress; }
    void println(std::string_view progress) override { text.append(progress) += '\n'; }
    void error(const StoreRef&, int, const Message& message) override {
        text += "error " + message.text + "\n";
        ++errors_;
    }
    void warning(const StoreRef&, int, const Message& message) override {
        text += "warning " + message.text + "\n";
        ++warnings_;
    }
    [[nodiscard]] int errorCount() const override { return errors_; }
    [[nodiscard]] int warningCount() const override { return warnings_; }

    std::string text;

private:
    int errors_ = 0;
    int warnings_ = 0;
};

} // namespace tarn::test
