#include "tests/TempFolder.h"
#include "viewers/oscilloscope/OscilloscopeData.h"

#include <gtest/gtest.h>

#include <numeric>
#include <string>

namespace vireo {
namespace {

/// A file with a header of these lines, the data offset put in by hand, and a data block.
std::string FileOf(const std::string& tag, const std::string& lines, const std::string& data)
{
    const std::size_t headerLength = tag.size() + 1 + 12 + 10 + 1 + lines.size();
    std::string offset = std::to_string(headerLength);
    offset.insert(0, 10 - offset.size(), ' ');
    return tag + "\nDataPointer=" + offset + "\n" + lines + data;
}

const std::string kCompleteLines = "ScannerName=Heron 36\nScanner ID=H-0042\n"
                                   "Firmware Revision=3\nScannerFamily=6\nColorScanner=TRUE\n"
                                   "Corrected=TRUE\nScannerWidth(1/1200)=50880\n"
                                   "CenterLines=10 20 30\nMagnification=100 200 300\n"
                                   "CameraCount=2\nCameraAPix=3\nCameraBPix=2\n"
                                   "CameraUsed=All\nDate=1.3.2026\nTime=13:05\n";

/// Interleaved lines of 5 pixels: red counts up from 0, green is twice red, blue 255 less red.
std::string Triplets(int pixels)
{
    std::string data;
    for (int i = 0; i < pixels; ++i) {
        data += static_cast<char>(i);
        data += static_cast<char>(2 * i);
        data += static_cast<char>(255 - i);
    }
    return data;
}

class OscilloscopeDataTest : public testing::Test {
protected:
    OscilloscopeResult Read(const std::string& bytes)
    {
        return data.Read(folder.Write("file.con", bytes));
    }
    OscilloscopeResult ReadColour(const std::string& extraLines, const std::string& block)
    {
        return Read(FileOf(
            "[Oscilloscope]", kCompleteLines + "Color=Red:Green:Blue\n" + extraLines, block));
    }

    TempFolder folder;
    OscilloscopeData data;
};

TEST_F(OscilloscopeDataTest, ReadsEveryHeaderValue)
{
    ASSERT_EQ(ReadColour("", Triplets(5)), OscilloscopeResult::Ok);
    EXPECT_TRUE(data.MissingItems().empty());
    EXPECT_TRUE(data.m_bColorScanner);
    EXPECT_TRUE(data.m_bCorrected);
    EXPECT_EQ(data.m_iColor, 254);
    EXPECT_EQ(data.m_iCameraUsed, 255);
    EXPECT_EQ(data.m_iCameraCount, 2);
    EXPECT_DOUBLE_EQ(data.m_dScannerWidthFactor, 10.0);
    EXPECT_EQ(data.m_iShownColor, 2);
    EXPECT_EQ(data.m_iPlaneCount, 2);
    EXPECT_EQ(data.m_Date + " " + data.m_Time, "1.3.2026 13:05");
    EXPECT_EQ(data.m_ScannerName, "Heron 36");
    EXPECT_EQ(data.m_ScannerID, "H-0042");
    EXPECT_EQ(data.m_iScannerFamily, 6);
    EXPECT_EQ(data.m_iGeneration, 4); // no key: a colour scanner that is not of generation 5
    EXPECT_EQ(data.m_iFirmwareRevision, 3);
    EXPECT_EQ(data.m_iCameraPixels, (std::array<int, 8>{3, 2}));
    EXPECT_EQ(data.m_iMagnification, (std::array<int, 3>{100, 200, 300}));
    EXPECT_EQ(data.m_iCenterLines, (std::array<int, 3>{10, 20, 30}));
}

TEST_F(OscilloscopeDataTest, ReportsMissingItemsInOrder)
{
    ASSERT_EQ(Read(FileOf("[Oscilloscope]", "CameraCount=6\nCenterLines=1 2\n", "abcdef")),
        OscilloscopeResult::Ok);
    const std::vector<std::string> expected = {"Is Color or B/W Scanner", "Color", "Camera Used",
        "Is Corrected/Uncorrected", "Date", "Time", "Scanner Name", "Get Camera A Pix",
        "Get Camera B Pix", "Get Camera C Pix", "Get Camera D Pix", "Magnification",
        "Center Lines"};
    EXPECT_EQ(data.MissingItems(), expected);
    EXPECT_DOUBLE_EQ(data.m_dScannerWidthFactor, 8.5);
    EXPECT_EQ(data.m_iScannerFamily, 5);
    EXPECT_EQ(data.m_iGeneration, 0);
    EXPECT_EQ(data.LineCount(), 1);
    EXPECT_EQ(data.PixelsOfLine(0), 6); // without cameras the line is the whole plane
}

struct GenerationCase {
    const char* name;
    const char* lines;
    int generation;
};

class OscilloscopeGeneration : public testing::TestWithParam<GenerationCase> { };

TEST_P(OscilloscopeGeneration, IsReadOrGuessed)
{
    const TempFolder folder;
    OscilloscopeData data;
    ASSERT_EQ(data.Read(folder.Write("g.con", FileOf("[MTF]", GetParam().lines, ""))),
        OscilloscopeResult::Ok);
    EXPECT_EQ(data.m_iGeneration, GetParam().generation) << GetParam().name;
}

INSTANTIATE_TEST_SUITE_P(Keys, OscilloscopeGeneration,
    testing::Values(GenerationCase{"key wins", "Generation=9\nScannerWidth(1/1200)=60000\n", 9},
        GenerationCase{"wide model", "ScannerWidth(1/1200)=60000\nColorScanner=TRUE\n", 5},
        GenerationCase{"narrow model", "ScannerWidth(1/1200)=48000\n", 5},
        GenerationCase{"colour", "ScannerWidth(1/1200)=43248\nColorScanner=TRUE\n", 4},
        GenerationCase{"gray", "ScannerWidth(1/1200)=43248\nColorScanner=true\n", 0}));

TEST_F(OscilloscopeDataTest, SplitsTheTripletsOfTheLineAskedFor)
{
    // 14 pixels: two lines of five, the four left over belong to no line.
    ASSERT_EQ(ReadColour("", Triplets(14)), OscilloscopeResult::Ok);
    EXPECT_EQ(data.PlaneLength(), 14);
    EXPECT_EQ(data.LineWidth(), 5);
    EXPECT_EQ(data.LineCount(), 2);
    ProfileLine line;
    ASSERT_TRUE(data.ReadLine(1, line));
    EXPECT_EQ(line.Of(Plane::Red).samples, (std::vector<std::uint8_t>{5, 6, 7, 8, 9}));
    EXPECT_EQ(line.Of(Plane::Green).samples, (std::vector<std::uint8_t>{10, 12, 14, 16, 18}));
    EXPECT_EQ(line.Of(Plane::Blue).samples, (std::vector<std::uint8_t>{250, 249, 248, 247, 246}));
    EXPECT_EQ(data.PixelsOfLine(2), 0);
    EXPECT_EQ(data.PixelsOfLine(-1), 0);
}

TEST_F(OscilloscopeDataTest, KeepsAGrayLineInGreen)
{
    ASSERT_EQ(Read(FileOf("[Oscilloscope]", kCompleteLines + "Color=Gray\n", "\x10\x20\x30\x40")),
        OscilloscopeResult::Ok);
    EXPECT_EQ(data.m_iShownColor, 4);
    EXPECT_EQ(data.m_iPlaneCount, 1);
    ProfileLine line;
    ASSERT_TRUE(data.ReadLine(0, line));
    EXPECT_EQ(line.Of(Plane::Green).samples, (std::vector<std::uint8_t>{0x10, 0x20, 0x30, 0x40}));
    EXPECT_TRUE(line.Of(Plane::Red).samples.empty());
    // Cameras of 3 and 2 pixels over 4 pixels of data: the second has one.
    const auto statistics = data.ComputeStatistics(0);
    ASSERT_TRUE(statistics[1]);
    EXPECT_FALSE(statistics[0]);
    ASSERT_EQ(statistics[1]->cameras.size(), 2U);
    EXPECT_DOUBLE_EQ(statistics[1]->cameras[0].statistics.mean, 32.0);
    EXPECT_EQ(statistics[1]->cameras[1].statistics.min, 0x40);
    EXPECT_DOUBLE_EQ(statistics[1]->line.mean, 40.0);
}

TEST_F(OscilloscopeDataTest, TakesStatisticsOverManyPieces)
{
    // A line longer than two pieces whose mean is known: 0 to 250 again and again.
    const int cameraPixels = 251 * 500;
    std::string block;
    for (int i = 0; i < 2 * cameraPixels; ++i)
        block += static_cast<char>(i % 251);
    const std::string count = std::to_string(cameraPixels);
    ASSERT_EQ(Read(FileOf("[Oscilloscope]",
                  "Color=Gray\nCameraCount=2\nCameraAPix=" + count + "\nCameraBPix=" + count + "\n",
                  block)),
        OscilloscopeResult::Ok);
    const auto statistics = data.ComputeStatistics(0);
    ASSERT_TRUE(statistics[1]);
    EXPECT_EQ(statistics[1]->line.min, 0);
    EXPECT_EQ(statistics[1]->line.max, 250);
    EXPECT_DOUBLE_EQ(statistics[1]->line.mean, 125.0);
    for (const auto& camera : statistics[1]->cameras)
        EXPECT_DOUBLE_EQ(camera.statistics.mean, 125.0);
}

/// An MTF block with planes of `length`: triplets, five planes of their number, values and tables.
std::string MtfBlock(int length, int cameras, bool colour)
{
    std::string block =
        colour ? Triplets(length) : std::string(static_cast<std::size_t>(length), 'g');
    for (char plane = 1; plane <= 5; ++plane)
        block.append(static_cast<std::size_t>(length), plane);
    block += std::string("\x01\0\0\0\xff\xff\xff\xff\0\x02\0\0", 12);
    for (int i = 0; i < cameras - 1; ++i)
        block += std::string("\x07\0\0\0\0\0\0\x01", 8);
    for (int i = 0; i < cameras - 1; ++i)
        block += static_cast<char>(i);
    return block;
}

TEST_F(OscilloscopeDataTest, SolvesTheLineLengthOfAnMtfFile)
{
    struct Row {
        const char* name;
        bool colour;
        int cameras;
    };
    for (const Row& row : {Row{"colour, four cameras", true, 4}, Row{"gray, four", false, 4},
             Row{"colour, fifth camera present", true, 8}}) {
        const std::string lines =
            std::string(row.colour ? "Color=Red:Green:Blue\n" : "Color=Gray\n")
            + "CameraCount=1\nCameraAPix=40\n" + (row.cameras == 8 ? "CameraEPix=60\n" : "");
        ASSERT_EQ(Read(FileOf("[MTF]", lines, MtfBlock(100, row.cameras, row.colour))),
            OscilloscopeResult::Ok);
        EXPECT_EQ(data.PlaneLength(), 100) << row.name;
        EXPECT_EQ(data.LineCount(), 1) << row.name;
        EXPECT_EQ(data.m_iPlaneCount, 2) << row.name;
        const auto extra = data.ReadMtfExtra();
        ASSERT_TRUE(extra) << row.name;
        EXPECT_EQ(extra->planes[4], std::vector<std::uint8_t>(100, 5)) << row.name;
        EXPECT_EQ(extra->values, (std::array<std::int32_t, 3>{1, -1, 512})) << row.name;
        EXPECT_EQ(extra->table,
            std::vector<std::int64_t>(
                static_cast<std::size_t>(row.cameras - 1), (std::int64_t{1} << 56) + 7))
            << row.name;
        EXPECT_EQ(extra->flags.back(), row.cameras - 2) << row.name;
    }
}

TEST_F(OscilloscopeDataTest, TakesTheLineWidthWhereTheMtfBlockHasNoWholeSolution)
{
    ASSERT_EQ(Read(FileOf("[MTF]", "Color=Gray\nCameraCount=1\nCameraAPix=40\n",
                  MtfBlock(100, 4, false) + "x")),
        OscilloscopeResult::Ok);
    EXPECT_EQ(data.PlaneLength(), 40);
}

TEST_F(OscilloscopeDataTest, TellsTheKindByTheFirstBytesUnlessItIsForced)
{
    // A tag in a value far behind is no tag; 64 bytes are then two lines and not an MTF block.
    const std::string lines = "Color=Gray\nCameraCount=1\nCameraAPix=32\n"
        + std::string("ProgramName=") + std::string(100, 'x') + "[MTF]\n";
    const auto file =
        folder.Write("tags.con", FileOf("[Oscilloscope]", lines, std::string(64, 'g')));
    ASSERT_EQ(data.Read(file), OscilloscopeResult::Ok);
    EXPECT_FALSE(data.IsMtf());
    EXPECT_EQ(data.LineCount(), 2);
    ASSERT_EQ(data.Read(file, OscilloscopeKind::Mtf), OscilloscopeResult::Ok);
    EXPECT_TRUE(data.IsMtf());
    EXPECT_EQ(data.LineCount(), 1);
    const auto other =
        folder.Write("other.con", FileOf("[Noise Test]", lines, std::string(64, 'g')));
    ASSERT_EQ(data.Read(other, OscilloscopeKind::Oscilloscope), OscilloscopeResult::Ok);
    EXPECT_EQ(data.LineCount(), 2);
}

struct RefusalCase {
    const char* name;
    std::string bytes;
    OscilloscopeResult result;
};

TEST_F(OscilloscopeDataTest, TellsWhatItCannotShow)
{
    const RefusalCase rows[] = {
        {"empty file", "", OscilloscopeResult::WrongKind},
        {"another kind", "[Stitch Test]\nDataPointer=        50\n", OscilloscopeResult::WrongKind},
        {"noise test", "[Noise Test]\n", OscilloscopeResult::IsNoiseTest},
        {"light profile", "[Light Profile]", OscilloscopeResult::IsLightProfile},
        {"its third generation", "[G3 Light Profile]", OscilloscopeResult::IsLightProfile},
        {"packed dump first", "[Kitbag]\n[Oscilloscope]", OscilloscopeResult::IsKitbag},
        {"no data offset", "[Oscilloscope]\n", OscilloscopeResult::BadHeader},
        {"offset beyond the file", "[Oscilloscope]\nDataPointer=2000000000\n",
            OscilloscopeResult::BadHeader},
        {"negative offset", "[Oscilloscope]\nDataPointer=       -50\n",
            OscilloscopeResult::BadHeader},
    };
    for (const RefusalCase& row : rows) {
        const OscilloscopeResult result = Read(row.bytes);
        EXPECT_EQ(static_cast<int>(result), static_cast<int>(row.result)) << row.name;
        EXPECT_FALSE(data.DescribeFailure(result).empty()) << row.name;
    }
    EXPECT_EQ(data.Read(folder.Path() / "missing.con"), OscilloscopeResult::CantOpen);
    EXPECT_EQ(data.Read(folder.Path()), OscilloscopeResult::CantOpen);
}

TEST_F(OscilloscopeDataTest, ShowsWhatEveryTruncationLeaves)
{
    const std::string whole = FileOf("[MTF]",
        "Color=Red:Green:Blue\nCameraCount=4\nCameraAPix=30\nCameraBPix=-5\nCameraCPix=2000000000\n"
        "CameraDPix=2000000000\nCameraHPix=7\n",
        MtfBlock(40, 4, true));
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        if (Read(whole.substr(0, length)) != OscilloscopeResult::Ok)
            continue;
        EXPECT_LE(data.PixelsOfLine(0), data.DataLength() / (data.IsInterleaved() ? 3 : 1));
        ProfileLine line;
        EXPECT_TRUE(data.ReadLine(0, line));
        EXPECT_EQ(line.Length(), data.PixelsOfLine(0));
        const auto statistics = data.ComputeStatistics(0);
        EXPECT_EQ(statistics[1].has_value(), data.PixelsOfLine(0) > 0);
    }
}

} // namespace
} // namespace vireo
