#include "store/directory_store.h"

#include "runtime/failure.h"
#include "unit/store/scratch_directory.h"

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>

namespace tarn {
namespace {

using test::ScratchDirectory;

std::span<const std::uint8_t> bytesOf(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

std::string textOf(std::span<const std::uint8_t> bytes) {
    return {bytes.begin(), bytes.end()};
}

std::string failureOf(auto action) {
    try {
        action();
    } catch (const IoFailure& failure) {
        return failure.what();
    }
    return "no failure";
}

TEST(DirectoryStore, RefusesWhatIsNoRegularFile) {
    ScratchDirectory directory;
    ASSERT_EQ(0, ::mkfifo((directory / "pipe").c_str(), 0600));
    EXPECT_EQ("is a directory", failureOf([&] { DirectoryStore(directory.path()).read(); }));
    EXPECT_EQ("not a regular file", failureOf([&] { DirectoryStore(directory / "pipe").read(); }));
    EXPECT_EQ("not a regular file", failureOf([&] { DirectoryStore("/dev/zero").read(); }));
    EXPECT_EQ("No such file or directory", failureOf([&] { DirectoryStore(directory / "none").read(); }));
}

TEST(DirectoryStore, AWriteReplacesLongerAndShorterContents) {
    ScratchDirectory directory;
    DirectoryStore store(directory / "A.class");
    for (std::string_view contents : {"short", "much longer than that", "", "x"}) {
        store.write(bytesOf(contents));
        EXPECT_EQ(contents, directory.get("A.class"));
    }
}

TEST(DirectoryStore, AFileThatWasCreatedButNotWrittenIsTakenBack) {
    ScratchDirectory directory;
    directory.put("Old.class", "old");
    DirectoryStore store(directory.path());
    store.create("New.class")->close();
    store.create("Old.class")->close();
    EXPECT_FALSE(DirectoryStore(directory / "New.class").exists());
    EXPECT_EQ("old", directory.get("Old.class"));
}

/// A limit on the length of files, which fails a write in the middle as a full disk does.
class ScopedFileLimit {
public:
    explicit ScopedFileLimit(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        ignored_ = ::signal(SIGXFSZ, SIG_IGN);
        rlimit limit = {bytes, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~ScopedFileLimit() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        ::signal(SIGXFSZ, ignored_);
    }

private:
    rlimit before_{};
    void (*ignored_)(int);
};

TEST(DirectoryStore, AWriteThatFailsLeavesNoHalfOfAFile) {
    ScratchDirectory directory;
    directory.put("Old.class", "old");
    std::string failure;
    {
        ScopedFileLimit limit(1000);
        for (const char* name : {"New.class", "Old.class"})
            failure = failureOf([&] { DirectoryStore(directory / name).write(Bytes(5000)); });
    }
    EXPECT_EQ("File too large", failure);
    EXPECT_FALSE(DirectoryStore(directory / "New.class").exists());
    EXPECT_FALSE(DirectoryStore(directory / "Old.class").exists());
}

TEST(DirectoryStore, ListsFilesInOrder) {
    ScratchDirectory directory;
    for (const char* name : {"b.java", "C.class", "a.java"}) directory.put(name, "");
    DirectoryStore store(directory.path());
    store.makeDirectory("D.class");
    std::filesystem::create_symlink("nowhere", directory / "E.class");
    std::filesystem::create_symlink("a.java", directory / "F.class");
    EXPECT_EQ((std::vector<std::string>{"C.class", "F.class", "a.java", "b.java"}), store.list());
    EXPECT_EQ(std::vector<std::string>(), DirectoryStore(directory / "D.class").list());
    EXPECT_EQ(std::nullopt, DirectoryStore(directory / "none").list());
    EXPECT_EQ(std::nullopt, DirectoryStore(directory / "a.java").list());
}

TEST(DirectoryStore, IsEqualBySamePlaceAndDate) {
    ScratchDirectory directory;
    std::string path = directory.put("A.java", "");
    DirectoryStore one(path);
    DirectoryStore other(path);
    EXPECT_TRUE(one.equals(other));
    EXPECT_EQ(one.hashCode(), other.hashCode());
    EXPECT_TRUE(DirectoryStore(directory / "none").equals(DirectoryStore(directory / "none")));
    EXPECT_FALSE(one.equals(DirectoryStore(directory / "none")));
    std::uint32_t hash = one.hashCode();
    timespec times[2] = {{0, 0}, {1000, 0}};
    ASSERT_EQ(0, ::utimensat(AT_FDCWD, path.c_str(), times, 0));
    EXPECT_NE(hash, one.hashCode());
}

TEST(DirectoryStore, ADateThatIsMovedOnIsOneThatArchivesKeep) {
    ScratchDirectory directory;
    std::string path = directory.put("A.class", "x");
    for (time_t second : {900000000, 900000001}) {
        const timespec times[] = {{.tv_sec = second}, {.tv_sec = second}};
        ASSERT_EQ(0, ::utimensat(AT_FDCWD, path.c_str(), times, 0));
        DirectoryStore file(path);
        Date before = file.date();
        file.moveDateOn(1);
        struct stat status {};
        ASSERT_EQ(0, ::stat(path.c_str(), &status));
        EXPECT_TRUE(file.date() == before + 1 && status.st_mtim.tv_sec % 2 == 0) << second;
    }
}

TEST(DirectoryStore, ReachesAFileByAnUnevenPath) {
    ScratchDirectory directory;
    directory.put("A.java", "text");
    EXPECT_EQ("text", textOf(DirectoryStore(directory.path() + "//A.java/").read()));
}

} // namespace
} // namespace tarn
