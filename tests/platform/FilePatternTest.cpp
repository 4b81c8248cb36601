#include "platform/FilePattern.h"
#include "platform/Path.h"
#include "tests/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace vireo {

namespace {

struct PatternRow {
    const char* name;
    const char* pattern;
    bool matches;

    friend void PrintTo(const PatternRow& row, std::ostream* out)
    {
        *out << row.name << " by " << row.pattern;
    }
};

class FilePattern : public testing::TestWithParam<PatternRow> { };

TEST_P(FilePattern, StandsForNames)
{
    EXPECT_EQ(MatchesPattern(GetParam().name, GetParam().pattern), GetParam().matches);
}

INSTANTIATE_TEST_SUITE_P(Names, FilePattern,
    testing::Values(PatternRow{"a.con", "*.con", true}, PatternRow{"A.CON", "*.con", true},
        PatternRow{"a.cone", "*.con", false}, PatternRow{".con", "*.con", true},
        PatternRow{"ab.con.con", "a*.con", true}, PatternRow{"b.con", "a*.con", false},
        PatternRow{"aXbXXbc", "a*b?c", false}, PatternRow{"aXbXXbYc", "a*b?c", true},
        PatternRow{"ab", "a?b", false},
        PatternRow{"a\xC3\xA9"
                   "b",
            "a?b", true},
        PatternRow{"a", "a**", true}, PatternRow{"", "?", false}, PatternRow{"", "*", true}));

TEST(FilePatterns, AreReplacedByTheFilesOfTheirFolder)
{
    const TempFolder folder;
    for (const char* const name : {"b.con", "a.con", "c.tif"})
        folder.Write(name, "x");
    std::filesystem::create_directory(folder.Path() / "folder.con");
    const std::string prefix = Utf8FromPath(folder.Path()) + "/";
    const std::vector<std::string> expected{
        "analyse", prefix + "a.con", prefix + "b.con", "--as=*", prefix + "*.none", "plain"};
    EXPECT_EQ(
        WithPatternsExpanded({"analyse", prefix + "*.con", "--as=*", prefix + "*.none", "plain"}),
        expected);
}

} // namespace

} // namespace vireo
