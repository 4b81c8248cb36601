#include "tests/TempFolder.h"
#include "tests/viewers/noise/NoiseFiles.h"
#include "viewers/noise/NoiseData.h"
#include "viewers/noise/NoiseExport.h"
#include "viewers/noise/NoiseRuler.h"
#include "viewers/noise/NoiseText.h"

#include <gtest/gtest.h>

namespace vireo {
namespace {

struct LabelCase {
    PositionUnit unit;
    std::int32_t pixel;
    const char* label;
};

TEST(NoiseRulerTest, LabelsThePixelBeforeTheMark)
{
    // 8.5 units of width are 36.04 inches or 91.5416 cm over 1000 pixels.
    const LabelCase rows[] = {
        {PositionUnit::ScanUnit, 501,
            "4.2"}, // 500 pixels are 4.25; the half goes to the even digit
        {PositionUnit::ScanUnit, 1000, "8.5"},
        {PositionUnit::Inch, 501, "18.0"},
        {PositionUnit::Inch, 1, "0.0"},
        {PositionUnit::Centimetre, 501, "46"},
        {PositionUnit::Centimetre, 60, "5"}, // 59 pixels are 5.40
        {PositionUnit::Centimetre, 61, "5"}, // 5.49, although its own position is 5.58
        {PositionUnit::Centimetre, 62, "6"},
        {PositionUnit::Inch, 0, "-0.0"},
        {PositionUnit::Centimetre, 0, "0"},
    };
    for (const LabelCase& row : rows) {
        const NoiseRuler ruler{1000, 8.5, row.unit};
        EXPECT_EQ(ruler.MarkLabel(row.pixel), row.label)
            << UnitName(row.unit) << " at " << row.pixel;
    }
}

TEST(NoiseRulerTest, MeasuresBothWays)
{
    const NoiseRuler ruler{1000, 10.0, PositionUnit::Centimetre};
    EXPECT_NEAR(ruler.PositionOf(500.0), 53.848, 1e-9);
    EXPECT_NEAR(ruler.PixelOf(ruler.PositionOf(123.0)), 123.0, 1e-9);
    const NoiseRuler empty{0, 8.5, PositionUnit::Inch};
    EXPECT_EQ(empty.PositionOf(7.0), 0.0);
}

TEST(PositionUnitTest, NamesGoThereAndBack)
{
    for (const PositionUnit unit :
        {PositionUnit::ScanUnit, PositionUnit::Inch, PositionUnit::Centimetre})
        EXPECT_EQ(UnitFromName(UnitName(unit)), unit);
    EXPECT_EQ(UnitFromName("cm"), PositionUnit::Centimetre);
    EXPECT_FALSE(UnitFromName("mm"));
}

class NoiseTextTest : public testing::Test {
protected:
    void Read(const std::string& lines, const std::string& planes)
    {
        ASSERT_EQ(data.Read(folder.Write("n.con", TextNoiseFile(lines, planes))), NoiseResult::Ok);
    }

    TempFolder folder;
    NoiseData data;
};

TEST_F(NoiseTextTest, TellsTheAverageOfTheShownPlane)
{
    EXPECT_EQ(AverageText(data), "Average:  0") << "the empty record";
    Read("Color=Red:Green:Blue\nLength=2\n", "\x0a\x0b\x14\x15\x1e\x1e");
    EXPECT_EQ(AverageText(data), "Average:  21");
    data.m_shown = ShownColour::Blue;
    EXPECT_EQ(AverageText(data), "Average:  30");
    data.m_shown = ShownColour::Gray;
    EXPECT_EQ(AverageText(data), "Average:  0") << "a plane that is not there";
    EXPECT_EQ(LimitText(LimitPercent(data, 5)), "Limit: 5 %");
    EXPECT_EQ(CursorPositionText(12.345), "Cursor\nPosition:  12.35");
}

TEST_F(NoiseTextTest, PrintsHeaderLines)
{
    Read("ScannerName=Heron 36\nScanner ID=H-0042\nNoiseLimit=7\nDate=1.3.2026\n", "abc");
    EXPECT_EQ(TestHeaderLines(data),
        (std::vector<std::string>{"Noise Test", "Scanner Name:   Heron 36",
            "Scanner Number:  H-0042", "Date:           1.3.2026", "Limit:          7 %"}));
    Read("ScannerName=Heron 36\n", "abc");
    EXPECT_EQ(PrintedHeaderLines(data, 5, "today"),
        (std::vector<std::string>{"Noise Test", "Scanner Name:   Heron 36", "Date:           today",
            "Limit:          5 %"}));
}

TEST_F(NoiseTextTest, ExportsATableOfTheLine)
{
    const auto target = folder.Path() / "line.csv";
    Read("Color=Red:Green:Blue\nScannerWidth(1/1200)=5088\nLength=2\n", "\1\2\3\4\5\6");
    ASSERT_EQ(ExportNoiseAsCsv(target, data), FileStatus::Ok);
    EXPECT_EQ(TempFolder::Read(target),
        "pixel,position_mm,red,green,blue\r\n0,0,1,3,5\r\n1,53.848,2,4,6\r\n");
    Read("Color=Gray\n", "\7");
    ASSERT_EQ(ExportNoiseAsCsv(target, data), FileStatus::Ok);
    EXPECT_EQ(TempFolder::Read(target), "pixel,position_mm,gray\r\n0,0,7\r\n");
}

} // namespace
} // namespace vireo
