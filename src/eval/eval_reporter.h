#pragma once

#include "driver/reporter.h"

#include <stdexcept>

namespace tarn {

/// The failure of an evaluation; the text is for the user.
class EvalError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Ends an evaluation at the first error, and drops warnings.
class EvalReporter final : public Reporter {
public:
    void print(std::string_view text) override;
    void println(std::string_view text) override;
    /// Throws EvalError: with the column if the fault is in the expression, else with the place in the source.
    [[noreturn]] void error(const StoreRef& source, int position, const Message& message) override;
    void warning(const StoreRef&, int, const Message&) override {}
    [[nodiscard]] int errorCount() const override { return 0; }
    [[nodiscard]] int warningCount() const override { return 0; }

    /// The name of the store that holds the expression.
    static constexpr std::string_view EXPRESSION = "<expr>";
};

} // namespace tarn
