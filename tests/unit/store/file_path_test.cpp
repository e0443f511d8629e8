#include "store/file_path.h"

#include <climits>
#include <gtest/gtest.h>

namespace tarn {
namespace {

TEST(FilePath, CanonicalPathsNameOnePlaceOneWay) {
    struct Row {
        const char* path;
        const char* canonical;
    };
    for (const Row& row :
         {Row{"/", "/"}, Row{"//", "/"}, Row{"/a", "/a"}, Row{"/a/", "/a"}, Row{"///a//b", "/a/b"},
          Row{"/a/./b/.", "/a/b"}, Row{"/a/../b", "/b"}, Row{"/a/b/..", "/a"}, Row{"/a/..", "/"}, Row{"/../../a", "/a"},
          Row{"/a/.../b", "/a/.../b"}, Row{"/a/..b", "/a/..b"}, Row{"/A/b", "/A/b"}, Row{"/a\\..\\b", "/a\\..\\b"},
          Row{"/nowhere/at/all/../x", "/nowhere/at/x"}})
        EXPECT_EQ(row.canonical, canonicalPath(row.path)) << row.path;
}

TEST(FilePath, APathBeyondThePlatformsLimitIsNone) {
    EXPECT_TRUE(canonicalPath("/" + std::string(PATH_MAX - 2, 'x')));
    EXPECT_FALSE(canonicalPath("/" + std::string(PATH_MAX - 1, 'x')));
    std::string winding;
    while (winding.size() < PATH_MAX) winding += "/a/..";
    EXPECT_EQ("/x", canonicalPath(winding + "/x"));
}

TEST(FilePath, NormalPathsHaveSingleSeparators) {
    struct Row {
        const char* path;
        const char* normal;
    };
    for (const Row& row : {Row{"", ""}, Row{"/", "/"}, Row{"///", "/"}, Row{"a//b/", "a/b"}, Row{"//a", "/a"},
                           Row{"./", "."}, Row{"a/./b", "a/./b"}})
        EXPECT_EQ(row.normal, normalPath(row.path)) << row.path;
}

} // namespace
} // namespace tarn
