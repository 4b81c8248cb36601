#include "VersionRecord.h"
#include "platform/KnownFolders.h"
#include "platform/Message.h"
#include "platform/ProgramInfo.h"
#include "platform/SharedLibrary.h"
#include "tests/TempFolder.h"

namespace vireo {
namespace {

struct PathRow {
    int language;
    int codePage;
    std::string_view path;
};

TEST(ProgramInfo, QueryPaths)
{
    const PathRow rows[] = {
        {1033, 1200, "\\StringFileInfo\\040904B0\\FileVersion"},
        {1033, 1252, "\\StringFileInfo\\040904E4\\FileVersion"},
        {0, 1200, "\\StringFileInfo\\000004B0\\FileVersion"},
        {0, 1252, "\\StringFileInfo\\000004E4\\FileVersion"},
        {1031, 1200, ""},
        {1033, 65001, ""},
    };
    for (const PathRow& row : rows)
        EXPECT_EQ(VersionQueryPath(row.language, row.codePage, "FileVersion"), row.path);
}

TEST(ProgramInfo, AFileWithoutARecord)
{
    const TempFolder folder;
    ProgramInfo info;
    info.companyName = "before";
    EXPECT_FALSE(ReadProgramInfo(folder.Write("plain.exe", "MZ"), 1033, 1200, info));
    EXPECT_EQ(info.companyName, "");
    EXPECT_FALSE(ReadProgramInfo(folder.Path() / "missing.exe", 1033, 1200, info));
}

#ifndef _WIN32
// On Windows the record belongs to the viewer's executable, and this one has none.
TEST(ProgramInfo, OwnRecord)
{
    const ProgramInfo info = OwnProgramInfo();
    EXPECT_EQ(info.productName, "Vireo 6");
    EXPECT_EQ(info.companyName, "The Vireo developers");
    EXPECT_EQ(info.fileVersion, VIREO_FILE_VERSION);
    EXPECT_TRUE(info.fileVersion.starts_with(info.productVersion + "."));
    EXPECT_EQ(info.specialBuild, "");
    // The signature of the fixed block, least significant byte first.
    const std::array<std::uint8_t, 4> signature = {0xBD, 0x04, 0xEF, 0xFE};
    EXPECT_TRUE(std::equal(signature.begin(), signature.end(), info.fixedFileInfo.begin()));
    // The major version stands in the upper half of the fifth word.
    EXPECT_EQ(std::to_string(info.fixedFileInfo[10]), info.fileVersion.substr(0, 1));
}

TEST(ProgramInfo, ALanguageThatTheRecordLacks)
{
    ProgramInfo info;
    EXPECT_TRUE(ReadProgramInfo(ProgramPath(), kLanguageNeutral, kCodePageUnicode, info));
    EXPECT_EQ(info.fileVersion, "");
    EXPECT_EQ(info.fixedFileInfo[0], 0xBD);
}
#else
TEST(ProgramInfo, RecordOfASystemLibrary)
{
    ProgramInfo info;
    ASSERT_TRUE(ReadProgramInfo("C:\\windows\\system32\\kernel32.dll", 1033, 1200, info));
    EXPECT_EQ(info.fixedFileInfo[0], 0xBD);
    EXPECT_FALSE(info.companyName.empty());
    EXPECT_FALSE(info.fileVersion.empty());
}
#endif

TEST(SharedLibrary, NothingIsTakenFromTheSystemsSearchPath)
{
    SharedLibrary library;
    for (const char* const name : {"", "ErrorOut.DLL", "kernel32.dll", "libm.so.6"}) {
        EXPECT_FALSE(library.Load(name)) << name;
        EXPECT_FALSE(library.IsLoaded());
        EXPECT_EQ(library.Symbol("ReturnErrorInstance"), nullptr);
    }
    const TempFolder folder;
    EXPECT_FALSE(library.Load(folder.Write("broken.dll", "not a library")));
}

#ifdef _WIN32
TEST(SharedLibrary, LoadsFromAnAbsolutePath)
{
    SharedLibrary first;
    ASSERT_TRUE(first.Load("C:\\windows\\system32\\version.dll"));
    SharedLibrary second(std::move(first));
    EXPECT_FALSE(first.IsLoaded());
    EXPECT_NE(second.Symbol("VerQueryValueA"), nullptr);
    EXPECT_EQ(second.Symbol("NoSuchName"), nullptr);
}
#endif

TEST(Message, TheRecorderKeepsMessagesWhileItLives)
{
    MessageRecorder outer;
    {
        MessageRecorder inner;
        ShowMessage("Load Accel Failed");
        ShowMessage("text", "caption", MessageIcon::Stop);
        ASSERT_EQ(inner.Messages().size(), 2U);
        EXPECT_EQ(inner.Messages()[0].caption, "");
        EXPECT_EQ(inner.Messages()[0].icon, MessageIcon::Exclamation);
        EXPECT_EQ(inner.Messages()[1].text, "text");
        EXPECT_EQ(inner.Messages()[1].icon, MessageIcon::Stop);
    }
    EXPECT_TRUE(outer.Messages().empty());
    ShowMessage("to the outer one");
    EXPECT_EQ(outer.Messages().size(), 1U);
}

TEST(Message, WithoutASinkItGoesToStandardError)
{
    testing::internal::CaptureStderr();
    ShowMessage("caf\xE9", "Error");
    EXPECT_EQ(testing::internal::GetCapturedStderr().substr(0, 12), "Error: caf\xC3\xA9");
}

} // namespace
} // namespace vireo
