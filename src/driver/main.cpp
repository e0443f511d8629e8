#include "driver/driver.h"
#include "runtime/big_stack.h"
#include "runtime/console.h"
#include "runtime/process.h"

#include <exception>

namespace {

int reportFault(const char* text) {
    tarn::consolePrintln("\n\nCompiler internal error.");
    tarn::errorPrintln(text);
    return 1;
}

int runGuarded(std::span<const char* const> arguments) {
    try {
        int status = 0;
        tarn::runOnBigStack([&] { status = tarn::runTool(arguments); });
        return status;
    } catch (const std::exception& fault) {
        return reportFault(fault.what());
    } catch (...) {
        return reportFault("unknown exception");
    }
}

} // namespace

int main(int count, char** arguments) {
    tarn::prepareProcess();
    // A caller may start the tool without even its own name.
    std::span<const char* const> all(arguments, static_cast<std::size_t>(count));
    int status = runGuarded(all.subspan(all.empty() ? 0 : 1));
    tarn::flushConsole();
    return status;
}
