#include "eval/eval_reporter.h"

#include "runtime/console.h"
#include "syntax/position.h"

#include <string>

namespace tarn {

void EvalReporter::print(std::string_view text) {
    consolePrint(text);
}

void EvalReporter::println(std::string_view text) {
    consolePrintln(text);
}

void EvalReporter::error(const StoreRef& source, int position, const Message& message) {
    if (source && source->name() == EXPRESSION)
        throw EvalError("error in expression (column = " + std::to_string(columnOf(position)) + "): " + message.text);
    throw EvalError("cannot evaluate expression: error in source " +
                    diagnosticLine("error #", source, position, message));
}

} // namespace tarn
