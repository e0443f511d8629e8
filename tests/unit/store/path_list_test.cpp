#include "store/path_list.h"

#include "store/archive_store.h"
#include "store/directory_store.h"
#include "store/memory_store.h"
#include "store/null_store.h"
#include "unit/store/scratch_directory.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

using test::ScratchDirectory;

TEST(PathList, EachElementIsADirectoryOrAnArchive) {
    EXPECT_EQ(nullptr, parsePathList(std::nullopt));
    struct Row {
        const char* text;
        std::vector<const char*> paths;
    };
    for (const Row& row :
         {Row{"", {}}, Row{":::", {}}, Row{"a", {"a"}}, Row{":a::b/c:", {"a", "b/c"}}, Row{"a;b\\c", {"a;b\\c"}}}) {
        PathList list = parsePathList(row.text);
        ASSERT_EQ(row.paths.size(), list->size()) << row.text;
        for (std::size_t i = 0; i < list->size(); ++i) EXPECT_EQ(row.paths[i], (*list)[i]->path());
    }
    PathList list = parsePathList("x.zip:x.jar:x.ZIP:zip");
    EXPECT_TRUE(dynamic_cast<ArchiveStore*>((*list)[0].get()));
    EXPECT_TRUE(dynamic_cast<ArchiveStore*>((*list)[1].get()));
    EXPECT_TRUE(dynamic_cast<DirectoryStore*>((*list)[2].get()));
    EXPECT_TRUE(dynamic_cast<DirectoryStore*>((*list)[3].get()));
}

std::string tracedLines;

TEST(OutputStore, MakesTheDirectoriesOnTheWay) {
    ScratchDirectory directory;
    auto files = std::make_shared<DirectoryStore>(directory.path());
    auto memory = ByteArrayStore::root("out");
    struct Row {
        const char* name;
        const char* path;
    };
    for (const Row& row : {Row{"a/b/C", "/a/b/C.class"}, Row{"a/b/D", "/a/b/D.class"}, Row{"E", "/E.class"},
                           Row{"x//F", "/x/F.class"}, Row{"/G", "/G.class"}}) {
        StoreRef file = outputStore(files, row.name, ".class");
        ASSERT_TRUE(file) << row.name;
        EXPECT_EQ(directory.path() + row.path, file->path());
        file->write(Bytes{'x'});
        EXPECT_EQ("x", directory.get(row.path + 1));
        EXPECT_EQ(std::string("out") + row.path, outputStore(memory, row.name, ".class")->path());
    }
    EXPECT_EQ(NullStore::instance(), outputStore(NullStore::instance(), "a/b/C", ".class"));
}

} // namespace
} // namespace tarn
