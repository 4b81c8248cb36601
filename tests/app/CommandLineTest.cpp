#include "app/CommandLine.h"

#include <gtest/gtest.h>

namespace vireo {

namespace {

struct CutRow {
    const char* what;
    std::string line;
    std::string name; ///< As cut out.
    std::string kept; ///< As the main dialog keeps it.
};

const CutRow kCuts[] = {
    {"bare drive path", R"(C:\a\b.con)", R"(C:\a\b.con)", R"(C:\a\b.con)"},
    {"bare drive path with blanks", R"(C:\a b\c d.con)", R"(C:\a b\c d.con)", R"(C:\a b\c d.con)"},
    {"quoted drive path", R"("C:\a b\c.con")", R"("C:\a b\c.con")", R"(C:\a b\c.con)"},
    {"quoted network path", R"("\\server\share\f.con")", R"(\\server\share\f.con )",
        R"(\\server\share\f.con )"},
    {"bare network path", R"(\\server\share\f.con)", R"(\\server\share\f.con)",
        R"(\\server\share\f.con)"},
    {"program and file", R"("C:\v.exe" "D:\r.con")", R"("C:\v.exe" "D:\r.con")",
        R"(C:\v.exe D:\r.con)"},
    {"switch and file", R"(/so D:\r.con)", R"(D:\r.con)", R"(D:\r.con)"},
    {"switch and quoted file", R"(/so "D:\r.con")", R"(D:\r.con )", R"(D:\r.con )"},
    {"relative name", "b.con", "b.con", "b.con"},
    {"quoted relative name", R"("b c.con")", " b c.con ", " b c.con "},
    {"colon first", ":x", ":x", ":x"},
    {"one character", "x", "x", "x"},
    {"one quote", "\"", " ", " "},
    {"empty", "", "", ""},
    {"as much as the scratch buffer holds", std::string(300, 'a'), std::string(259, 'a'),
        std::string(256, 'a')},
    {"a drive path is not cut", "C:" + std::string(300, 'a'), "C:" + std::string(300, 'a'),
        "C:" + std::string(254, 'a')},
};

TEST(CommandLine, CutsTheFileName)
{
    for (const CutRow& row : kCuts) {
        EXPECT_EQ(CutFileName(row.line), row.name) << row.what;
        EXPECT_EQ(CopyFileToLoad(row.name), row.kept) << row.what;
    }
}

TEST(CommandLine, AnExistingPathIsTakenAsItIs)
{
    const auto exists = [](std::string_view path) { return path == "/data/a:b c.con"; };
    EXPECT_EQ(FileToLoad("/data/a:b c.con", exists), "/data/a:b c.con");
    EXPECT_EQ(FileToLoad("\"/data/a:b c.con\"", exists), "/data/a:b c.con");
    EXPECT_EQ(FileToLoad("/data/x:b c.con", exists), "x:b c.con") << "missing: the drive rules";
    EXPECT_EQ(FileToLoad("", [](std::string_view) { return true; }), "");
}

TEST(CommandLine, ArgumentsAreJoinedAsTyped)
{
    EXPECT_EQ(RawCommandLine({}), "");
    EXPECT_EQ(RawCommandLine({"my file.con"}), "my file.con");
    EXPECT_EQ(RawCommandLine({"C:\\my", "file.con"}), "C:\\my file.con");
}

TEST(CommandLine, TheMainDialogExamines256Characters)
{
    EXPECT_EQ(CopyFileToLoad(std::string(255, 'a') + "bc"), std::string(255, 'a') + "b");
    EXPECT_EQ(CopyFileToLoad("\"" + std::string(255, 'a') + "b\""), std::string(255, 'a'))
        << "the quote that is dropped has been examined too";
    EXPECT_EQ(CopyFileToLoad(std::string_view("ab\0cd", 5)), "ab");
    EXPECT_FALSE(IsTooLongToLoad("\"" + std::string(255, 'a') + "\""));
    EXPECT_TRUE(IsTooLongToLoad("\"" + std::string(255, 'a') + "b\""));
}

} // namespace

} // namespace vireo
