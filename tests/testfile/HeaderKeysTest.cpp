#include "testfile/HeaderKeys.h"

#include <gtest/gtest.h>

namespace vireo {

namespace {

std::vector<HeaderKey> KeysOf(std::string_view text)
{
    TestFileHeader header;
    header.SetText(text);
    return ListHeaderKeys(header);
}

HeaderKeyValue Text(const char* text)
{
    return std::string(text);
}

struct KeyRow {
    const char* line;
    const char* name;
    HeaderKeyValue value;
};

const KeyRow kRows[] = {
    {"ScannerName=Heron 36", "ScannerName", Text("Heron 36")},
    {"Scanner ID=H-1", "Scanner ID", Text("H-1")},
    {"Firmware Revision=3", "Firmware Revision", 3},
    {"FirmwareBuild=4", "FirmwareBuild", 4},
    {"Generation=5", "Generation", 5},
    {"ScannerFamily=6", "ScannerFamily", 6},
    {"Resolution=600", "Resolution", 600},
    {"ColorScanner=TRUE", "ColorScanner", true},
    {"Corrected=true", "Corrected", false},
    {"IsSigned_32_Profile=maybe", "IsSigned_32_Profile", false},
    {"ScannerWidth(1/1200)=43200", "ScannerWidth(1/1200)", 43200},
    {"CenterLines=1 2", "CenterLines", std::array<int, 3>{}},
    {"Magnification=1 2 3", "Magnification", std::array<int, 3>{1, 2, 3}},
    {"CameraCount=8", "CameraCount", 8},
    {"CameraAPix=10", "CameraAPix", 10},
    {"CameraHPix=17", "CameraHPix", 17},
    {"CameraUsed=All", "CameraUsed", 255},
    {"SelectedCamera=2", "SelectedCamera", 2},
    {"Color=Red:Green:Blue", "Color", 254},
    {"Height=1", "Height", 1},
    {"Length=2", "Length", 2},
    {"Width=3", "Width", 3},
    {"Date=today", "Date", Text("today")},
    {"Time=", "Time", Text("")},
    {"NoiseLimit=9", "NoiseLimit", 9},
    {"ProgramName=K", "ProgramName", Text("K")},
    {"ProgramVersion=1.2", "ProgramVersion", Text("1.2")},
    {"ProgramBuild=7", "ProgramBuild", Text("7")},
    {"Kestrel6 Revision=UNKNOWN", "Kestrel6 Revision", Text("UNKNOWN")},
    {"Kestrel6 Build=11", "Kestrel6 Build", Text("11")},
    {"KvMT_ContScanUseDefaultDirectory=t", "KvMT_ContScanUseDefaultDirectory", true},
};

TEST(HeaderKeys, EachKeyIsListedAloneWithItsValue)
{
    for (const KeyRow& row : kRows) {
        const std::vector<HeaderKey> keys = KeysOf(row.line);
        ASSERT_EQ(keys.size(), 1U) << row.line;
        EXPECT_EQ(keys[0].name, row.name);
        EXPECT_EQ(keys[0].value, row.value) << row.line;
    }
}

TEST(HeaderKeys, OrderDoesNotFollowTheFile)
{
    std::string forwards;
    std::string backwards;
    for (const KeyRow& row : kRows) {
        forwards += std::string(row.line) + "\n";
        backwards = std::string(row.line) + "\r\n" + backwards;
    }
    const std::vector<HeaderKey> keys = KeysOf(forwards);
    const std::vector<HeaderKey> reversed = KeysOf(backwards);
    ASSERT_EQ(keys.size(), std::size(kRows));
    ASSERT_EQ(reversed.size(), keys.size());
    for (std::size_t i = 0; i < keys.size(); ++i) {
        EXPECT_EQ(keys[i].name, kRows[i].name);
        EXPECT_EQ(reversed[i].name, keys[i].name);
        EXPECT_EQ(reversed[i].value, keys[i].value);
    }
}

TEST(HeaderKeys, ScannerNameCountsAsPresentWithoutEquals)
{
    const std::vector<HeaderKey> keys = KeysOf("[MTF]\nScannerName:Heron\n");
    ASSERT_EQ(keys.size(), 1U);
    EXPECT_EQ(keys[0].value, Text("Heron"));
    EXPECT_TRUE(KeysOf("").empty());
}

} // namespace

} // namespace vireo
