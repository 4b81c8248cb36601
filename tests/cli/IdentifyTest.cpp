#include "tests/TempFolder.h"
#include "tests/cli/ProgramRun.h"
#include "tests/cli/ScanFile.h"

#include <QString>

#include <gtest/gtest.h>

#include <ostream>

namespace vireo {

namespace {

using Json = nlohmann::ordered_json;

/// 48 bytes of a file from before there was a text header.
std::string OldFile(char type, char lowMark = 0, char highMark = 0)
{
    constexpr std::size_t kTypeAt = 11;
    constexpr std::size_t kMarkAt = 20;
    std::string bytes(48, '\0');
    bytes[kTypeAt] = type;
    bytes[kMarkAt] = lowMark;
    bytes[kMarkAt + 1] = highMark;
    return bytes + "data";
}

struct IdentifyRow {
    const char* name;
    std::string bytes;
    std::string kind;
    std::vector<std::string> viewers;
    std::string container;
    Json dataOffset;
    std::string fileName = "file.con";

    friend void PrintTo(const IdentifyRow& row, std::ostream* out) { *out << row.name; }
};

class Identify : public testing::TestWithParam<IdentifyRow> { };

TEST_P(Identify, TellsKindViewerAndData)
{
    const IdentifyRow& row = GetParam();
    const TempFolder folder;
    const std::string file = Text(folder.Write(row.fileName, row.bytes));
    const ProgramRun run = RunCli({"identify", file});
    EXPECT_EQ(run.exitStatus, 0) << run.error;
    const auto objects = run.Objects();
    ASSERT_EQ(objects.size(), 1U);
    const Json expected{{"file", file}, {"kind", row.kind}, {"viewers", row.viewers},
        {"container", row.container}, {"data_offset", row.dataOffset}};
    EXPECT_EQ(objects[0].dump(), expected.dump());
    EXPECT_EQ(run.error, "");
}

INSTANTIATE_TEST_SUITE_P(Files, Identify,
    testing::Values(IdentifyRow{"oscilloscope", HeaderWith("[Oscilloscope]", "A=1\n"),
                        "oscilloscope", {"COscilloscope_Dialog"}, "text", 42},
        IdentifyRow{
            "MTF", HeaderWith("[MTF]", "A=1\n"), "mtf", {"COscilloscope_Dialog"}, "text", 33},
        IdentifyRow{"G3 light profile", HeaderWith("[G3 Light Profile]", ""), "light-profile",
            {"CView_LPF_Dialog"}, "text", 42},
        IdentifyRow{"stitch", HeaderWith("[Stitch Test]", ""), "stitch", {"CView_Stitch_Dialog"},
            "text", 37},
        IdentifyRow{
            "noise", HeaderWith("[Noise Test]", ""), "noise", {"CNoiseTest_SM_Dialog"}, "text", 36},
        IdentifyRow{"packed dump", HeaderWith("[Kitbag]", ""), "kitbag", {}, "text", 32},
        IdentifyRow{"packed dump before its member's tag",
            HeaderWith("[Kitbag]", "[Oscilloscope]\n"), "kitbag", {}, "text", 47},
        IdentifyRow{"offset that is a lie", "[MTF]\nDataPointer=1234567890\n", "mtf",
            {"COscilloscope_Dialog"}, "text", 1234567890},
        IdentifyRow{"centre CCD by its second name", HeaderWith("[Scan-Line Positioning]", ""),
            "adjust-center-ccd", {"CAdjustCenterCCD_Dialog"}, "text", 47},
        IdentifyRow{
            "old light profile", OldFile(16), "light-profile", {"CView_LPF_Dialog"}, "binary", 48},
        IdentifyRow{
            "old stitch picture", OldFile(18), "stitch", {"CView_Stitch_Dialog"}, "binary", 48},
        IdentifyRow{"old noise file, shown as a light profile", OldFile(19), "light-profile",
            {"CView_LPF_Dialog"}, "binary", 48},
        IdentifyRow{"old file by its mark 13900", OldFile(17, 'L', '6'), "light-profile",
            {"CView_LPF_Dialog"}, "binary", 48},
        IdentifyRow{"little-endian TIFF", std::string("II\x2a\0rest", 8), "tiff",
            {"CPictureView_Dialog"}, "tiff", nullptr},
        IdentifyRow{"TIFF by name", "nothing", "tiff", {"CPictureView_Dialog"}, "tiff", nullptr,
            "scan.TIF"},
        IdentifyRow{
            "byte orders mixed up", std::string("II\0\x2arest", 8), "unknown", {}, "binary", 48},
        IdentifyRow{"empty", "", "unknown", {}, "binary", 48},
        IdentifyRow{"tag behind the first 100 bytes", std::string(96, ' ') + "[MTF]", "unknown", {},
            "binary", 48}));

TEST(Header, ListsKeysAsInterpreted)
{
    const TempFolder folder;
    const std::string file = Text(folder.Write("a.con",
        HeaderWith("[Noise Test]",
            "ScannerName=\"A\" \\ B\nColorScanner=true\nIsSigned_32_Profile=true\n"
            "CenterLines=4 5\nMagnification=1 2 3\nCameraUsed=E\nColor=NONE\nWidth=12abc\n"
            "Corrected=T\nUnknownKey=7\nKvMT_ContScanUseDefaultDirectory=t\n")));
    const ProgramRun run = RunCli({"header", file});
    EXPECT_EQ(run.exitStatus, 0) << run.error;
    const auto objects = run.Objects();
    ASSERT_EQ(objects.size(), 1U);
    EXPECT_EQ(KeysOf(objects[0]), (std::vector<std::string>{"file", "kind", "keys"}));
    // Compared without regard to order.
    const nlohmann::json keys = objects[0]["keys"];
    const nlohmann::json expected{{"ScannerName", "\"A\" \\ B"}, {"ColorScanner", false},
        {"IsSigned_32_Profile", true}, {"CenterLines", {0, 0, 0}}, {"Magnification", {1, 2, 3}},
        {"CameraUsed", 0}, {"Color", 1}, {"Width", 12}, {"Corrected", true},
        {"KvMT_ContScanUseDefaultDirectory", true}};
    EXPECT_EQ(keys, expected);
}

TEST(Header, GivesEveryByteOfCodePage1252AsUtf8)
{
    constexpr char32_t kFrom80To9F[] = {0x20AC, 0x81, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020,
        0x2021, 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D, 0x017D, 0x8F, 0x90, 0x2018, 0x2019,
        0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,
        0x017E, 0x0178};
    std::string name;
    std::u32string expected;
    for (char32_t byte = 0x80; byte <= 0xFF; ++byte) {
        name += static_cast<char>(byte);
        expected += byte < 0xA0 ? kFrom80To9F[byte - 0x80] : byte;
    }
    const TempFolder folder;
    const ProgramRun run = RunCli(
        {"header", Text(folder.Write("a.con", HeaderWith("[MTF]", "ScannerName=" + name + '\n')))});
    const auto objects = run.Objects();
    ASSERT_EQ(objects.size(), 1U) << run.error;
    EXPECT_EQ(objects[0]["keys"]["ScannerName"].get<std::string>(),
        QString::fromStdU32String(expected).toStdString());
}

TEST(Header, OfFilesWithoutTextHeaderIsEmpty)
{
    const TempFolder folder;
    const ProgramRun run = RunCli({"header", Text(folder.Write("old.con", OldFile(16))),
        Text(folder.Write("a.tif", "Width=7"))});
    EXPECT_EQ(run.exitStatus, 0);
    for (const Json& object : run.Objects())
        EXPECT_EQ(object["keys"].dump(), "{}");
}

TEST(Header, OfAnOffsetBeyondTheFileFails)
{
    const TempFolder folder;
    const std::string file =
        Text(folder.Write("a.con", "[MTF]\nDataPointer=      5000\nWidth=1\n"));
    const std::string error = RefusalOf({"header", file});
    EXPECT_TRUE(error.starts_with("vireo-cli: " + file + ": ")) << error;
}

} // namespace

} // namespace vireo
