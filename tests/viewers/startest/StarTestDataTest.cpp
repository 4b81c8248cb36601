#include "tests/TempFolder.h"
#include "tests/viewers/startest/StarTestFiles.h"
#include "viewers/startest/StarTestData.h"
#include "viewers/startest/StarTestReader.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <string>

namespace vireo {
namespace {

class StarTestDataTest : public testing::Test {
protected:
    StarTestResult Read(const std::string& bytes)
    {
        return data.Read(folder.Write("star.con", bytes));
    }
    const StarTestSweep& Sweep(std::size_t index) const { return data.m_sweeps.at(index); }

    TempFolder folder;
    StarTestData data;
};

void ExpectNear(const std::vector<float>& values, const std::vector<double>& expected)
{
    ASSERT_EQ(values.size(), expected.size());
    for (std::size_t i = 0; i < values.size(); ++i)
        EXPECT_FLOAT_EQ(values[i], static_cast<float>(expected[i])) << i;
}

TEST_F(StarTestDataTest, GivesTheFiguresThatWereWorkedOutByHand)
{
    ASSERT_EQ(Read(StarTestStart(1) + HandWorkedSweep()), StarTestResult::Ok);
    EXPECT_EQ(data.m_TestName, "StarTest");
    EXPECT_EQ(data.m_iVersion, 1);
    EXPECT_EQ(data.m_header.ScannerName().value, "Heron 36");
    ASSERT_EQ(data.m_sweeps.size(), 1U);
    const StarTestSweep& sweep = Sweep(0);
    EXPECT_EQ(sweep.LineCount(), 6);
    EXPECT_EQ(sweep.m_iScanSpeed, 3);
    EXPECT_DOUBLE_EQ(sweep.m_dScanWidth, 8.5);
    EXPECT_EQ(sweep.m_iResolution, 300);
    EXPECT_EQ(sweep.m_iScanSpeedWidth, 5100);
    EXPECT_EQ(sweep.m_iScanSpeedBytePerPix, 3);
    EXPECT_EQ(sweep.m_YPositionColumn, (std::vector<std::int32_t>{7, 7, 7, 7, 7, -7}));
    ExpectNear(sweep.m_ScanSpeedCurve, {0, 0, 2, 2, 0, 3});
    ExpectNear(sweep.m_WideLineUnsmoothed, {-4, -3, -2, 0, -1, -4});
    ExpectNear(sweep.m_WideLine, std::vector<double>(6, -314.0 / 81.0));
    ExpectNear(sweep.m_XLineWidth, {4, -1, 1, 0, 0, 9});
    ExpectNear(sweep.m_YLineWidth, {3, -1, 0, 1, 9, 9});
    ExpectNear(sweep.m_XVibration, {0, 0, -0.5, 0, 0, 0});
    ExpectNear(sweep.m_YVibration, {0, 0, 0.5, 0, 0, 0});
    ExpectNear(sweep.m_XVibrationAverage, {0, 0, 0, 0, 0, 0});
    ExpectNear(sweep.m_YVibrationAverage, {0, -1.0 / 6.0, 1.0 / 3.0, -1.0 / 6.0, 0, 0});
    EXPECT_TRUE(sweep.m_bAllPointsPassed);
}

TEST(StarTestRow, IsReadWithWhateverLiesBetweenItsNumbers)
{
    const StarTestRow row = ParseStarTestRow("9 1.5\t-2.25  3\t\t4e1 5 6 7 +8.5 9 300 -1 99\r");
    EXPECT_EQ(row.xPosition, 1.5F);
    EXPECT_EQ(row.yPosition, -2.25F);
    EXPECT_EQ(row.yPositionColumn, 3);
    EXPECT_EQ(row.wideLine, 40.0F);
    EXPECT_EQ(row.timeStamp * 100 + row.byteCount * 10 + row.lineIndex, 567);
    EXPECT_EQ(row.xLineWidth, 8.5F);
    EXPECT_EQ(row.yLineWidth, 9.0F);
    EXPECT_EQ(row.xRestart, 44); // One byte of 300.
    EXPECT_EQ(row.yRestart, -1);
    const StarTestRow half = ParseStarTestRow("9 1.5 2.5 x 7 7 7 7 7 7 7 7");
    EXPECT_EQ(half.yPosition, 2.5F);
    EXPECT_EQ(half.yPositionColumn + half.timeStamp + half.yRestart, 0);
}

TEST_F(StarTestDataTest, TwoRoundsOfThreeSweepsHaveThreeAverages)
{
    std::string bytes = StarTestStart(9, 2);
    for (const double bump : {1.0, 2.0, 3.0, 5.0, 6.0, 7.0})
        bytes += PlainSweep(40, bump);
    ASSERT_EQ(Read(bytes), StarTestResult::Ok);
    ASSERT_EQ(data.m_sweeps.size(), 9U);
    EXPECT_EQ(data.m_iSelectedIndex, 7U);
    EXPECT_EQ(data.MeasuredCount(), 6U);
    for (std::size_t i = 0; i < 9; ++i)
        EXPECT_EQ(Sweep(i).m_bAvgResult, i >= 6) << i;
    // Of a straight line but for one value both round's curves are multiples of one shape.
    EXPECT_FLOAT_EQ(
        Sweep(7).m_XVibrationAverage[20], Sweep(0).m_XVibrationAverage[20] * (2.0F + 6.0F) / 2.0F);
    EXPECT_NEAR(Sweep(7).m_ScanSpeedCurve[20],
        Sweep(0).m_XVibrationAverage[20] * 4.0F / std::sqrt(2.0F), 1e-5F);

    // Written again it announces nine records and has six.
    const auto copy = folder.Path() / "copy.con";
    ASSERT_EQ(data.Write(copy), FileStatus::Ok);
    const std::string text = TempFolder::Read(copy);
    EXPECT_NE(text.find("\nSweep = 9\nRepeat = 2\nScannerName=Heron 36\n"), std::string::npos);
    std::size_t records = 0;
    for (std::size_t at = text.find("END_DATA"); at != std::string::npos;
         at = text.find("END_DATA", at + 1))
        ++records;
    EXPECT_EQ(records, 6U);
}

struct CountCase {
    const char* name;
    int announced;
    int repeat;
    int present;
    std::size_t sweeps;
    std::size_t selected;
};

TEST_F(StarTestDataTest, HoldsAsManySweepsAsAnnounced)
{
    const CountCase rows[] = {
        {"as many as announced", 3, 0, 3, 3, 0},
        {"more than announced", 2, 0, 4, 2, 0},
        {"fewer than announced", 4, 0, 2, 4, 0},
        {"none announced", 0, 0, 2, 2, 0},
        {"a negative number announced", -5, 0, 2, 2, 0},
        {"one round", 4, 1, 2, 4, 3},
        {"the averages are in the file too", 6, 2, 6, 6, 5},
        {"more rounds than sweeps", 2, 9, 2, 2, 1},
        {"rounds without end", 2, INT32_MAX, 2, 2, 1},
        {"a sweep of the second round is missing", 6, 2, 3, 6, 5},
    };
    for (const CountCase& row : rows) {
        std::string bytes = StarTestStart(row.announced, row.repeat);
        for (int i = 0; i < row.present; ++i)
            bytes += PlainSweep(30);
        ASSERT_EQ(Read(bytes), StarTestResult::Ok) << row.name;
        EXPECT_EQ(data.m_sweeps.size(), row.sweeps) << row.name;
        EXPECT_EQ(data.m_iSelectedIndex, row.selected) << row.name;
        ASSERT_NE(data.SelectedSweep(), nullptr) << row.name;
    }
}

TEST_F(StarTestDataTest, TheFirstAverageOfTheFileIsSelected)
{
    const std::string average = "AvgResult = 1\n";
    ASSERT_EQ(Read(StarTestStart(4) + PlainSweep(30) + PlainSweep(30, 0, average)
                  + PlainSweep(30, 0, average) + PlainSweep(30)),
        StarTestResult::Ok);
    EXPECT_EQ(data.m_iSelectedIndex, 1U);
    EXPECT_TRUE(data.SelectedSweep()->m_bAvgResult);
    data.Select(99);
    EXPECT_EQ(data.m_iSelectedIndex, 3U);
}

struct LengthCase {
    const char* name;
    std::string sweep;
    std::int32_t lines;
    std::int32_t resolution;
};

TEST_F(StarTestDataTest, TheLengthDecides)
{
    const std::string lines = "0 5 5\n1 4 4\n2 3 3\n";
    const std::string keys = "Resolution = 300\n";
    const LengthCase rows[] = {
        {"as many lines", "Length = 3\n" + keys + lines, 3, 300},
        {"more lines than announced", "Length = 2\n" + keys + lines, 2, 300},
        {"fewer lines than announced", "Length = 5\n" + keys + lines, 5, 300},
        {"no lines at all", "Length = 5\n" + keys, 5, 300},
        {"a length of 0: the keys do not count", "Length = 0\n" + keys + lines, 0, 0},
        {"a negative length", "Length = -7\n" + keys + lines, 0, 0},
        {"the smallest length", "Length = -99999999999\n" + keys + lines, 0, 0},
        {"no length", keys + lines, 0, 0},
        {"data before the length", lines + keys + "Length = 3\n", 3, 0},
        {"without blanks", "Length=3\nResolution=300\n" + lines, 3, 300},
        {"carriage returns", "Length = 3\r\nResolution = 300\r\n0 5\r\n", 3, 300},
        {"the length again: it begins anew", "Length = 9\n" + lines + "Length = 3\n" + keys, 3,
            300},
    };
    for (const LengthCase& row : rows) {
        ASSERT_EQ(Read(StarTestStart(1) + row.sweep + "END_DATA\n"), StarTestResult::Ok)
            << row.name;
        EXPECT_EQ(Sweep(0).LineCount(), row.lines) << row.name;
        EXPECT_EQ(Sweep(0).m_iResolution, row.resolution) << row.name;
        EXPECT_EQ(std::ssize(Sweep(0).m_XVibration), row.lines) << row.name;
        if (row.lines > 0) {
            const bool hasData = row.sweep.ends_with(lines);
            EXPECT_EQ(Sweep(0).m_XPosition[0], hasData ? 5.0F : Sweep(0).m_XPosition[0])
                << row.name;
        }
    }
}

TEST_F(StarTestDataTest, AHugeLengthCostsNoMoreThanTheFileCanJustify)
{
    const std::string huge = "Length = 2147483647\n0 1 1\nEND_DATA\n";
    std::string bytes = StarTestStart(50);
    for (int i = 0; i < 50; ++i)
        bytes += huge;
    ASSERT_EQ(Read(bytes), StarTestResult::Ok);
    std::int64_t lines = 0;
    for (const StarTestSweep& sweep : data.m_sweeps)
        lines += sweep.LineCount();
    EXPECT_LE(lines, StarTestData::kMostMissingLines + std::ssize(bytes) / 24);
    EXPECT_GT(Sweep(0).LineCount(), 10'000);

    ASSERT_EQ(Read(StarTestStart(2147483647) + huge), StarTestResult::Ok);
    EXPECT_EQ(std::ssize(data.m_sweeps), StarTestData::kMostSweeps);
}

TEST_F(StarTestDataTest, ReadsNumbersThatAreNone)
{
    ASSERT_EQ(Read(StarTestStart(1)
                  + "Length = 40\nXVib_Start = 2\nXVib_End = 2147483647\nYVib_Start = -2147483648\n"
                    "YVib_End = 30\nWideLine_Start = 1\nWideLine_End = 39\nScanSpeedIndex = -4\n"
                    "0 nan inf 2 -inf 1 1 1 1e39 nan 1 1\n1 1e999 -1e999 2147483648 nan\n"
                    "END_DATA\n"),
        StarTestResult::Ok);
    EXPECT_TRUE(std::isinf(Sweep(0).m_XPosition[1]));
    EXPECT_EQ(Sweep(0).m_YPositionColumn[1], INT32_MAX);
}

TEST_F(StarTestDataTest, SaysWhyNothingCanBeShown)
{
    const auto expect = [this](StarTestResult result, StarTestResult expected) {
        EXPECT_EQ(static_cast<int>(result), static_cast<int>(expected));
        EXPECT_FALSE(data.DescribeFailure(result).empty());
    };
    ASSERT_EQ(Read(StarTestStart(1) + PlainSweep(20)), StarTestResult::Ok);
    expect(data.Read(folder.Path() / "missing.con"), StarTestResult::CantOpen);
    expect(Read("[Noise Test]\nDataPointer=        37\n"), StarTestResult::WrongKind);
    expect(Read(""), StarTestResult::WrongKind);
    expect(Read("[StarTest]\nSweep = 3\n"), StarTestResult::NoSweeps);
    expect(Read(StarTestStart(3)), StarTestResult::NoSweeps);
    std::string longHeader = "[StarTest]\n";
    for (int i = 0; i < 30'000; ++i)
        longHeader += "a line that says nothing and is one of very many\n";
    expect(Read(longHeader + "BEGIN_DATA\n" + PlainSweep(20)), StarTestResult::NoSweeps);
    // What was read before is still there.
    EXPECT_EQ(Sweep(0).LineCount(), 20);
    // A line without end counts as far as it is read.
    ASSERT_EQ(Read("[StarTest]\n" + std::string(3 * TestFileHeader::kMaxHeaderBytes, 'x')
                  + "\nBEGIN_DATA\n" + PlainSweep(21)),
        StarTestResult::Ok);
    EXPECT_EQ(Sweep(0).LineCount(), 21);
}

TEST(StarTestReader, TakesEveryTruncationWithoutHarm)
{
    const std::string whole = StarTestStart(4, 1) + HandWorkedSweep() + PlainSweep(30);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        StarTestData data;
        StarTestReader reader(data, length);
        std::istringstream lines(whole.substr(0, length));
        for (std::string line; std::getline(lines, line);)
            reader.TakeLine(line);
        reader.Finish();
        const bool hasLength = length >= whole.find("Length = 6") + 8;
        EXPECT_EQ(reader.HasSweeps(), hasLength) << length;
        if (length >= StarTestStart(4, 1).size()) {
            EXPECT_EQ(data.m_sweeps.size(), 4U) << length;
        }
    }
}

TEST_F(StarTestDataTest, WhatIsWrittenReadsBackTheSame)
{
    ASSERT_EQ(Read(StarTestStart(2) + HandWorkedSweep() + PlainSweep(30, 2.5)), StarTestResult::Ok);
    const auto copy = folder.Path() / "copy.con";
    ASSERT_EQ(data.Write(copy), FileStatus::Ok);
    const std::string text = TempFolder::Read(copy);
    EXPECT_NE(text.find("\n2\t 98.00\t48.50\t7\t12.00\t 1010\t100000\t5  1.00\t 0.00 0\t0\t\n"),
        std::string::npos);
    StarTestData back;
    ASSERT_EQ(back.Read(copy), StarTestResult::Ok);
    EXPECT_EQ(back.m_header.Text(), data.m_header.Text());
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(back.m_sweeps[i].m_XVibration, Sweep(i).m_XVibration);
        EXPECT_EQ(back.m_sweeps[i].m_WideLine, Sweep(i).m_WideLine);
        EXPECT_EQ(back.m_sweeps[i].m_ScanSpeedCurve, Sweep(i).m_ScanSpeedCurve);
        EXPECT_EQ(back.m_sweeps[i].m_YVibrationAverage, Sweep(i).m_YVibrationAverage);
    }
    // And what is written of that is the same file, to the last byte but for the widths' rounding.
    ASSERT_EQ(back.Write(folder.Path() / "again.con"), FileStatus::Ok);
    EXPECT_EQ(TempFolder::Read(folder.Path() / "again.con").substr(0, 500), text.substr(0, 500));
}

TEST_F(StarTestDataTest, AppendsALineToTheLogOfMeasurements)
{
    EXPECT_FALSE(data.AppendSummary(folder.Path(), "a", "b"));
    ASSERT_EQ(Read(StarTestStart(1) + PlainSweep(20)), StarTestResult::Ok);
    StarTestSweep& sweep = data.m_sweeps[0];
    sweep.m_dApplicationFactor = 12.345;
    sweep.m_iApplicationFactorCount = 3;
    sweep.m_Points.resize(14);
    sweep.m_iPointCount = 1;
    sweep.m_Points[13].m_dDeviation = 0.5; // 3 + 10 x 1.
    ASSERT_TRUE(data.AppendSummary(folder.Path() / "results", "1/3-2026", "13:05:09"));
    ASSERT_TRUE(data.AppendSummary(folder.Path() / "results", "2/3-2026", "13:05:09"));
    EXPECT_EQ(TempFolder::Read(folder.Path() / "results" / "StarTest" / "A2MotorVibrationTest.txt"),
        "Date 1/3-2026\tTime 13:05:09\t12.35\t3\t 0.50\n"
        "Date 2/3-2026\tTime 13:05:09\t12.35\t3\t 0.50\n");
}

TEST_F(StarTestDataTest, ReportsTheDeviationsBesideTheirLimits)
{
    StarTestSweep sweep;
    sweep.m_iResolution = 600;
    sweep.m_bColour = true;
    sweep.m_iPointCount = 8;
    sweep.m_Points.resize(8);
    for (std::size_t i = 0; i < 8; ++i)
        sweep.m_Points[i].m_dDeviation = static_cast<double>(i);
    data.m_dLimits = {10, 11, 12, 13, 14};
    const StarTestReportRow row = data.ReportRow(sweep);
    ASSERT_EQ(row.values.size(), 7U);
    EXPECT_EQ(row.values[3].deviation, 3.0);
    EXPECT_EQ(row.values[3].limit, 13.0);
    EXPECT_EQ(row.values[6].limit, 14.0);
    EXPECT_TRUE(row.isColour);
    EXPECT_TRUE(data.ReportRow(StarTestSweep()).values.empty());
}

TEST_F(StarTestDataTest, NamesTheRawPictureByRoundAndSweep)
{
    std::string bytes = StarTestStart(6, 2);
    for (int i = 0; i < 4; ++i)
        bytes += PlainSweep(20);
    ASSERT_EQ(Read(bytes), StarTestResult::Ok);
    EXPECT_EQ(data.RawPictureName(0), "StarTest_Raw_00.tif");
    EXPECT_EQ(data.RawPictureName(1), "StarTest_Raw_01.tif");
    EXPECT_EQ(data.RawPictureName(2), "StarTest_Raw_10.tif");
    EXPECT_EQ(data.RawPictureName(4), std::nullopt);
    EXPECT_EQ(data.RawPictureName(99), std::nullopt);
}

} // namespace
} // namespace vireo
