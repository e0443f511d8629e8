#include "runtime/console.h"

#include <cstdio>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <unistd.h>

namespace tarn {
namespace {

TEST(ConsoleTest, WritesEverythingToAPipeThatDoesNotWait) {
    constexpr std::size_t LENGTH = 1 << 20; // many times what a pipe holds
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    ASSERT_EQ(::fcntl(ends[1], F_SETFL, O_NONBLOCK), 0);
    std::size_t arrived = 0;
    std::thread reader([&] {
        char buffer[4096];
        for (ssize_t length; (length = ::read(ends[0], buffer, sizeof buffer)) > 0;)
            arrived += static_cast<std::size_t>(length);
    });
    std::fflush(stdout);
    int before = ::dup(STDOUT_FILENO);
    ::dup2(ends[1], STDOUT_FILENO);
    ::close(ends[1]);
    consolePrint(std::string(LENGTH, 'x'));
    flushConsole();
    ::dup2(before, STDOUT_FILENO);
    reader.join();
    ::close(before);
    ::close(ends[0]);
    EXPECT_EQ(arrived, LENGTH);
}

} // namespace
} // namespace tarn
