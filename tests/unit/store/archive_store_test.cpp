#include "store/archive_store.h"

#include "runtime/failure.h"
#include "store/file_date.h"
#include "unit/store/scratch_directory.h"
#include "unit/store/zip_writer.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

namespace tarn {
namespace {

using test::ScratchDirectory;
using test::ZipWriter;

std::string failureOf(auto action) {
    try {
        action();
    } catch (const IoFailure& failure) {
        return failure.what();
    }
    return "no failure";
}

std::string textOf(std::span<const std::uint8_t> bytes) {
    return {bytes.begin(), bytes.end()};
}

class ArchiveStoreTest : public testing::Test {
protected:
    std::shared_ptr<ArchiveStore> open(std::string_view contents) {
        return std::make_shared<ArchiveStore>(directory.put("lib.zip", contents));
    }

    ScratchDirectory directory;
};

const std::string LONG_TEXT = [] {
    std::string text;
    for (int i = 0; i < 300; ++i) text += "line " + std::to_string(i) + "\n";
    return text;
}();

std::string library() {
    return ZipWriter()
        .add({.name = "java/lang/String.class", .contents = LONG_TEXT, .deflated = true})
        .add({.name = "java/lang/Object.class", .contents = "object", .localExtra = "padding"})
        .add({.name = "java/langx", .contents = ""})
        .add({.name = "java\\util\\List.class", .contents = "list", .deflated = true, .centralExtra = "extra"})
        .add({.name = "java/lang/ref/", .contents = ""})
        .add({.name = "Top.class", .contents = "top"})
        .finish("a comment");
}

TEST_F(ArchiveStoreTest, FindsMembersInWhateverOrderTheyLie) {
    auto archive = open(library());
    struct Row {
        const char* name;
        const char* contents; ///< null for a directory
    };
    for (const Row& row : {Row{"java/lang/Object.class", "object"}, Row{"java/util/List.class", "list"},
                           Row{"Top.class", "top"}, Row{"java/langx", ""}, Row{"java", nullptr},
                           Row{"java/lang", nullptr}, Row{"java/util", nullptr}, Row{"java/lang/ref", nullptr}}) {
        StoreRef store = archive->lookup(row.name);
        ASSERT_TRUE(store) << row.name;
        EXPECT_EQ(row.contents == nullptr, store->isDirectory()) << row.name;
        if (row.contents != nullptr) {
            EXPECT_EQ(row.contents, textOf(store->read()));
        }
    }
    for (const char* name : {"java/Lang/Object.class", "java/lan", "java/lang/Object", "java/lang/Object.class/x", "",
                             "java\\lang\\Object.class", "zzz", "/java"})
        EXPECT_FALSE(archive->lookup(name)) << name;
}

TEST_F(ArchiveStoreTest, ListsTheFilesOfOneDirectory) {
    auto archive = open(library());
    using Names = std::vector<std::string>;
    EXPECT_EQ((Names{"Top.class"}), archive->list());
    EXPECT_EQ((Names{"langx"}), archive->lookup("java")->list());
    EXPECT_EQ((Names{"Object.class", "String.class"}), archive->lookup("java/lang")->list());
    EXPECT_EQ((Names{""}), archive->lookup("java/lang/ref")->list());
    EXPECT_EQ("not a directory", failureOf([&] { archive->lookup("Top.class")->list(); }));
}

TEST_F(ArchiveStoreTest, NamesItsMembersByThePathThroughIt) {
    auto archive = open(library());
    StoreRef lang = archive->lookup("java/lang");
    StoreRef object = lang->lookup("Object.class");
    EXPECT_EQ(directory / "lib.zip/java/lang/Object.class", object->path());
    EXPECT_EQ(object->path(), object->canonicalPath());
    EXPECT_EQ("Object.class", object->name());
    EXPECT_EQ(directory / "lib.zip", object->parent());
    EXPECT_TRUE(object->equals(*archive->lookup("java/lang/Object.class")));
    EXPECT_EQ(object->hashCode(), archive->lookup("java/lang/Object.class")->hashCode());
    EXPECT_FALSE(object->equals(*lang));
    EXPECT_EQ(archive, archive->file("."));
    EXPECT_EQ("lib.zip", archive->name());
    EXPECT_TRUE(archive->equals(ArchiveStore(archive->path())));
}

TEST_F(ArchiveStoreTest, RefusesAllWriting) {
    auto archive = open(library());
    StoreRef top = archive->lookup("Top.class");
    EXPECT_EQ("can't read directory", failureOf([&] { archive->read(); }));
    EXPECT_EQ("can't read directory", failureOf([&] { archive->readInto({}); }));
    EXPECT_EQ("can't write directory", failureOf([&] { archive->write({}); }));
    EXPECT_EQ("can't write zipped files", failureOf([&] { archive->create("x"); }));
    EXPECT_EQ("can't write zipped files", failureOf([&] { archive->makeDirectory("x"); }));
    EXPECT_EQ("can't write zipped file", failureOf([&] { top->write({}); }));
    EXPECT_EQ("can't write zipped file", failureOf([&] { top->create("x"); }));
    EXPECT_EQ("can't write zipped file", failureOf([&] { top->makeDirectory("x"); }));
}

TEST_F(ArchiveStoreTest, AMembersDateIsItsTimeStamp) {
    constexpr std::uint32_t NOON = (20u << 9 | 6 << 5 | 15) << 16 | 12 << 11;
    auto archive = open(ZipWriter()
                            .add({.name = "noon", .contents = "", .dosTime = NOON})
                            .add({.name = "never", .contents = "", .dosTime = 0})
                            .finish());
    EXPECT_EQ(dateOfDosTime(NOON), archive->lookup("noon")->date());
    EXPECT_EQ(NO_DATE, archive->lookup("never")->date());
}

TEST_F(ArchiveStoreTest, TellsWhyAMemberCannotBeRead) {
    auto archive =
        open(ZipWriter().add({.name = "secret", .contents = "x", .dosTime = 0x28210000, .flags = 1}).finish());
    StoreRef secret = archive->lookup("secret");
    ASSERT_TRUE(secret);
    EXPECT_NE(NO_DATE, secret->date());
    EXPECT_EQ("zip file is encrypted", failureOf([&] { secret->read(); }));
    archive->close();
    EXPECT_EQ("cannot open", failureOf([&] { secret->read(); }));
    EXPECT_FALSE(archive->isDirectory());
    EXPECT_EQ(std::nullopt, archive->list());
}

TEST_F(ArchiveStoreTest, TheEndRecordIsFoundBehindAnyComment) {
    ZipWriter writer;
    writer.add({.name = "A", .contents = "a"});
    std::string inner = writer.finish();
    // Sizes around the blocks of the search, the longest comment there is, and comments that hold an end record.
    std::vector<std::string> comments = {inner, inner + "tail", std::string("PK\5\6", 4)};
    for (std::size_t size : {0, 1, 979, 980, 981, 1001, 1002, 1003, 1023, 1024, 1025, 2005, 65535})
        comments.emplace_back(size, 'c');
    for (const std::string& comment : comments) {
        auto archive = open(writer.finish(comment));
        ASSERT_TRUE(archive->isOpen()) << comment.size();
        EXPECT_TRUE(archive->lookup("A")) << comment.size();
    }
}

TEST_F(ArchiveStoreTest, WhatIsNoZipIsAnEmptyPlace) {
    for (const std::string& contents :
         {std::string(), std::string("PK"), std::string(21, 'x'), std::string(22, '\0'), std::string(200000, 'P')}) {
        auto archive = open(contents);
        EXPECT_FALSE(archive->isDirectory());
        EXPECT_FALSE(archive->lookup("A.class"));
        EXPECT_EQ(std::nullopt, archive->list());
    }
    EXPECT_FALSE(ArchiveStore(directory / "none.zip").isOpen());
    EXPECT_FALSE(ArchiveStore(directory.path()).isOpen());
    EXPECT_FALSE(ArchiveStore("/dev/zero").isOpen());
}

/// An archive in a file without a place on disk, which is written thousands of times in no time.
class PassingArchive {
public:
    PassingArchive() : file_(::memfd_create("archive", 0)) {}
    ~PassingArchive() { ::close(file_); }

    ArchiveStore& open(std::string_view contents) {
        EXPECT_EQ(0, ::ftruncate(file_, 0));
        EXPECT_EQ(static_cast<ssize_t>(contents.size()), ::pwrite(file_, contents.data(), contents.size(), 0));
        archive_ = std::make_shared<ArchiveStore>("/proc/self/fd/" + std::to_string(file_));
        return *archive_;
    }

private:
    int file_;
    std::shared_ptr<ArchiveStore> archive_;
};

/// Uses all of an archive; whatever lies in it, the outcome is contents or an IoFailure, and never a length out of
/// proportion.
void walk(ArchiveStore& archive, std::size_t fileSize) {
    for (int i = 0; i < archive.memberCount(); ++i) {
        std::string name(archive.member(i).name);
        EXPECT_TRUE(archive.lookup(name));
        archive.lookup(name)->date();
        Bytes buffer(10);
        try {
            EXPECT_LE(archive.readMemberInto(i, buffer), fileSize * 1032);
            EXPECT_LE(archive.readMember(i).size(), fileSize * 1032);
        } catch (const IoFailure&) {
        }
    }
    archive.list();
}

TEST_F(ArchiveStoreTest, HostileCutsAreNoHazard) {
    std::string whole = library();
    PassingArchive archive;
    ASSERT_TRUE(archive.open(whole).isOpen());
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_FALSE(archive.open(whole.substr(0, length)).isOpen()) << length;
        walk(archive.open(whole.substr(length)), whole.size() - length);
    }
}

TEST_F(ArchiveStoreTest, HostileBytesAreNoHazard) {
    std::string whole = library();
    PassingArchive archive;
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (int change : {0xFF, 0x80, 0x01}) {
            std::string garbled = whole;
            garbled[at] = static_cast<char>(garbled[at] ^ change);
            walk(archive.open(garbled), whole.size());
        }
    }
}

TEST_F(ArchiveStoreTest, HostileEndRecordsMakeAnArchiveAMissingOne) {
    std::string whole = ZipWriter().add({.name = "A", .contents = "a"}).add({.name = "B", .contents = "b"}).finish();
    struct Row {
        const char* what;
        std::size_t offset; ///< in the end record
        std::string bytes;
        bool isOpen;
    };
    for (const Row& row : {Row{"other disk", 4, std::string("\7\0\7\0", 4), true},
                           Row{"fewer members than there are", 10, std::string("\1\0", 2), true},
                           Row{"more members than there are", 10, std::string("\3\0", 2), false},
                           Row{"numbers of 64 bits elsewhere", 10, std::string(10, '\377'), false},
                           Row{"directory too small", 12, std::string("\60\0\0\0", 4), false},
                           Row{"directory too large", 12, std::string("\377\377\377\377", 4), false},
                           Row{"directory behind the end", 16, std::string("\377\377\377\377", 4), false},
                           Row{"directory elsewhere", 16, std::string("\1\0\0\0", 4), false}}) {
        std::string garbled = whole;
        garbled.replace(garbled.rfind("PK\5\6") + row.offset, row.bytes.size(), row.bytes);
        EXPECT_EQ(row.isOpen, open(garbled)->isOpen()) << row.what;
    }
}

TEST_F(ArchiveStoreTest, HostileNamesLeadNowhereElse) {
    ZipWriter writer;
    for (const char* name : {"../up", "/root", "a//b", "", "twice", "twice"})
        writer.add({.name = name, .contents = "x"});
    std::string whole = writer.finish();
    std::size_t entry = whole.rfind("PK\1\2");
    whole.replace(entry + 42, 4, 4, '\0'); // the data of the last is that of the first
    auto archive = open(whole);
    for (const char* name : {"../up", "/root", "a//b", "", "twice"})
        EXPECT_EQ("x", textOf(archive->lookup(name)->read())) << name;
    for (const char* name : {"up", "root", "a/b", "a/../up"}) EXPECT_FALSE(archive->lookup(name)) << name;
    EXPECT_EQ((std::vector<std::string>{"", "twice", "twice"}), archive->list());
}

TEST_F(ArchiveStoreTest, HostileSizesAskForNoMemory) {
    std::string noise;
    for (std::uint32_t i = 1; noise.size() < 100'000; i = i * 1664525 + 1013904223) noise += static_cast<char>(i >> 24);
    std::string whole = ZipWriter().add({.name = "A", .contents = noise, .deflated = true}).finish();
    constexpr std::size_t SIZE = 24;
    auto claim = [&](std::string_view size) { return whole.replace(whole.rfind("PK\1\2") + SIZE, 4, size); };
    EXPECT_EQ(64u << 20, open(claim({"\0\0\0\4", 4}))->readMemberInto(0, {}));
    EXPECT_EQ("zip file is corrupted", failureOf([&] { open(claim({"\1\0\0\4", 4}))->readMemberInto(0, {}); }));
}

TEST_F(ArchiveStoreTest, CorruptedDataIsToldFromLackOfData) {
    std::string whole = ZipWriter().add({.name = "A", .contents = LONG_TEXT, .deflated = true}).finish();
    struct Row {
        const char* what;
        std::size_t fromDirectory; ///< offset in the central directory's only entry
        std::string bytes;
    };
    std::size_t entry = whole.rfind("PK\1\2");
    for (const Row& row : {Row{"compressed size too small", 20, std::string("\10\0\0\0", 4)},
                           Row{"compressed size too large", 20, std::string("\0\0\0\377", 4)},
                           Row{"size too small", 24, std::string("\10\0\0\0", 4)},
                           Row{"size too large", 24, std::string("\377\377\377\377", 4)},
                           Row{"offset beyond the end", 42, std::string("\0\0\0\177", 4)},
                           Row{"offset of something else", 42, std::string("\1\0\0\0", 4)}}) {
        std::string garbled = whole;
        garbled.replace(entry + row.fromDirectory, row.bytes.size(), row.bytes);
        StoreRef member = open(garbled)->lookup("A");
        ASSERT_TRUE(member) << row.what;
        EXPECT_EQ("zip file is corrupted", failureOf([&] { member->read(); })) << row.what;
    }
}

} // namespace
} // namespace tarn
