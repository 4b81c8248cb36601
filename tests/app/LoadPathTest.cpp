#include "app/LoadPath.h"
#include "platform/Path.h"
#include "tests/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

using namespace vireo;

TEST(LoadPathTest, AnExistingNameIsTakenAsItStands)
{
    const TempFolder folder;
    const auto file = folder.Write("two  blanks.con", "x");
    EXPECT_EQ(LoadPath(Utf8FromPath(file)), file);
}

TEST(LoadPathTest, TheBlankOfAClosingQuoteIsDropped)
{
    const TempFolder folder;
    const auto file = folder.Write("run.con", "x");
    // Windows itself finds the file under the name with the blank.
    std::error_code error;
    EXPECT_TRUE(std::filesystem::equivalent(LoadPath(Utf8FromPath(file) + " "), file, error));
}

TEST(LoadPathTest, BackslashesSeparateFoldersOnEverySystem)
{
    const TempFolder folder;
    const auto file = folder.Write("run.con", "x");
    std::string name = Utf8FromPath(file);
    std::ranges::replace(name, '/', '\\');
    std::error_code error;
    EXPECT_TRUE(std::filesystem::equivalent(LoadPath(name), file, error));
}

TEST(LoadPathTest, ANameThatLeadsNowhereComesBackWithoutTrailingBlanks)
{
    EXPECT_EQ(LoadPath("Q:\\no\\such.con  "), PathFromUtf8("Q:\\no\\such.con"));
    EXPECT_EQ(LoadPath("   "), std::filesystem::path());
    EXPECT_EQ(LoadPath(""), std::filesystem::path());
}
