// Compiles an expression in the scope of a source line to a class file: tarn-eval SOURCE LINE EXPRESSION OUT.class

#include "eval/host_compiler.h"
#include "runtime/big_stack.h"
#include "runtime/console.h"
#include "runtime/process.h"
#include "store/directory_store.h"
#include "store/encoding.h"
#include "store/path_list.h"

#include <charconv>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr int FAILED = 1;
constexpr int USAGE = 2;
constexpr std::string_view PREFIX = "quillon.compiler.loader";

struct Request {
    std::string classPath = tarn::environment("CLASSPATH").value_or(".");
    const char* sourcePath = nullptr; ///< null if none is given
    const char* encoding = "default";
    const char* className = "Expression";
    std::vector<const char*> operands; ///< source, line, expression, output
};

/// Null for a fault; options stand before the operands, and "--" may part them.
bool parse(int count, char** arguments, Request& request) {
    int i = 1;
    for (; i + 1 < count && arguments[i][0] == '-'; i += 2) {
        std::string_view option = arguments[i];
        const char* value = arguments[i + 1];
        if (option == "--") {
            i++;
            break;
        }
        if (option == "-classpath")
            request.classPath = value;
        else if (option == "-sourcepath")
            request.sourcePath = value;
        else if (option == "-encoding")
            request.encoding = value;
        else if (option == "-class")
            request.className = value;
        else
            return false;
    }
    request.operands.assign(arguments + i, arguments + count);
    return request.operands.size() == 4;
}

/// The file of that name, or the first below the source path.
tarn::StoreRef findSource(const Request& request) {
    const char* name = request.operands[0];
    auto here = std::make_shared<tarn::DirectoryStore>(name);
    if (here->exists() || request.sourcePath == nullptr) return here;
    tarn::StoreRef found = tarn::search(tarn::parsePathList(request.sourcePath), name);
    return found ? found : here;
}

int evaluate(const Request& request) {
    std::string_view digits = request.operands[1];
    int line = 0;
    auto [end, fault] = std::from_chars(digits.data(), digits.data() + digits.size(), line);
    if (fault != std::errc() || end != digits.data() + digits.size()) {
        tarn::errorPrintln("not a line number: " + std::string(digits));
        return FAILED;
    }
    tarn::HostCompiler compiler;
    compiler.setClassPath(tarn::parsePathList(request.classPath));
    compiler.setEncoding(tarn::resolveEncoding(request.encoding));
    tarn::DirectoryStore out(request.operands[3]);
    auto failure = compiler.evaluate(PREFIX, request.className, out, line, findSource(request), request.operands[2]);
    if (!failure) return 0;
    tarn::errorPrintln(*failure);
    return FAILED;
}

int evaluateGuarded(const Request& request) {
    try {
        int status = FAILED;
        tarn::runOnBigStack([&] { status = evaluate(request); });
        return status;
    } catch (const std::exception& fault) {
        tarn::errorPrintln(std::string("Compiler internal error.\n") + fault.what());
        return FAILED;
    }
}

} // namespace

int main(int count, char** arguments) {
    tarn::prepareProcess();
    Request request;
    if (!parse(count, arguments, request)) {
        tarn::errorPrintln("usage: tarn-eval [-classpath path][-sourcepath path][-encoding name][-class name]"
                           " SOURCE LINE EXPRESSION OUT.class");
        return USAGE;
    }
    int status = evaluateGuarded(request);
    tarn::flushConsole();
    return status;
}
