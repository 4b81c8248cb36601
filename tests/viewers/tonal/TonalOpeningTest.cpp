#include "platform/Log.h"
#include "tests/FileSizeLimit.h"
#include "tests/TempFolder.h"
#include "tests/viewers/tonal/TonalFiles.h"
#include "viewers/tonal/TonalFileText.h"
#include "viewers/tonal/TonalOpening.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace vireo {
namespace {

class TonalOpeningTest : public testing::Test {
protected:
    TonalOpeningTest() { EXPECT_TRUE(log_Init("tonal", ".log", logs.Path())); }
    ~TonalOpeningTest() override { log_Close(); }

    TonalFileChange Open(const std::string& bytes)
    {
        file = folder.Write("old.con", bytes);
        opening = OpenTonalFile(file, data);
        return opening.change;
    }
    bool Says(const std::string& words) const
    {
        return opening.notice.find(words) != std::string::npos;
    }
    std::filesystem::path Copy() const { return folder.Path() / "old.con_Original"; }

    TempFolder logs;
    TempFolder folder;
    std::filesystem::path file;
    TonalResolutionData data;
    TonalOpening opening;
};

TEST_F(TonalOpeningTest, AFileWithoutTheFaultStaysAsItIs)
{
    EXPECT_EQ(Open(HandFile()), TonalFileChange::None);
    EXPECT_EQ(opening.result, TonalResult::Ok);
    EXPECT_EQ(opening.notice, "");
    EXPECT_EQ(TempFolder::Read(file), HandFile());
    EXPECT_FALSE(std::filesystem::exists(Copy()));
    EXPECT_EQ(Open("[Noise Test]\n"), TonalFileChange::None);
    EXPECT_EQ(opening.result, TonalResult::WrongKind);
    EXPECT_TRUE(std::filesystem::exists(file));
}

TEST_F(TonalOpeningTest, AFaultyFileIsRewrittenBesideItsOriginal)
{
    EXPECT_EQ(Open(SmallFaultyFile()), TonalFileChange::Rewritten);
    EXPECT_EQ(opening.notice,
        "The green channel of \"old.con\" had the known fault of version 1 and has been corrected "
        "in the file. As it was it is kept as \"old.con_Original\".");
    EXPECT_EQ(TempFolder::Read(Copy()), SmallFaultyFile());
    EXPECT_EQ(TempFolder::Read(file), FormatTonalText(data));
    EXPECT_EQ(data.m_patches[2].count, 100) << "corrected once, not twice";
    EXPECT_EQ(data.m_FileName, file);
    const std::string log = TempFolder::Read(logs.Path() / "tonal.log");
    EXPECT_NE(log.find(opening.notice), std::string::npos) << log;
    // The correction removed the condition, so the file is left alone from now on.
    const std::string corrected = TempFolder::Read(file);
    EXPECT_EQ(OpenTonalFile(file, data).change, TonalFileChange::None);
    EXPECT_EQ(TempFolder::Read(file), corrected);
}

TEST_F(TonalOpeningTest, WithoutACopyTheFileIsLeftAlone)
{
    std::filesystem::create_directory(Copy());
    EXPECT_EQ(Open(SmallFaultyFile()), TonalFileChange::NotRewritten);
    EXPECT_TRUE(Says("stays as it was: \"old.con_Original\" cannot be written (Is a folder)"));
    EXPECT_EQ(opening.result, TonalResult::Ok);
    EXPECT_TRUE(data.IsCorrected());
    EXPECT_EQ(data.m_patches[2].count, 100);
    EXPECT_EQ(TempFolder::Read(file), SmallFaultyFile());
}

TEST_F(TonalOpeningTest, ADefaultScannersFileDisappears)
{
    EXPECT_EQ(Open(TonalFileOf("ScannerName=\tDefault\n")), TonalFileChange::Deleted);
    EXPECT_EQ(opening.result, TonalResult::NoMeasurement);
    EXPECT_TRUE(Says("has been deleted"));
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_FALSE(data.IsLoaded());
    for (const char* const name : {"default", "Default+", "Default 1"})
        EXPECT_EQ(Open(TonalFileOf(std::string("ScannerName=") + name)), TonalFileChange::None)
            << name;
}

#ifndef _WIN32
TEST_F(TonalOpeningTest, OnAFullDiskTheOriginalSurvives)
{
    const std::string before = SmallFaultyFile();
    {
        const FileSizeLimit limit(before.size()); // Enough for the copy.
        EXPECT_EQ(Open(before), TonalFileChange::NotRewritten);
    }
    EXPECT_TRUE(Says("stays as it was: it cannot be written"));
    EXPECT_EQ(TempFolder::Read(file), before);
    EXPECT_EQ(TempFolder::Read(Copy()), before);
    {
        std::filesystem::remove(Copy());
        const FileSizeLimit limit(before.size() - 1);
        opening = OpenTonalFile(file, data);
    }
    EXPECT_EQ(opening.change, TonalFileChange::NotRewritten);
    EXPECT_EQ(TempFolder::Read(file), before);
    EXPECT_FALSE(std::filesystem::exists(Copy())) << "no half copy";
}

TEST_F(TonalOpeningTest, AFolderThatTakesNoFilesKeepsItsFiles)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "the administrator may write everywhere";
    Open(HandFile());
    const auto faulty = folder.Write("faulty.con", SmallFaultyFile());
    const auto empty = folder.Write("empty.con", TonalFileOf("ScannerName=Default\n"));
    ASSERT_EQ(chmod(folder.Path().c_str(), 0500), 0);
    EXPECT_EQ(OpenTonalFile(faulty, data).change, TonalFileChange::NotRewritten);
    EXPECT_TRUE(data.IsCorrected());
    EXPECT_EQ(OpenTonalFile(empty, data).change, TonalFileChange::NotDeleted);
    ASSERT_EQ(chmod(folder.Path().c_str(), 0700), 0);
    EXPECT_EQ(TempFolder::Read(faulty), SmallFaultyFile());
    EXPECT_TRUE(std::filesystem::exists(empty));
}
#endif

} // namespace
} // namespace vireo
