#include "platform/Path.h"
#include "platform/WorkPaths.h"
#include "tests/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

namespace vireo {
namespace {

struct UseCase {
    const char* name;
    const char* text;
    bool use;
    const char* path;
    const char* chassis;
};

TEST(FixedPathSettings, AreReadAsTheTestProgramWritesThem)
{
    const UseCase rows[] = {
        {"nothing", "", false, "c:\\temp\\", "CHxxxxxx"},
        {"ON", "Use Fixed Path=ON\nFixed Path=D:\\R\\\nLast Chassis No=CH1\n", true, "D:\\R\\",
            "CH1"},
        {"on, CRLF, no last line end",
            "Use Fixed Path=on\r\nFixed Path=D:\\R\r\nLast Chassis No=CH2", true, "D:\\R\\", "CH2"},
        {"TRUE", "Use Fixed Path=TRUE\n", true, "c:\\temp\\", "CHxxxxxx"},
        {"yes means no", "Use Fixed Path=yes\n", false, "c:\\temp\\", "CHxxxxxx"},
        {"OFF", "Use Fixed Path=OFF\n", false, "c:\\temp\\", "CHxxxxxx"},
        {"the use line is not the path line", "Use Fixed Path=ON\n", true, "c:\\temp\\",
            "CHxxxxxx"},
        {"other order", "Last Chassis No=C\tH3\nFixed Path=E:\\\nUse Fixed Path=true", true, "E:\\",
            "CH3"},
        {"an empty path stays empty", "Fixed Path=\n", false, "", "CHxxxxxx"},
        {"a key without its value at the end", "Use Fixed Path=", false, "c:\\temp\\", "CHxxxxxx"},
    };
    for (const UseCase& row : rows) {
        const FixedPathSettings settings = ParseFixedPathSettings(row.text, 0);
        EXPECT_EQ(settings.useFixedPath, row.use) << row.name;
        EXPECT_EQ(settings.fixedPath, row.path) << row.name;
        EXPECT_EQ(settings.lastChassisNo, row.chassis) << row.name;
    }
}

TEST(FixedPathSettings, GiveEachGenerationItsFolder)
{
    const std::string text = "Use Fixed Path=ON\nFixed Path=D:\\General\nFixed Path 3Gen=\n"
                             "Fixed Path 6Gen=D:\\Six\nFixed Path 20Gen=D:\\Twenty\\\n";
    const std::pair<int, const char*> rows[] = {{0, "D:\\General\\"}, {1, ""}, {2, ""},
        {3, "D:\\General\\"}, {5, "D:\\General\\"}, {6, "D:\\Six\\"}, {20, "D:\\Twenty\\"},
        {21, ""}, {89, ""}, {90, "D:\\General\\"}, {-1, "D:\\General\\"}};
    for (const auto& [generation, path] : rows)
        EXPECT_EQ(ParseFixedPathSettings(text, generation).fixedPath, path) << generation;
}

TEST(FixedPathSettings, HoldHostileTexts)
{
    const std::string longPath(5000, 'x');
    EXPECT_EQ(ParseFixedPathSettings("Fixed Path=" + longPath, 6).fixedPath.size(), 260U);
    std::string text =
        "Use Fixed Path=ON\nFixed Path=D:\\R\nFixed Path 7Gen=E:\\\nLast Chassis No=1";
    for (std::size_t length = 0; length <= text.size(); ++length)
        ParseFixedPathSettings(std::string_view(text).substr(0, length), 7);
    text.insert(9, 1, '\0');
    EXPECT_FALSE(ParseFixedPathSettings(text, 7).useFixedPath);
}

class WorkPathsTest : public testing::Test {
protected:
    WorkPathsTest()
    {
        folders.program = folder.Path() / "program";
        folders.tests = {folder.Path() / "c", folder.Path() / "d"};
        for (const char* name : {"program", "c", "d"})
            std::filesystem::create_directory(folder.Path() / name);
    }

    TempFolder folder;
    SettingsFolders folders;
};

TEST_F(WorkPathsTest, TheFirstFolderThatHasTheFileWins)
{
    EXPECT_FALSE(LocateSettingsFile(folders, "Fct_Tst6.ini"));
    folder.Write("d/Fct_Tst6.ini", "d");
    EXPECT_EQ(LocateSettingsFile(folders, "Fct_Tst6.ini"), folders.tests[1]);
    folder.Write("c/Fct_Tst6.ini", "c");
    EXPECT_EQ(LocateSettingsFile(folders, "Fct_Tst6.ini"), folders.tests[0]);
    folder.Write("program/Fct_Tst6.ini", "p");
    EXPECT_EQ(LocateSettingsFile(folders, "Fct_Tst6.ini"), folders.program);
    std::filesystem::create_directory(folders.program / "Kestr6.ini");
    EXPECT_FALSE(LocateSettingsFile(folders, "Kestr6.ini")) << "a folder of that name";
}

TEST_F(WorkPathsTest, TheWorkPathIsTakenAsItStands)
{
    EXPECT_EQ(ReadWorkPath(folders), "");
    folder.Write("program/Kestrel6_Path.txt", " D:\\Work \r\n");
    EXPECT_EQ(ReadWorkPath(folders), " D:\\Work \r\n");
}

TEST_F(WorkPathsTest, TheWorkPathIsRecordedBesideTheFixedPath)
{
    const auto dumps = folder.Path()
        / PathFromUtf8("Gr\xC3\xB6\xC3\x9F"
                       "e");
    RecordWorkPath(folders, dumps);
    EXPECT_EQ(LocateSettingsFile(folders, "Kestrel6_Path.txt"), std::nullopt)
        << "without a settings file there is no place for it";
    folder.Write("program/Kestrel6_FixPath.txt", "");
    RecordWorkPath(folders, dumps / "sub" / "..");
    EXPECT_EQ(FolderFromText(ReadWorkPath(folders)), dumps / "") << ReadWorkPath(folders);
    EXPECT_EQ(ReadWorkPath(folders).find('\xC3'), std::string::npos) << "in code page 1252";

    const std::string before = ReadWorkPath(folders);
    RecordWorkPath(folders, folder.Path() / "\xD0\x96");
    EXPECT_EQ(ReadWorkPath(folders), before) << "a letter outside the code page";
    RecordWorkPath(folders, folder.Path() / std::string(260, 'x'));
    EXPECT_EQ(ReadWorkPath(folders), before) << "longer than the test program reads";
}

TEST_F(WorkPathsTest, ATestStationHasItsFileBesideTheProgram)
{
    folder.Write("c/Fct_Tst6.ini", "");
    EXPECT_FALSE(IsTestStation(folders));
    folder.Write("program/Fct_Tst6.ini", "");
    EXPECT_TRUE(IsTestStation(folders));
    EXPECT_FALSE(IsTestStation({{}, folders.tests}));
}

TEST_F(WorkPathsTest, ReadingRewritesTheFileInTwentyOneLines)
{
    const auto file = folder.Write(
        "c/Kestrel6_FixPath.txt", "junk\r\nFixed Path 6Gen=D:\\Six\r\nUse Fixed Path=true\r\n");
    EXPECT_EQ(LoadFixedPathSettings(folders, 6).fixedPath, "D:\\Six\\");
    const std::string written = TempFolder::Read(file);
    EXPECT_EQ(std::count(written.begin(), written.end(), '\n'), 21);
    EXPECT_TRUE(written.starts_with("Use Fixed Path=ON\nFixed Path=c:\\temp\\\n"
                                    "Fixed Path 3Gen=c:\\temp\\\n"));
    EXPECT_NE(written.find("\nFixed Path 6Gen=D:\\Six\\\nFixed Path 7Gen="), std::string::npos);
    EXPECT_TRUE(written.ends_with("Fixed Path 20Gen=c:\\temp\\\nLast Chassis No=CHxxxxxx\n"));
    // What was written reads back as itself.
    EXPECT_EQ(LoadFixedPathSettings(folders, 6).fixedPath, "D:\\Six\\");
    EXPECT_EQ(TempFolder::Read(file), written);
}

TEST_F(WorkPathsTest, OtherGenerationsLeaveTheFileAlone)
{
    const auto file = folder.Write("c/Kestrel6_FixPath.txt", "Fixed Path=D:\\R");
    for (const int generation : {0, 90, -3})
        EXPECT_EQ(LoadFixedPathSettings(folders, generation).fixedPath, "D:\\R\\");
    EXPECT_EQ(TempFolder::Read(file), "Fixed Path=D:\\R");
    std::filesystem::remove(file);
    EXPECT_EQ(LoadFixedPathSettings(folders, 6).fixedPath, "c:\\temp\\");
    EXPECT_FALSE(std::filesystem::exists(file)) << "nothing found, nothing written";
}

TEST_F(WorkPathsTest, AFileDialogBeginsInTheBestFolderThatExists)
{
    const auto kept = folder.Path() / "settings" / "Vireo.ini";
    const DialogPlace place{"F24", "StarTest"};
    const auto begin = [&] { return FolderForDialog(folders, kept, place); };
    const auto make = [&](const char* name) {
        std::filesystem::create_directories(folder.Path() / name);
        return folder.Path() / name;
    };
    EXPECT_EQ(begin(), "");

    const auto work = make("work");
    folder.Write("program/Kestrel6_Path.txt", work.string() + "\r\n");
    EXPECT_EQ(begin(), work) << "a line end behind the work path does no harm";
    const auto own = make("work/StarTest");
    EXPECT_EQ(begin(), own);

    const auto fixed = make("fixed");
    const auto settings = "Fixed Path=" + fixed.string() + "\n";
    folder.Write("d/Kestrel6_FixPath.txt", "Use Fixed Path=OFF\n" + settings);
    EXPECT_EQ(begin(), own) << "a fixed path that is not used";
    const auto file = folder.Write("d/Kestrel6_FixPath.txt", "Use Fixed Path=ON\n" + settings);
    EXPECT_EQ(begin().lexically_normal(), (fixed / "").lexically_normal());
    EXPECT_EQ(TempFolder::Read(file), "Use Fixed Path=ON\n" + settings) << "only read";

    const auto chosen = make("chosen \xC3\xA4");
    KeepFolderOfDialog(kept, place, chosen / "a.con");
    KeepFolderOfDialog(kept, {}, own / "a.con");
    EXPECT_EQ(begin(), chosen);
    EXPECT_EQ(FolderForDialog(folders, kept, {"F20", "Tonal Resolution"}).lexically_normal(),
        (fixed / "").lexically_normal())
        << "another test's key";
    std::filesystem::remove(chosen);
    EXPECT_EQ(begin().lexically_normal(), (fixed / "").lexically_normal());
}

} // namespace
} // namespace vireo
