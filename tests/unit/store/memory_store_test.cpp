#include "store/memory_store.h"

#include "runtime/failure.h"
#include "store/null_store.h"

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

TEST(ByteArrayStore, IsNamedByThePathFromItsRoot) {
    auto root = ByteArrayStore::root("memory");
    StoreRef file = root->makeDirectory("a")->create("B.java");
    EXPECT_EQ("memory", root->path());
    EXPECT_EQ(std::nullopt, root->parent());
    EXPECT_EQ("memory/a/B.java", file->path());
    EXPECT_EQ("memory/a", file->parent());
    EXPECT_EQ("B.java", file->name());
    EXPECT_EQ("ByteArrayStore[memory/a/B.java]", file->canonicalPath());
}

TEST(ByteArrayStore, HoldsACopyOfWhatWasWrittenLast) {
    auto file = ByteArrayStore::root("f");
    Bytes contents = ABC;
    file->write(contents);
    contents[0] = 'x';
    EXPECT_EQ(ABC, file->read());
    Bytes buffer(2);
    EXPECT_EQ(3u, file->readInto(buffer));
    EXPECT_EQ((Bytes{'a', 'b'}), buffer);
    file->write(Bytes{});
    EXPECT_TRUE(file->read().empty());
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

TEST(ByteArrayStore, ADirectoryListsItsChildrenAsTheyCame) {
    auto root = ByteArrayStore::root("r");
    EXPECT_FALSE(root->lookup("b"));
    root->create("b");
    root->makeDirectory("a");
    EXPECT_EQ(root->create("b"), root->lookup("b"));
    EXPECT_EQ(root->makeDirectory("a"), root->file("a"));
    EXPECT_EQ((std::vector<std::string>{"b", "a"}), root->list());
    EXPECT_TRUE(root->isDirectory());
    EXPECT_TRUE(root->lookup("a")->isDirectory());
    EXPECT_FALSE(root->lookup("b")->isDirectory());
    EXPECT_FALSE(root->lookup("c"));
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

TEST(NullStore, HoldsNothingAndAcceptsEverything) {
    const StoreRef& store = NullStore::instance();
    EXPECT_EQ(store, store->lookup("a/B.class"));
    EXPECT_EQ(store, store->makeDirectory("a")->create("B.class"));
    store->write(ABC);
    EXPECT_TRUE(store->read().empty());
    Bytes buffer(1);
    EXPECT_EQ(0u, store->readInto(buffer));
    EXPECT_EQ(0, store->date());
    EXPECT_TRUE(store->isDirectory());
    EXPECT_EQ(std::nullopt, store->list());
    EXPECT_EQ(std::nullopt, store->canonicalPath());
    EXPECT_TRUE(store->equals(*NullStore::instance()));
    EXPECT_FALSE(store->equals(NullStore()));
}

} // namespace
} // namespace tarn
