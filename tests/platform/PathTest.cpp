#include "platform/Path.h"

#include <gtest/gtest.h>

namespace vireo {
namespace {

struct SplitRow {
    std::string_view path;
    PathParts parts;
};

TEST(SplitPath, AsTheWindowsSplitterDoes)
{
    const SplitRow rows[] = {
        {"", {"", "", "", ""}},
        {"C:\\a\\b.con", {"C:", "\\a\\", "b", ".con"}},
        {"C:b", {"C:", "", "b", ""}},
        {"C:", {"C:", "", "", ""}},
        {"\\\\server\\share\\f.tif", {"", "\\\\server\\share\\", "f", ".tif"}},
        {"/usr/lib/x.tar.gz", {"", "/usr/lib/", "x.tar", ".gz"}},
        {"a/b\\c", {"", "a/b\\", "c", ""}},
        {"dir.d/file", {"", "dir.d/", "file", ""}},
        {".hidden", {"", "", "", ".hidden"}},
        {"folder\\", {"", "folder\\", "", ""}},
        {"name.", {"", "", "name", "."}},
    };
    for (const SplitRow& row : rows) {
        const PathParts parts = SplitPath(row.path);
        EXPECT_EQ(parts.drive, row.parts.drive) << row.path;
        EXPECT_EQ(parts.folder, row.parts.folder) << row.path;
        EXPECT_EQ(parts.name, row.parts.name) << row.path;
        EXPECT_EQ(parts.extension, row.parts.extension) << row.path;
        EXPECT_EQ(parts.drive + parts.folder + parts.name + parts.extension, row.path);
    }
}

TEST(Path, Utf8ComesBack)
{
    const std::string name = "m\xC3\xA5ling \xCE\xB1 \xE6\xB8\xAC \xF0\x9F\x98\x80.con";
    EXPECT_EQ(Utf8FromPath(PathFromUtf8(name)), name);
    EXPECT_EQ(Utf8FromPath(PathFromUtf8("")), "");
    const std::string broken = Utf8FromPath(PathFromUtf8("a\xFF"));
#ifdef _WIN32
    EXPECT_EQ(broken, "a\xEF\xBF\xBD");
#else
    EXPECT_EQ(broken, "a\xFF");
#endif
}

struct FullRow {
    std::string_view path;
    bool isFull;
    std::string_view full;
};

TEST(Path, InFullFromItsRootOn)
{
    const FullRow rows[] = {
#ifdef _WIN32
        {R"(\\server\share\a\..\b.con)", true, R"(\\server\share\b.con)"},
        {R"(//server/share/b.con)", true, R"(\\server\share\b.con)"},
        {R"(\\?\UNC\server\share\b.con)", true, R"(\\?\UNC\server\share\b.con)"},
        {R"(C:\a\.\b.con)", true, R"(C:\a\b.con)"},
        {R"(\b.con)", false, {}},
        {R"(C:b.con)", false, {}},
#else
        {"/a/./../b.con", true, "/b.con"},
#endif
        {"b.con", false, {}},
    };
    for (const FullRow& row : rows) {
        const auto path = PathFromUtf8(row.path);
        EXPECT_EQ(IsFullPath(path), row.isFull) << row.path;
        EXPECT_TRUE(IsFullPath(FullPath(path))) << row.path;
        if (row.isFull) {
            EXPECT_EQ(Utf8FromPath(FullPath(path)), row.full);
        }
    }
}

} // namespace
} // namespace vireo
