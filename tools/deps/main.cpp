// Prints dependency files as text: tarn-deps [--users NAME] FILE...

#include "deps/listing.h"
#include "runtime/console.h"
#include "runtime/failure.h"
#include "runtime/process.h"
#include "store/directory_store.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr int FAILED = 1;
constexpr int USAGE = 2;

std::vector<std::string> linesOf(const char* path, const char* users) {
    using namespace tarn;
    Arena arena;
    Bytes bytes = DirectoryStore(path).read();
    DependencyDecoder decoder(bytes, arena);
    DependencyHeader header = decoder.header();
    decoder.sourceCount();
    DependencyRecords records = decoder.records(ImportsRead::ALL);
    return users == nullptr ? factsOf(header, records) : usersOf(users, records);
}

} // namespace

int main(int count, char** arguments) {
    tarn::prepareProcess();
    const char* users = nullptr;
    int first = 1;
    if (count > 2 && std::string_view(arguments[1]) == "--users") {
        users = arguments[2];
        first = 3;
    }
    if (first >= count) {
        tarn::errorPrintln("usage: tarn-deps [--users NAME] FILE...");
        return USAGE;
    }
    int status = 0;
    std::vector<std::string> lines;
    for (int i = first; i < count; i++) {
        try {
            std::vector<std::string> more = linesOf(arguments[i], users);
            lines.insert(lines.end(), more.begin(), more.end());
        } catch (const tarn::IoFailure& failure) {
            tarn::errorPrintln(std::string(arguments[i]) + ": " + failure.what());
            status = FAILED;
        }
    }
    std::sort(lines.begin(), lines.end());
    for (const std::string& line : lines) tarn::consolePrintln(line);
    tarn::flushConsole();
    return status;
}
