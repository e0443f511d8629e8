#include "classlib/archive_writer.h"

#include "runtime/process.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/resource.h>

namespace tarn::classlib::test {

namespace {

namespace fs = std::filesystem;

class ArchiveWriter : public testing::Test {
protected:
    ArchiveWriter()
        : folder_(fs::path(testing::TempDir()) / testing::UnitTest::GetInstance()->current_test_info()->name()) {
        fs::remove_all(folder_);
        fs::create_directories(folder_);
    }
    ~ArchiveWriter() override { fs::remove_all(folder_); }

    [[nodiscard]] std::string path(const std::string& name) const { return (folder_ / name).string(); }

    [[nodiscard]] std::string read(const std::string& name) const {
        std::ifstream in(folder_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    [[nodiscard]] std::size_t fileCount() const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder_), fs::directory_iterator()));
    }

    fs::path folder_;
};

} // namespace

TEST_F(ArchiveWriter, GivesTheSameBytesForTheSameMembersInAnyOrder) {
    std::uint64_t size = writeArchive(path("1.zip"), {{"a/B", {1, 2, 3}}, {"a/A", {}}});
    EXPECT_EQ(size, fs::file_size(path("1.zip")));
    writeArchive(path("2.zip"), {{"a/A", {}}, {"a/B", {1, 2, 3}}});
    std::string bytes = read("1.zip");
    EXPECT_EQ(bytes, read("2.zip"));
    // The first local header: stored, 1997-01-01 00:00:00, the lesser name.
    EXPECT_EQ(bytes.substr(0, 4), "PK\3\4");
    EXPECT_EQ(bytes.substr(8, 6), std::string("\0\0\0\0\x21\x22", 6));
    EXPECT_EQ(bytes.substr(30, 3), "a/A");
}

TEST_F(ArchiveWriter, ReplacesTheOldFileAsAWholeAndLeavesNoOther) {
    std::ofstream(path("a.zip")) << "old";
    writeArchive(path("a.zip"), {{"x", {1}}});
    EXPECT_EQ(read("a.zip").substr(0, 2), "PK");
    EXPECT_EQ(fileCount(), 1u);
}

TEST_F(ArchiveWriter, FailsInWordsAndLeavesTheOldFile) {
    fs::create_directory(path("folder.zip"));
    EXPECT_THROW(writeArchive(path("folder.zip"), {{"x", {1}}}), OutputFailure);
    EXPECT_THROW(writeArchive(path("absent/a.zip"), {{"x", {1}}}), OutputFailure);
    std::ofstream(path("a.zip")) << "old";
    EXPECT_THROW(writeArchive(path("a.zip"), {{"x", {1}}, {"x", {2}}}), OutputFailure); // one name twice
    prepareProcess();
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    rlimit tight{.rlim_cur = 1000, .rlim_max = before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &tight);
    EXPECT_THROW(writeArchive(path("a.zip"), {{"x", std::vector<std::uint8_t>(100'000, 1)}}), OutputFailure);
    ::setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(read("a.zip"), "old");
    EXPECT_EQ(fileCount(), 2u);
}

} // namespace tarn::classlib::test
