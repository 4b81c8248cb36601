#include "app/RecentFiles.h"
#include "platform/AtomicFile.h"
#include "platform/Path.h"
#include "tests/TempFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace vireo;

namespace {
/// A file that need not exist, as an absolute path on this system.
std::filesystem::path Absolute(const std::string& name)
{
    return std::filesystem::temp_directory_path() / "vireo-recent" / name;
}

std::vector<std::string> Names(const RecentFiles& recent)
{
    std::vector<std::string> names;
    for (const auto& file : recent.Files())
        names.push_back(Utf8FromPath(file.filename()));
    return names;
}

using Strings = std::vector<std::string>;
} // namespace

TEST(RecentFilesTest, NewestComesFirstAndOnlyOnce)
{
    const TempFolder folder;
    RecentFiles recent(folder.Path() / "state" / "recent.txt");
    for (const char* name : {"a.con", "b.con", "c.con", "a.con"})
        ASSERT_EQ(recent.Add(Absolute(name)), FileStatus::Ok);
    EXPECT_EQ(Names(recent), (Strings{"a.con", "c.con", "b.con"}));

    RecentFiles later(folder.Path() / "state" / "recent.txt");
    ASSERT_EQ(later.Load(), FileStatus::Ok);
    EXPECT_EQ(later.Files(), recent.Files());
}

#ifdef _WIN32
TEST(RecentFilesTest, AFileOnAShareStaysThere)
{
    const TempFolder folder;
    RecentFiles recent(folder.Path() / "recent.txt");
    ASSERT_EQ(recent.Add(LR"(\\server\share\a.con)"), FileStatus::Ok);
    ASSERT_EQ(recent.Load(), FileStatus::Ok);
    ASSERT_EQ(recent.Files().size(), 1U);
    EXPECT_EQ(Utf8FromPath(recent.Files().front()), R"(\\server\share\a.con)");
}
#endif

TEST(RecentFilesTest, KeepsTen)
{
    const TempFolder folder;
    RecentFiles recent(folder.Path() / "recent.txt");
    for (int i = 0; i < 12; ++i)
        ASSERT_EQ(recent.Add(Absolute(std::to_string(i))), FileStatus::Ok);
    EXPECT_EQ(Names(recent), (Strings{"11", "10", "9", "8", "7", "6", "5", "4", "3", "2"}));
}

TEST(RecentFilesTest, TwoProgramsAddToOneList)
{
    const TempFolder folder;
    RecentFiles one(folder.Path() / "recent.txt");
    RecentFiles other(folder.Path() / "recent.txt");
    ASSERT_EQ(one.Add(Absolute("one")), FileStatus::Ok);
    ASSERT_EQ(other.Add(Absolute("other")), FileStatus::Ok);
    ASSERT_EQ(one.Add(Absolute("third")), FileStatus::Ok);
    EXPECT_EQ(Names(one), (Strings{"third", "other", "one"}));
}

TEST(RecentFilesTest, RelativePathsAreMadeAbsolute)
{
    RecentFiles recent{{}};
    ASSERT_EQ(recent.Add(std::filesystem::path("x") / ".." / "run.con"), FileStatus::Ok);
    ASSERT_EQ(recent.Files().size(), 1U);
    EXPECT_EQ(recent.Files().front(), std::filesystem::current_path() / "run.con");
}

TEST(RecentFilesTest, RemovedFilesStayAway)
{
    const TempFolder folder;
    RecentFiles recent(folder.Path() / "recent.txt");
    ASSERT_EQ(recent.Add(Absolute("a")), FileStatus::Ok);
    ASSERT_EQ(recent.Add(Absolute("b")), FileStatus::Ok);
    ASSERT_EQ(recent.Remove(Absolute("a")), FileStatus::Ok);
    RecentFiles later(folder.Path() / "recent.txt");
    ASSERT_EQ(later.Load(), FileStatus::Ok);
    EXPECT_EQ(Names(later), Strings{"b"});
}

TEST(RecentFilesTest, ADamagedListIsReadAsFarAsItMakesSense)
{
    const TempFolder folder;
    std::string text = "relative.con\n\n" + Utf8FromPath(Absolute("a.con")) + "\r\n"
        + Utf8FromPath(Absolute("a.con")) + "\n\x01\xFF\n";
    for (int i = 0; i < 30; ++i)
        text += Utf8FromPath(Absolute("n" + std::to_string(i))) + "\n";
    const auto file = folder.Write("recent.txt", text.substr(0, text.size() - 1));
    RecentFiles recent(file);
    ASSERT_EQ(recent.Load(), FileStatus::Ok);
    ASSERT_EQ(recent.Files().size(), RecentFiles::kMaxFiles);
    EXPECT_EQ(recent.Files()[0], Absolute("a.con"));
    EXPECT_EQ(recent.Files()[1], Absolute("n0"));
}

TEST(RecentFilesTest, AFolderInPlaceOfTheListIsAnErrorAndNoMore)
{
    const TempFolder folder;
    RecentFiles recent(folder.Path());
    EXPECT_NE(recent.Load(), FileStatus::Ok);
    EXPECT_NE(recent.Add(Absolute("a")), FileStatus::Ok);
    EXPECT_EQ(Names(recent), Strings{"a"});
}
