#include "tests/TempFolder.h"
#include "viewers/oscilloscope/OscilloscopeFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace vireo {
namespace {

struct EntryCase {
    const char* name;
    const char* file;
    const char* description; ///< Null where the file is none of the folder's.
};

class OscilloscopeEntryTest : public testing::TestWithParam<EntryCase> { };

TEST_P(OscilloscopeEntryTest, IsDescribedByItsName)
{
    const auto entry = OscilloscopeEntryFromPath(std::filesystem::path("run 7") / GetParam().file);
    ASSERT_EQ(entry.has_value(), GetParam().description != nullptr);
    if (entry) {
        EXPECT_EQ(entry->Description(), GetParam().description);
    }
}

INSTANTIATE_TEST_SUITE_P(All, OscilloscopeEntryTest,
    testing::Values(EntryCase{"Adjusted", "Oscil_Color_Adjusted_600.con", "600dpi Color Adjusted"},
        EntryCase{"UnadjustedGray", "Oscil_Gray_Unadjusted_1200.con", "1200dpi Gray Unadjusted"},
        EntryCase{"AnyCase", "OSCIL_GRAY_UNADJUST_400.CON", "400dpi Gray Unadjusted"},
        EntryCase{"NumberEndsAtALetter", "Oscil_300dpi.con", "300dpi Color Adjusted"},
        EntryCase{"NumberBehindTheLastUnderscoreOnly", "Oscil_600_gray.con", "0dpi Gray Adjusted"},
        EntryCase{"NothingBehindThePrefix", "Oscil_.con", "0dpi Color Adjusted"},
        EntryCase{"HugeNumber", "Oscil_99999999999.con", "2147483647dpi Color Adjusted"},
        EntryCase{"OtherStart", "MyOscil_600.con", nullptr},
        EntryCase{"NoUnderscore", "Oscil600.con", nullptr},
        EntryCase{"OtherExtension", "Oscil_600.con.bak", nullptr},
        EntryCase{"ShorterThanTheParts", "oscil_con", nullptr}),
    [](const auto& test) { return test.param.name; });

TEST(OscilloscopeFolderTest, ListsFilesInTheOrderOfTheirNamesAndNoFolders)
{
    const TempFolder folder;
    std::filesystem::create_directories(folder.Path() / "Oscil_Folder_100.con");
    for (const char* name : {"Oscil_c_300.con", "oscil_B_200.con", "Oscil_a_100.con", "Noise.con"})
        folder.Write(name, "x");

    std::string listed;
    for (const OscilloscopeFolderEntry& entry : ListOscilloscopeFolder(folder.Path()))
        listed += entry.path.filename().string() + ";";
    EXPECT_EQ(listed, "Oscil_a_100.con;oscil_B_200.con;Oscil_c_300.con;");
    EXPECT_TRUE(ListOscilloscopeFolder(folder.Path() / "none").empty());
}

} // namespace
} // namespace vireo
