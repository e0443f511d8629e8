#include "runtime/console.h"

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <poll.h>
#include <unistd.h>

namespace tarn {

namespace {

// Plain static memory: nothing to construct at start, nothing to destroy at exit.
char pending[1 << 16];
std::size_t pendingLength = 0;

/// Waits until the file takes more; false on a failure. The caller may have given an end of a pipe that does not wait
/// by itself.
bool awaitRoom(int file) {
    pollfd wanted{file, POLLOUT, 0};
    return ::poll(&wanted, 1, -1) > 0 || errno == EINTR;
}

void writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        ssize_t written = ::write(file, bytes.data(), bytes.size());
        if (written < 0 && (errno == EINTR || (errno == EAGAIN && awaitRoom(file)))) continue;
        if (written <= 0) return;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

bool isTerminal() {
    static const bool terminal = ::isatty(STDOUT_FILENO) != 0;
    return terminal;
}

void collect(std::string_view text) {
    if (text.size() > sizeof pending - pendingLength) flushConsole();
    if (text.size() > sizeof pending) return writeAll(STDOUT_FILENO, text);
    if (text.empty()) return;
    std::memcpy(pending + pendingLength, text.data(), text.size());
    pendingLength += text.size();
}

} // namespace

void consolePrint(std::string_view text) {
    collect(text);
    if (isTerminal()) flushConsole();
}

void consolePrintln(std::string_view text) {
    collect(text);
    consolePrint("\n");
}

void flushConsole() {
    std::size_t length = pendingLength;
    pendingLength = 0;
    writeAll(STDOUT_FILENO, {pending, length});
}

void errorPrintln(std::string_view text) {
    flushConsole();
    writeAll(STDERR_FILENO, text);
    writeAll(STDERR_FILENO, "\n");
}

} // namespace tarn
