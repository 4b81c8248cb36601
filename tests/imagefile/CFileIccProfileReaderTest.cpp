#include "imagefile/CFileIccProfileReader.h"
#include "platform/KnownFolders.h"
#include "tests/TempFolder.h"

#include <gtest/gtest.h>

#include <array>

namespace vireo {
namespace {

TEST(CFileIccProfileReader, ReadsInPiecesAndKnowsTheSizeBefore)
{
    const TempFolder folder;
    CFileIccProfileReader reader(folder.Write("a.icc", "0123456789"));
    EXPECT_EQ(reader.GetProfileSize(), 10U);
    for (int time = 0; time < 2; ++time) {
        EXPECT_FALSE(reader.OpenProfile());
        std::array<std::uint8_t, 7> piece;
        EXPECT_EQ(reader.ReadProfile(piece), 7U);
        EXPECT_EQ(reader.ReadProfile(piece), 3U);
        EXPECT_EQ(piece[2], '9');
        EXPECT_EQ(reader.ReadProfile(piece), 0U);
        EXPECT_EQ(reader.CloseProfile(), 0);
    }
    CFileIccProfileReader missing(folder.Path() / "none.icc");
    EXPECT_TRUE(missing.OpenProfile());
    EXPECT_EQ(missing.GetProfileSize(), 0U);
}

TEST(CFileIccProfileReader, FullPathsAreTakenAsTheyAre)
{
    for (const char* const name :
        {"D:\\profiles\\x.icc", "\\\\server\\share\\x.icc", "\\x.icc", "C:x.icc", "/x.icc"})
        EXPECT_EQ(CFileIccProfileReader(name).FileName(), std::filesystem::path(name));
}

TEST(CFileIccProfileReader, OtherNamesAreLookedUpInTheColourFolders)
{
    const auto folders = ColourProfileFolders();
    ASSERT_FALSE(folders.empty());
    constexpr const char* kName = "No Such Color Space Profile.icm";
    EXPECT_EQ(CFileIccProfileReader(kName).FileName(), folders.front() / kName);
}

#ifndef _WIN32
TEST(CFileIccProfileReader, TheFirstFolderThatHasItWins)
{
    const TempFolder folder;
    const auto profiles = folder.Path() / "color" / "icc";
    std::filesystem::create_directories(profiles);
    folder.Write("color/icc/vireo test.icm", "profile");
    const char* const before = std::getenv("XDG_DATA_DIRS");
    const std::string saved = before ? before : "";
    setenv("XDG_DATA_DIRS", ("/nowhere:" + folder.Path().string()).c_str(), 1);
    CFileIccProfileReader reader("vireo test.icm");
    if (before)
        setenv("XDG_DATA_DIRS", saved.c_str(), 1);
    else
        unsetenv("XDG_DATA_DIRS");
    EXPECT_EQ(reader.FileName(), profiles / "vireo test.icm");
    EXPECT_EQ(reader.GetProfileSize(), 7U);
}
#endif

} // namespace
} // namespace vireo
