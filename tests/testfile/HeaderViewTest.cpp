#include "testfile/HeaderKeys.h"
#include "testfile/HeaderMeanings.h"
#include "testfile/HeaderView.h"
#include "tests/TempFolder.h"

#include <gtest/gtest.h>

namespace vireo {
namespace {

std::vector<std::string> Meanings(const std::string& text)
{
    TestFileHeader header;
    header.SetText(text);
    std::vector<std::string> meanings;
    for (const HeaderRow& row : ListHeaderRows(header))
        meanings.push_back(row.meaning);
    return meanings;
}

TEST(HeaderRows, ExplainValuesWithTheirUnits)
{
    const struct {
        const char* line;
        const char* meaning;
    } cases[] = {
        {"ScannerWidth(1/1200)=43200", "Scan width: 36.00 in, 914.4 mm"},
        {"CameraUsed=All", "Taken by all cameras"},
        {"CameraUsed=E", "Taken by camera A"}, // As the tools have always read it.
        {"SelectedCamera=2", "Selected: camera C"},
        {"SelectedCamera=-1", "Selected: camera number -1"},
        {"CameraHPix=12", "Pixels of camera H"},
        {"Color=Red:Green:Blue", "Color of the data: red, green and blue"},
        {"Color=NONE", "Color of the data: green"},
        {"Color=9", "Color of the data: number 9"},
        {"IsSigned_32_Profile=true", "Samples are signed 32-bit numbers"},
        {"Corrected=true", "Light and dark are not corrected"}, // Only a capital T is true.
        {"NoiseLimit=5", "Limit of the noise test in percent"},
        {"[MTF]", "Section"},
        {"Unknown=1", ""},
        {"no key", ""},
    };
    for (const auto& row : cases)
        EXPECT_EQ(Meanings(row.line), std::vector<std::string>{row.meaning}) << row.line;
}

TEST(HeaderRows, EveryCommonKeyHasAMeaning)
{
    TestFileHeader header;
    std::string text;
    for (const char* const key :
        {"ScannerName", "Scanner ID", "Firmware Revision", "FirmwareBuild", "Generation",
            "ScannerFamily", "Resolution", "ColorScanner", "Corrected", "IsSigned_32_Profile",
            "ScannerWidth(1/1200)", "CenterLines", "Magnification", "CameraCount", "CameraAPix",
            "CameraHPix", "CameraUsed", "SelectedCamera", "Color", "Height", "Length", "Width",
            "Date", "Time", "NoiseLimit", "ProgramName", "ProgramVersion", "ProgramBuild",
            "Kestrel6 Revision", "Kestrel6 Build", "KvMT_ContScanUseDefaultDirectory"})
        text += std::string(key) + "=1\n";
    header.SetText(text);
    for (const HeaderKey& key : ListHeaderKeys(header))
        EXPECT_FALSE(MeaningOf(key).empty()) << key.name;
}

TEST(HeaderRows, KeepTheOrderAndTheirNumberBounded)
{
    EXPECT_EQ(Meanings("b=1\r\n\r\na=2").size(), 2U);
    std::string text;
    for (std::size_t i = 0; i < 2 * kMostHeaderRows; ++i)
        text += "=\n";
    EXPECT_EQ(Meanings(text).size(), kMostHeaderRows);
}

TEST(HeaderViewTest, ShowsTheHeaderOrSaysWhyNot)
{
    const TempFolder folder;
    const struct {
        std::string bytes;
        const char* text;
        const char* refusal;
    } cases[] = {
        {"[Stitch Test]\nDataPointer=        41\nx=1\n\xFF\xFF",
            "[Stitch Test]\nDataPointer=        41\nx=1\n", ""},
        {"[StarTest]\nVersion=2\nBEGIN_DATA\n1 2 3", "[StarTest]\nVersion=2\n", ""},
        {"[Tonal Resolution]\na=b\n", "[Tonal Resolution]\na=b\n", ""},
        {std::string(60, '\1'), "", "Old Con-file.\nNo Header Information available"},
        {"", "", "Old Con-file.\nNo Header Information available"},
        {std::string(99, ' ') + "[MTF]", "", "Old Con-file.\nNo Header Information available"},
        {"[MTF]\nno offset", "", "The header has no data offset"},
        {"[MTF]\nDataPointer=   1048577\n" + std::string(1 << 20, 'x'), "", "Memory low"},
    };
    for (const auto& row : cases) {
        const HeaderView view = ReadHeaderView(folder.Write("file.con", row.bytes));
        EXPECT_EQ(view.text, row.text);
        EXPECT_EQ(view.refusal, row.refusal);
        EXPECT_EQ(view.rows.empty(), view.text.empty());
    }
    EXPECT_EQ(ReadHeaderView(folder.Path() / "none").refusal, "No such file");
}

} // namespace
} // namespace vireo
