#include "tests/TempFolder.h"
#include "tests/viewers/noise/NoiseFiles.h"
#include "viewers/noise/NoiseData.h"

#include <gtest/gtest.h>

namespace vireo {
namespace {

class NoiseDataTest : public testing::Test {
protected:
    NoiseResult Read(const std::string& bytes) { return data.Read(folder.Write("n.con", bytes)); }

    int AverageOf(ShownColour colour) const
    {
        const NoisePlane* plane = data.PlaneOf(colour);
        return plane ? plane->average : -1;
    }

    TempFolder folder;
    NoiseData data;
};

const std::string kColourLines = "ScannerName=Heron 36\nScanner ID=H-0042\nColorScanner=TRUE\n"
                                 "ScannerWidth(1/1200)=50880\nColor=Red:Green:Blue\n"
                                 "NoiseLimit=7\nDate=1.3.2026\nTime=13:05\nLength=4\n";

TEST_F(NoiseDataTest, ReadsAColourLineInItsTextForm)
{
    // Averages 2.25, 200.5 and 1.75 round to the nearest, halves up.
    ASSERT_EQ(
        Read(TextNoiseFile(kColourLines, "\1\2\3\3\xc8\xc9\xc8\xc9\1\2\2\2")), NoiseResult::Ok);
    EXPECT_EQ(data.m_iLineLength, 4);
    EXPECT_TRUE(data.m_bHasColour);
    EXPECT_FALSE(data.m_bHasGray);
    EXPECT_EQ(AverageOf(ShownColour::Red), 2);
    EXPECT_EQ(AverageOf(ShownColour::Green), 201);
    EXPECT_EQ(AverageOf(ShownColour::Blue), 2);
    EXPECT_EQ(AverageOf(ShownColour::Gray), -1);
    EXPECT_EQ(
        data.PlaneOf(ShownColour::Blue)->trace.samples, (std::vector<std::uint8_t>{1, 2, 2, 2}));
    EXPECT_EQ(data.m_shown, ShownColour::Green);
    EXPECT_EQ(data.ShownAverage(), 201);
    EXPECT_DOUBLE_EQ(data.m_dWidthFactor, 10.0);
    EXPECT_EQ(data.m_ScannerName, "Heron 36");
    EXPECT_EQ(data.m_ScannerID, "H-0042");
    EXPECT_EQ(data.m_Date + data.m_Time, "1.3.202613:05");
    EXPECT_EQ(data.m_iNoiseLimit, 7);
}

TEST_F(NoiseDataTest, AGrayFileKeepsItsPlaneAsGreen)
{
    ASSERT_EQ(Read(TextNoiseFile("Color=Gray\n", "\x10\x20\x30")), NoiseResult::Ok);
    EXPECT_FALSE(data.m_bHasColour);
    EXPECT_EQ(data.m_iLineLength, 3);
    EXPECT_EQ(data.m_shown, ShownColour::Gray);
    EXPECT_EQ(data.Planes(), std::vector{ShownColour::Green});
    EXPECT_EQ(data.PlaneOf(ShownColour::Gray), data.PlaneOf(ShownColour::Green));
    EXPECT_EQ(data.PlaneOf(ShownColour::Red), nullptr);
    EXPECT_DOUBLE_EQ(data.m_dWidthFactor, 8.5);
    EXPECT_FALSE(data.m_iNoiseLimit);
}

struct LengthCase {
    const char* name;
    const char* lines;
    int dataBytes;
    int lineLength;
    std::size_t planes;
};

TEST_F(NoiseDataTest, TakesTheLineLengthFromTheFirstThatKnows)
{
    const LengthCase rows[] = {
        {"Length before Width", "Color=Gray\nWidth=9\nLength=5\n", 10, 5, 1},
        {"Width alone", "Color=Gray\nWidth=9\n", 10, 9, 1},
        {"gray data", "Color=Gray\n", 10, 10, 1},
        {"colour data, a byte left over", "Color=Red:Green:Blue\n", 10, 3, 3},
        {"fourth plane", "Color=Red:Green:Blue\nLength=3\n", 12, 3, 4},
        {"one byte short of a fourth", "Color=Red:Green:Blue\nLength=3\n", 11, 3, 3},
        {"colour by the scanner", "ColorScanner=TRUE\n", 9, 3, 3},
        {"gray by the scanner", "ColorScanner=FALSE\nLength=3\n", 9, 3, 1},
        {"neither named: the data tell", "Length=3\n", 9, 3, 3},
        {"neither named: too few for three", "Length=4\n", 9, 4, 1},
        {"nothing named", "", 9, 9, 1},
        {"no pixels", "Color=Gray\nLength=0\n", 9, 0, 1},
    };
    for (const LengthCase& row : rows) {
        ASSERT_EQ(
            Read(TextNoiseFile(row.lines, FlatPlane(static_cast<std::size_t>(row.dataBytes), 9))),
            NoiseResult::Ok)
            << row.name;
        EXPECT_EQ(data.m_iLineLength, row.lineLength) << row.name;
        EXPECT_EQ(data.Planes().size(), row.planes) << row.name;
    }
}

TEST_F(NoiseDataTest, ReadsTheBinaryForm)
{
    ASSERT_EQ(Read(BinaryNoiseHeader(200, true) + FlatPlane(200, 10) + FlatPlane(200, 20)
                  + FlatPlane(200, 30) + NoiseTrailer("Heron 24")),
        NoiseResult::Ok);
    EXPECT_TRUE(data.m_bHasColour);
    EXPECT_EQ(AverageOf(ShownColour::Red), 10);
    EXPECT_EQ(AverageOf(ShownColour::Green), 20);
    EXPECT_EQ(AverageOf(ShownColour::Blue), 30);
    EXPECT_EQ(data.m_ScannerName, "Heron 24");

    ASSERT_EQ(Read(BinaryNoiseHeader(200, false) + FlatPlane(200, 77) + std::string(44, 'x')),
        NoiseResult::Ok);
    EXPECT_EQ(AverageOf(ShownColour::Green), 77);
    EXPECT_EQ(data.m_ScannerName, std::string(43, 'x'));
    ASSERT_EQ(Read(BinaryNoiseHeader(200, false) + FlatPlane(200, 77)), NoiseResult::Ok);
    EXPECT_EQ(data.m_ScannerName, "");
}

TEST_F(NoiseDataTest, ColourPlanesOfTheBinaryFormLieAThirdOfTheDataApart)
{
    // Room for 210 pixels a plane, of which 200 count.
    ASSERT_EQ(Read(BinaryNoiseHeader(200, true) + FlatPlane(210, 10) + FlatPlane(210, 20)
                  + FlatPlane(210, 30) + NoiseTrailer("Heron")),
        NoiseResult::Ok);
    EXPECT_EQ(AverageOf(ShownColour::Green), 20);
    EXPECT_EQ(AverageOf(ShownColour::Blue), 30);
    EXPECT_EQ(data.m_ScannerName, "Heron");
}

struct RefusalCase {
    const char* name;
    std::string bytes;
    NoiseResult result;
};

TEST_F(NoiseDataTest, RefusesWhatItCannotShow)
{
    const RefusalCase rows[] = {
        {"empty file", "", NoiseResult::WrongKind},
        {"another test", "[Stitch Test]\nDataPointer=        37\n", NoiseResult::WrongKind},
        {"binary stitch picture", BinaryNoiseHeader(1, false, 18) + "x", NoiseResult::WrongKind},
        {"half a binary header", BinaryNoiseHeader(1, false).substr(0, 47), NoiseResult::WrongKind},
        {"header cut off", "[Noise Test]\nDataPointer=  1000\n", NoiseResult::BadHeader},
        {"no data offset", "[Noise Test]\n", NoiseResult::BadHeader},
        {"text, negative length", TextNoiseFile("Length=-1\n", "abc"), NoiseResult::BadLength},
        {"binary, negative length", BinaryNoiseHeader(-1, false) + "abc", NoiseResult::BadLength},
        {"colour binary, most negative", BinaryNoiseHeader(INT32_MIN, true) + std::string(60, 'x'),
            NoiseResult::BadLength},
        {"text, a pixel short", TextNoiseFile("Color=Gray\nLength=4\n", "abc"),
            NoiseResult::TooShort},
        {"text colour, a pixel short",
            TextNoiseFile("Color=Red:Green:Blue\nLength=3\n", "12345678"), NoiseResult::TooShort},
        {"text, largest length", TextNoiseFile("Color=Red:Green:Blue\nLength=2147483647\n", "abc"),
            NoiseResult::TooShort},
        {"binary, largest length", BinaryNoiseHeader(INT32_MAX, false) + "abc",
            NoiseResult::TooShort},
        {"colour binary, largest length", BinaryNoiseHeader(INT32_MAX, true) + std::string(60, 'x'),
            NoiseResult::TooShort},
        {"colour binary without trailer", BinaryNoiseHeader(20, true) + std::string(60, 'x'),
            NoiseResult::TooShort},
    };
    for (const RefusalCase& row : rows) {
        const NoiseResult result = Read(row.bytes);
        EXPECT_EQ(static_cast<int>(result), static_cast<int>(row.result)) << row.name;
        EXPECT_FALSE(data.DescribeFailure(result).empty()) << row.name;
        EXPECT_EQ(data.m_iLineLength, 0) << row.name;
        EXPECT_EQ(data.ShownPlane(), nullptr) << row.name;
    }
    EXPECT_EQ(data.Read(folder.Path() / "missing.con"), NoiseResult::CantOpen);
    EXPECT_EQ(data.Read(folder.Path()), NoiseResult::CantOpen);
}

TEST_F(NoiseDataTest, ReadsEveryTruncationWithoutHarm)
{
    const std::string planes = FlatPlane(6, 10) + FlatPlane(6, 20) + FlatPlane(6, 30);
    for (const std::string& whole : {TextNoiseFile("Color=Red:Green:Blue\nLength=6\n", planes),
             BinaryNoiseHeader(6, true) + planes + NoiseTrailer("Heron")}) {
        for (std::size_t length = 0; length < whole.size(); ++length) {
            const NoiseResult result = Read(whole.substr(0, length));
            EXPECT_NE(result, NoiseResult::Ok) << length;
            EXPECT_EQ(data.m_iLineLength, 0);
        }
        EXPECT_EQ(Read(whole), NoiseResult::Ok);
    }
}

TEST_F(NoiseDataTest, WhatIsSavedReadsBackTheSame)
{
    const std::string planes =
        FlatPlane(120, 10) + FlatPlane(120, 20) + FlatPlane(120, 30) + FlatPlane(120, 40);
    const std::string files[] = {
        TextNoiseFile(kColourLines, "123456789012"),
        TextNoiseFile("Color=Red:Green:Blue\nLength=120\n", planes),
        TextNoiseFile("Color=Gray\n", planes),
        BinaryNoiseHeader(120, true) + planes.substr(0, 360) + NoiseTrailer("Length=2\nColor=Gray"),
        TextNoiseFile("Color=Gray\nLength=0\n", ""),
    };
    for (const std::string& bytes : files) {
        ASSERT_EQ(Read(bytes), NoiseResult::Ok);
        const std::filesystem::path target = folder.Path() / "saved.con";
        ASSERT_EQ(data.Save(target), FileStatus::Ok);
        NoiseData back;
        ASSERT_EQ(back.Read(target), NoiseResult::Ok);
        EXPECT_EQ(back.m_iLineLength, data.m_iLineLength);
        EXPECT_EQ(back.m_bHasColour, data.m_bHasColour);
        EXPECT_EQ(back.m_bHasGray, data.m_bHasGray);
        EXPECT_DOUBLE_EQ(back.m_dWidthFactor, data.m_dWidthFactor);
        EXPECT_EQ(back.m_ScannerName, data.m_ScannerName);
        EXPECT_EQ(back.m_ScannerID + back.m_Date + back.m_Time,
            data.m_ScannerID + data.m_Date + data.m_Time);
        EXPECT_EQ(back.m_iNoiseLimit, data.m_iNoiseLimit);
        for (const ShownColour colour : data.Planes()) {
            const NoisePlane* plane = data.PlaneOf(colour);
            const NoisePlane* again = back.PlaneOf(colour);
            ASSERT_EQ(again != nullptr, plane != nullptr);
            if (plane) {
                EXPECT_EQ(again->trace.samples, plane->trace.samples);
            }
        }
    }
}

TEST_F(NoiseDataTest, MarksEachPlaneByItsOwnAverage)
{
    std::string red = FlatPlane(200, 100);
    red[30] = 90;
    std::string green = FlatPlane(200, 200);
    green[199] = static_cast<char>(215);
    ASSERT_EQ(Read(TextNoiseFile("Color=Red:Green:Blue\nLength=200\n", red + green + red)),
        NoiseResult::Ok);
    EXPECT_EQ(data.PlaneOf(ShownColour::Red)->dips, (std::vector<std::int32_t>{30}));
    EXPECT_TRUE(data.PlaneOf(ShownColour::Red)->peaks.empty());
    EXPECT_TRUE(data.PlaneOf(ShownColour::Green)->dips.empty());
    EXPECT_EQ(data.PlaneOf(ShownColour::Green)->peaks, (std::vector<std::int32_t>{199}));
}

} // namespace
} // namespace vireo
