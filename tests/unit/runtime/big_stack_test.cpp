#include "runtime/big_stack.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace tarn {
namespace {

constexpr std::size_t RESERVE = 256 * 1024;

/// Recurses until the stack is low and counts the levels; each takes 64 KB, of which it touches little.
int descend() {
    volatile char frame[65536];
    frame[0] = 1;
    frame[65535] = 1;
    return stackLeft() < RESERVE ? 0 : 1 + descend() - (frame[0] - frame[65535]);
}

TEST(BigStackTest, EndsOrderlyWhenTheStackRunsLow) {
    int here = descend();
    int there = 0;
    runOnBigStack([&] { there = descend(); });
    EXPECT_GT(here, 10);
    EXPECT_GT(there, 500);
    EXPECT_EQ(descend(), here);
}

TEST(BigStackTest, CarriesExceptionsOutFromTheDepth) {
    EXPECT_THROW(runOnBigStack([] {
                     struct Deep {
                         static int fall(int level) {
                             if (level == 0) throw std::runtime_error("bottom");
                             volatile int sum = fall(level - 1);
                             return sum + 1;
                         }
                     };
                     Deep::fall(10000);
                 }),
                 std::runtime_error);
    EXPECT_GT(stackLeft(), RESERVE);
}

} // namespace
} // namespace tarn
