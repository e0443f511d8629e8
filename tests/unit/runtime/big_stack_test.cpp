#include "runtime/big_stack.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace tarn {
namespace {

/// Recurses until the stack is low and counts the levels; each takes a kilobyte and more.
int descend() {
    volatile char frame[1024];
    frame[0] = frame[1023] = 1;
    return stackIsLow() ? 0 : 1 + descend() - (frame[0] - frame[1023]);
}

TEST(BigStackTest, EndsOrderlyWhenTheStackRunsLow) {
    int here = descend();
    int there = 0;
    runOnBigStack([&] { there = descend(); });
    EXPECT_GT(here, 100);
    EXPECT_GT(there, 10000);
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
    EXPECT_GT(stackLeft(), stackReserve);
}

} // namespace
} // namespace tarn
