#include "runtime/bits.h"

#include <gmock/gmock.h>

#include <vector>

namespace tarn {
namespace {

Bits setOf(const std::vector<int>& members) {
    Bits bits;
    for (int member : members) bits.incl(member);
    return bits;
}

std::vector<int> membersOf(const Bits& bits) {
    std::vector<int> members;
    bits.eachMember([&](int member) { members.push_back(member); });
    return members;
}

TEST(Bits, SetsOfAnyLengthsAreJoinedAndCompared) {
    struct Row {
        std::vector<int> a, b, both, either, one;
    };
    const Row rows[] = {
        {{}, {}, {}, {}, {}},
        {{0, 63}, {63}, {63}, {0, 63}, {0}},
        {{5, 64}, {5}, {5}, {5, 64}, {64}},
        {{1}, {1, 127, 128}, {1}, {1, 127, 128}, {127, 128}},
        {{2, 64, 1000}, {3, 64, 200}, {64}, {2, 3, 64, 200, 1000}, {2, 3, 200, 1000}},
    };
    for (const Row& row : rows) {
        Bits a = setOf(row.a);
        Bits b = setOf(row.b);
        EXPECT_EQ(membersOf(a), row.a);
        EXPECT_EQ(a.empty(), row.a.empty());
        Bits joined = a;
        joined.orSet(b);
        EXPECT_EQ(membersOf(joined), row.either);
        Bits common = a;
        common.andSet(b);
        EXPECT_EQ(membersOf(common), row.both);
        std::vector<int> one;
        a.eachDifference(b, [&](int member) { one.push_back(member); });
        EXPECT_EQ(one, row.one);
    }
}

TEST(Bits, NegativeNumbersAreNeverMembers) {
    Bits bits = setOf({-1, 70});
    bits.excl(-1);
    bits.excl(500);
    EXPECT_FALSE(bits.isMember(-1));
    EXPECT_FALSE(bits.isMember(500));
    EXPECT_EQ(membersOf(bits), std::vector<int>{70});
    bits.excl(70);
    EXPECT_TRUE(bits.empty());
}

} // namespace
} // namespace tarn
