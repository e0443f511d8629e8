#include "store/memory_store.h"

#include "runtime/failure.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

const Bytes ABC = {'a', 'b', 'c'};

std::string failureOf(auto action) {
    try {
        action();
    } catch (const IoFailure& failure) {
        return failure.what();
    }
    return "no failure";
}

TEST(ByteArrayStore, EachWriteIsANewDate) {
    auto file = ByteArrayStore::root("f");
    auto other = ByteArrayStore::root("f");
    EXPECT_EQ(0, file->date());
    file->write(ABC);
    EXPECT_FALSE(file->equals(*other));
    other->write({});
    EXPECT_TRUE(file->equals(*other));
    EXPECT_EQ(file->hashCode(), other->hashCode());
    file->write(ABC);
    EXPECT_EQ(2, file->date());
    EXPECT_FALSE(file->equals(*other));
}

TEST(ByteArrayStore, IsEitherAFileOrADirectory) {
    auto root = ByteArrayStore::root("r");
    StoreRef file = root->create("f");
    EXPECT_EQ("not readable: r/f", failureOf([&] { file->read(); }));
    EXPECT_EQ("not readable: r/f", failureOf([&] { file->readInto({}); }));
    file->write(ABC);
    EXPECT_EQ("not writable: r", failureOf([&] { root->write(ABC); }));
    EXPECT_EQ("not readable: r", failureOf([&] { root->read(); }));
    EXPECT_EQ("not a directory: f", failureOf([&] { file->list(); }));
    EXPECT_EQ("not a directory: f", failureOf([&] { root->makeDirectory("f"); }));
    EXPECT_EQ("not a directory: x", failureOf([&] { file->makeDirectory("x"); }));
    EXPECT_FALSE(file->lookup("x"));
}

} // namespace
} // namespace tarn
