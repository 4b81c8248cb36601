#include "platform/Text.h"
#include "tests/TempFolder.h"
#include "tests/viewers/tonal/TonalFiles.h"
#include "viewers/tonal/TonalExport.h"
#include "viewers/tonal/TonalFileText.h"
#include "viewers/tonal/TonalReport.h"
#include "viewers/tonal/TonalResolutionData.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <sstream>

namespace vireo {
namespace {

std::string Sample(const std::string& name)
{
    return TempFolder::Read(std::filesystem::path(VIREO_SAMPLES) / name);
}

class TonalResolutionDataTest : public testing::Test {
protected:
    TonalResult Read(const std::string& bytes) { return data.Read(folder.Write("t.con", bytes)); }

    TempFolder folder;
    TonalResolutionData data;
};

// HandFile: GS00 to GS11 have L* 100, which is density 0; the others have 0.9033, of which
// Y = 0.9033 / 903.3 = 0.001 is density 3. Samples are 255 in the light, which is scan value 255,
// and 0 in the dark, which is 0.
//
// GS02 has three samples around 255: 253, 255 and 257 have the sum 765, the squares 195083 and the
// variance (195083 - 765 x 765 / 3) / 2 = (195083 - 195075) / 2 = 4: log2(255 / 2) = 6.99435 bits.
// GS20 is black: the logarithm of 0 has no value, 0 bits.
//
// Green and blue: the line through (100, 255) and (0.9033, 0) meets all points. Its slope is
// 255 / 99.0967 = 2.573244, its offset 255 - 257.3244 = -2.3244.
// Red: GS23 is 255, too, so the mean of the dark half is 255 / 12 = 21.25. A line meets the means
// of both halves: slope (255 - 21.25) / 99.0967 = 2.358807, offset 255 - 235.8807 = 19.1193. The
// largest deviations are 255 - 21.25 = 233.75 in the dark and 0 in the light. The correlation,
// squared, is what the halves explain of the variance: with 13 of 24 values at 255,
// 24 x (11/24 x 255)^2 of 24 x 13/24 x 11/24 x 255^2 = 11 / 13 = 0.846154.
//
// Dynamic range: among patches of the same L* there is no slope, so from the light end GS12 is the
// first to be told apart (index 11) and from the dark end GS11 (index 12): densities 3 - 0.
TEST_F(TonalResolutionDataTest, WorksOutTheFiguresOfTheHandFile)
{
    ASSERT_EQ(Read(HandFile()), TonalResult::Ok);
    EXPECT_EQ(TonalReport(data),
        "Dynamic range\n"
        "   IT8 dynamic range:           3.00\n"
        "   Scanner dynamic range:       3.00\n"
        "\n"
        "Linearity. Best-fit for r, g and b.\n"
        "   Correlation coefficients:    0.84615  1.00000  1.00000\n"
        "   Slope:                       2.36     2.57     2.57\n"
        "   Offset:                     19.12    -2.32    -2.32\n"
        "\n"
        "Signal Noise\n"
        "   Light color:                 6.99     6.99     6.99\n"
        "   Dark color:                  0.00     0.00     0.00\n"
        "\n"
        "Largest deviation\n"
        "   Light area:                  0.00\n"
        "   Dark area:                 233.75\n");
    EXPECT_NEAR(data.m_fit[TonalRed].slope, 2.358807, 1e-6);
    EXPECT_NEAR(data.m_fit[TonalRed].offset, 19.1193, 1e-4);
    EXPECT_NEAR(data.m_fit[TonalRed].correlation, 11.0 / 13.0, 1e-9);
    EXPECT_NEAR(data.m_dBitDepthLight[TonalBlue], 6.99435, 5e-6);
    EXPECT_EQ(data.m_iIndexMinDynamicRange, 11);
    EXPECT_EQ(data.m_iIndexMaxDynamicRange, 12);
    EXPECT_EQ(data.m_iBitDepthLightIndex, 2);
    EXPECT_EQ(data.m_iBitDepthDarkIndex, 20);
    EXPECT_EQ(data.m_patches[12].lightness, static_cast<double>(0.9033F)) << "single precision";
}

TEST_F(TonalResolutionDataTest, TheSamplesHaveTheFiguresOfLongDouble)
{
    ASSERT_EQ(Read(Sample("tonal-resolution-shadows.con")), TonalResult::Ok);
    const auto linear = [](long double lightness) {
        const long double root = (lightness + 16.0L) / 116.0L;
        return lightness > 7.9996248L ? root * root * root : lightness / 903.3L;
    };
    long double dark = 0.0L;
    long double light = 0.0L;
    for (std::size_t channel = 0; channel < kTonalChannels; ++channel) {
        long double meanX = 0.0L;
        long double meanY = 0.0L;
        std::array<long double, TonalResolutionData::kPatches> scan{};
        for (std::size_t i = 0; i < scan.size(); ++i) {
            const TonalPatch& patch = data.m_patches[i];
            const long double mean = static_cast<long double>(patch.sum[channel]) / patch.count;
            scan[i] = 2.55L * (116.0L * std::cbrt(std::pow(mean / 255.0L, 2.2L)) - 16.0L);
            EXPECT_NEAR(patch.scan[channel], static_cast<double>(scan[i]), 1e-11);
            meanX += patch.lightness / 24.0L;
            meanY += scan[i] / 24.0L;
        }
        long double xx = 0.0L;
        long double xy = 0.0L;
        long double yy = 0.0L;
        for (std::size_t i = 0; i < scan.size(); ++i) {
            const long double x = data.m_patches[i].lightness - meanX;
            xx += x * x;
            xy += x * (scan[i] - meanY);
            yy += (scan[i] - meanY) * (scan[i] - meanY);
        }
        EXPECT_NEAR(data.m_fit[channel].slope, static_cast<double>(xy / xx), 1e-11);
        EXPECT_NEAR(data.m_fit[channel].offset, static_cast<double>(meanY - xy / xx * meanX), 1e-9);
        EXPECT_NEAR(
            data.m_fit[channel].correlation, static_cast<double>(xy * xy / (xx * yy)), 1e-11);
        for (std::size_t i = 0; i < scan.size(); ++i) {
            const long double lightness = data.m_patches[i].lightness;
            const long double away = std::fabs(scan[i] - meanY - xy / xx * (lightness - meanX));
            // Density 1.65 is Y = 10^-1.65.
            long double& largest = linear(lightness) < 0.0223872113856834L ? dark : light;
            largest = std::max(largest, away);
        }
    }
    EXPECT_NEAR(data.m_dMaxDarkDeviation, static_cast<double>(dark), 1e-9);
    EXPECT_NEAR(data.m_dMaxLightDeviation, static_cast<double>(light), 1e-9);
    const auto densities = [&](std::size_t from, std::size_t to) {
        const long double ratio =
            linear(data.m_patches[to].lightness) / linear(data.m_patches[from].lightness);
        return static_cast<double>(std::log(ratio) / std::log(10.0L));
    };
    EXPECT_NEAR(data.m_dIT8DynamicRange, densities(23, 0), 1e-12);
    // Red sees GS18, 14.65 lighter than GS23, at 53.6 instead of 50: a slope of 0.24. GS19 is
    // black.
    EXPECT_EQ(data.m_iIndexMaxDynamicRange, 19);
    EXPECT_EQ(data.m_iIndexMinDynamicRange, 0);
    EXPECT_NEAR(data.m_dScannerDynamicRange, densities(19, 0), 1e-12);
}

TEST_F(TonalResolutionDataTest, MissingKeysTakeTheirDefaults)
{
    ASSERT_EQ(Read("[tonal resolution]"), TonalResult::Ok);
    EXPECT_TRUE(data.IsLoaded());
    EXPECT_EQ(data.m_iVersion, 0);
    EXPECT_EQ(data.m_iGammaSlopeLimit, 0);
    EXPECT_EQ(data.m_ScannerName, "No Name");
    EXPECT_EQ(data.m_Date, "No Date");
    EXPECT_EQ(data.m_Time, "No Time");
    EXPECT_EQ(data.m_SerialNo, "No SerialNo");
    EXPECT_EQ(data.m_ChassisNo, "No ChassisNo");
    EXPECT_EQ(data.m_FirmwareBuild, "No Firmware Build");
    EXPECT_EQ(data.m_IT8RefFile, "No IT8RefFile");
    // Nothing to tell apart, and no figure without an answer is anything but 0.
    EXPECT_EQ(data.m_iIndexMinDynamicRange, 23);
    EXPECT_EQ(data.m_iIndexMaxDynamicRange, 0);
    EXPECT_EQ(data.m_dIT8DynamicRange, 0.0);
    EXPECT_EQ(data.m_dScannerDynamicRange, 0.0);
    EXPECT_EQ(data.m_fit[TonalGreen].slope, 0.0);
    EXPECT_EQ(data.m_dMaxDarkDeviation, 0.0);
    EXPECT_EQ(data.m_patches[5].density, 0.0);
}

struct ValueCase {
    const char* name;
    std::string line;
    std::function<double(const TonalResolutionData&)> value;
    double expected;
};

double CountOf(const TonalResolutionData& data)
{
    return data.m_patches[7].count;
}
double LightnessOf(const TonalResolutionData& data)
{
    return data.m_patches[7].lightness;
}
double LastSumOf(const TonalResolutionData& data)
{
    return data.m_patches[7].sumOfSquares[TonalBlue];
}

TEST_F(TonalResolutionDataTest, ReadsValuesAsTheyAreMeant)
{
    constexpr double kMost = std::numeric_limits<std::int32_t>::max();
    const ValueCase rows[] = {
        {"tabs and blanks around", " GS07 =\t  12.5 \t 9\n", LightnessOf, 12.5},
        {"all eight", "GS07=1 2 3 4 5 6 7 8\n", LastSumOf, 8},
        {"in quotes", "GS07=\"1 2 3 4 5 6 7 8\"\n", LastSumOf, 8},
        {"key of small letters", "gs07=1 77\n", CountOf, 77},
        {"the first of two", "GS07=1 77\nGS07=1 78\n", CountOf, 77},
        {"signs", "GS07=+1 -5\n", CountOf, -5},
        {"an exponent", "GS07=2.5e1\n", LightnessOf, 25},
        {"single precision", "GS07=83.45\n", LightnessOf, static_cast<double>(83.45F)},
        {"a fraction where a whole number stands", "GS07=1 2.5 3 4 5 6 7 8\n", LastSumOf, 0},
        {"a text ends the values", "GS07=1 x 3 4 5 6 7 8\n", LastSumOf, 0},
        {"a sign alone", "GS07=1 - 3 4 5 6 7 8\n", LastSumOf, 0},
        {"not a number", "GS07=nan 9\n", LightnessOf, 0},
        {"behind not a number", "GS07=nan 9\n", CountOf, 9},
        {"infinity", "GS07=-inf 9\n", LightnessOf, 0},
        {"more than single precision holds", "GS07=1e39 9\n", LightnessOf, 0},
        {"behind it", "GS07=1e39 9\n", CountOf, 9},
        {"more than 32 bits", "GS07=1 99999999999\n", CountOf, kMost},
        {"in another section", "[Other]\nGS07=1 77\n", CountOf, 0},
        {"a comment", ";GS07=1 77\n", CountOf, 0},
        {"behind 1000 characters", "GS07=" + std::string(1, '1') + std::string(999, ' ') + "9\n",
            CountOf, 0},
    };
    for (const ValueCase& row : rows) {
        ASSERT_EQ(Read(TonalFileOf(row.line)), TonalResult::Ok);
        EXPECT_EQ(row.value(data), row.expected) << row.name;
    }
    ASSERT_EQ(Read(TonalFileOf("ScannerName=" + std::string(5000, 'n'))), TonalResult::Ok);
    EXPECT_EQ(data.m_ScannerName, std::string(1000, 'n'));
}

TEST_F(TonalResolutionDataTest, KindsOfLineEndsReadAlike)
{
    const std::string text = Sample("tonal-resolution.con");
    ASSERT_EQ(Read(text), TonalResult::Ok);
    const std::string expected = FormatTonalText(data);
    for (const char* const lineEnd : {"\r\n", "\r"}) {
        std::string changed;
        for (const char c : text)
            c == '\n' ? changed.append(lineEnd) : changed.append(1, c);
        ASSERT_EQ(Read(changed), TonalResult::Ok);
        EXPECT_EQ(FormatTonalText(data), expected);
    }
}

TEST_F(TonalResolutionDataTest, TellsWhatCannotBeRead)
{
    EXPECT_EQ(data.Read(folder.Path() / "none.con"), TonalResult::CantRead);
    EXPECT_EQ(data.DescribeFailure(TonalResult::CantRead), "No such file");
    EXPECT_EQ(Read("; [Tonal Resolution]\nVersion=3\n"), TonalResult::WrongKind);
    EXPECT_EQ(Read(""), TonalResult::WrongKind);
    EXPECT_EQ(Read(TonalFileOf("ScannerName=Default\n")), TonalResult::NoMeasurement);
    EXPECT_FALSE(data.IsLoaded());
    EXPECT_EQ(TonalReport(data), "No data to display.");
    EXPECT_TRUE(std::filesystem::exists(folder.Path() / "t.con")) << "reading deletes nothing";
    // A line of 100 MB is not even read.
    const auto huge = folder.Write("huge.con", HandFile() + "Date=");
    std::filesystem::resize_file(huge, 100'000'000);
    EXPECT_EQ(data.Read(huge), TonalResult::CantRead);
    EXPECT_EQ(data.DescribeFailure(TonalResult::CantRead), "The file is too large");
}

TEST_F(TonalResolutionDataTest, ANameLosesOnePlus)
{
    const std::pair<const char*, const char*> rows[] = {
        {"Heron+", "Heron"}, {"Heron++", "Heron+"}, {"Default+", "Default"}, {"+", ""}, {"", ""}};
    for (const auto& [written, name] : rows) {
        ASSERT_EQ(
            Read(TonalFileOf(std::string("ScannerName=\t") + written + "\n")), TonalResult::Ok);
        EXPECT_EQ(data.m_ScannerName, name) << written;
    }
}

TEST_F(TonalResolutionDataTest, AVersionOfMinusOneBecomesThree)
{
    ASSERT_EQ(Read(TonalFileOf("Version=-1\n")), TonalResult::Ok);
    EXPECT_EQ(data.m_iVersion, 3);
    ASSERT_EQ(Read(TonalFileOf("Version=-2\n")), TonalResult::Ok);
    EXPECT_EQ(data.m_iVersion, -2);
}

struct FaultCase {
    const char* name;
    const char* lines;
    bool corrected;
};

TEST_F(TonalResolutionDataTest, CorrectsOnlyTheKnownFault)
{
    const FaultCase rows[] = {
        {"the fault", "Version=1\nBitDebthLightColor=5 5.81 9\n", true},
        {"not above", "Version=1\nBitDebthLightColor=5 5.79 5\n", false},
        {"another version", "Version=2\nBitDebthLightColor=5 9 5\n", false},
        {"version 11", "Version=11\nBitDebthLightColor=5 9 5\n", false},
        {"green below red", "Version=1\nBitDebthLightColor=9 5 5\n", false},
        {"no figures", "Version=1\n", false},
        {"not a number", "Version=1\nBitDebthLightColor=nan nan 5\n", false},
    };
    for (const FaultCase& row : rows) {
        ASSERT_EQ(Read(TonalFileOf(row.lines)), TonalResult::Ok);
        EXPECT_EQ(data.IsCorrected(), row.corrected) << row.name;
        EXPECT_EQ(data.m_patches[9].count, row.corrected ? -8 : 0) << row.name;
    }
    ASSERT_EQ(Read(SmallFaultyFile()), TonalResult::Ok);
    const TonalPatch& patch = data.m_patches[2];
    EXPECT_EQ(patch.count, 100);
    EXPECT_EQ(patch.sum, (TonalTriple<std::int32_t>{21600, 21600, 21600}));
    EXPECT_EQ(patch.sumOfSquares, (TonalTriple<std::int32_t>{4330000, 4320000, 4330000}));
    EXPECT_EQ(patch.Mean(TonalGreen), 216.0);
    EXPECT_EQ(data.m_patches[0].sum[TonalGreen], -2040) << "every patch";
    ASSERT_EQ(Read(TonalFileOf("Version=1\nBitDebthLightColor=0 1 0\n"
                               "GS00=1 -2147483648 0 -2147483648 0 0 0 0\n")),
        TonalResult::Ok);
    EXPECT_EQ(data.m_patches[0].count, std::numeric_limits<std::int32_t>::max() - 7);
}

TEST_F(TonalResolutionDataTest, TheFaultySampleLosesItsEightGreenSamples)
{
    ASSERT_EQ(Read(Sample("tonal-resolution-version-1.con")), TonalResult::Ok);
    EXPECT_TRUE(data.IsCorrected());
    EXPECT_EQ(data.m_ScannerName, "Heron 36");
    for (const TonalPatch& patch : data.m_patches)
        EXPECT_EQ(patch.count, 1600);
    for (const double bits : data.m_dBitDepthLight)
        EXPECT_NEAR(bits, 6.95, 0.1);
    // Written and read again it has no fault any more.
    ASSERT_EQ(Read(FormatTonalText(data)), TonalResult::Ok);
    EXPECT_FALSE(data.IsCorrected());
}

TEST_F(TonalResolutionDataTest, WritesTheFormatToTheByte)
{
    ASSERT_EQ(Read(HandFile()), TonalResult::Ok);
    const auto target = folder.Path() / "out.con";
    ASSERT_EQ(data.Write(target), FileStatus::Ok);
    EXPECT_EQ(data.m_FileName, target);
    std::string expected =
        "[Tonal Resolution]\nVersion=\t3\nScannerName=\tBy hand\nChassisNo=\tNo ChassisNo\n"
        "SerialNo=\tNo SerialNo\nDate=\tNo Date\nTime=\tNo Time\n"
        "Firmware Build=\tNo Firmware Build\nGammaSlopeLimit=\t7\nIT8RefFile=\tNo IT8RefFile\n"
        "IT8DynamicRange=\t  3.00\nScannerDynamicRange=\t  3.00\n"
        "LinearityBestFit_RGB_CorrelationCoefficients=\t 0.84615\t 1.00000\t 1.00000\n"
        "LinearityBestFit_RGB_Slope=\t  2.36\t  2.57\t  2.57\n"
        "LinearityBestFit_RGB_Offset=\t 19.12\t -2.32\t -2.32\n"
        "BitDebthLightColor=\t  6.99\t  6.99\t  6.99\nBitDebthDarkColor=\t  0.00\t  0.00\t  0.00\n"
        "BitDebthColorIndex=\tGS02\tGS20\nBitDebthColorTarget=\t  0.20\t  1.90\n"
        "MaxDarkDeviation =\t233.75\nMaxLigktDeviation =\t  0.00\n"
        "Patch=L\tn\tSumR\tSumG\tSumB\tSumRR\tSumGG\tSumBB\tDensity\tR\tG\tB\n";
    const std::string light = "255.00\t255.00\t255.00\n";
    for (int i = 0; i < 24; ++i) {
        expected += Format("GS%02d=", i);
        if (i == 2)
            expected += "100.00\t3\t765\t765\t765\t195083\t195083\t195083\t -0.00\t" + light;
        else if (i < 12)
            expected += "100.00\t2\t510\t510\t510\t130050\t130050\t130050\t -0.00\t" + light;
        else if (i < 23)
            expected += "  0.90\t2\t0\t0\t0\t0\t0\t0\t  3.00\t  0.00\t  0.00\t  0.00\n";
        else
            expected += "  0.90\t2\t510\t0\t0\t130050\t0\t0\t  3.00\t255.00\t  0.00\t  0.00\n";
    }
    expected += "IndexMaxDynamicRange=\t12\nIndexMinDynamicRange=\t11\n";
    EXPECT_EQ(TempFolder::Read(target), expected);
}

TEST_F(TonalResolutionDataTest, WhatIsWrittenReadsBack)
{
    for (const char* const name : {"tonal-resolution.con", "tonal-resolution-shadows.con"}) {
        const std::string text = Sample(name);
        ASSERT_EQ(Read(text), TonalResult::Ok);
        EXPECT_EQ(FormatTonalText(data), text) << name;
    }
    EXPECT_NE(data.Write(folder.Path() / "no" / "folder.con"), FileStatus::Ok);
    EXPECT_EQ(data.m_FileName, folder.Path() / "no" / "folder.con");
}

/// Every figure is a finite number whatever a file says.
void ExpectFiniteFigures(const TonalResolutionData& data)
{
    const std::string text = FormatTonalText(data) + TonalReport(data) + TonalPatchTable(data);
    EXPECT_EQ(text.find("nan"), std::string::npos) << text;
    EXPECT_EQ(text.find("inf"), std::string::npos) << text;
}

TEST_F(TonalResolutionDataTest, EveryTruncationIsShownOrRefused)
{
    const std::size_t tag = std::string("[Tonal Resolution]").size();
    for (const std::string& text : {SmallFaultyFile(), HandFile()}) {
        for (std::size_t length = 0; length < text.size(); ++length) {
            const TonalResult result = Read(text.substr(0, length));
            ASSERT_EQ(result, length < tag ? TonalResult::WrongKind : TonalResult::Ok) << length;
            ExpectFiniteFigures(data);
        }
    }
}

TEST_F(TonalResolutionDataTest, OddPatchesLeaveTheFiguresFinite)
{
    const char* const patches[] = {"50 0 0 0 0 0 0 0", "50 0 9 9 9 9 9 9",
        "50 1 128 128 128 16384 16384 16384", "-5 4 10 10 10 30 30 30", "0 4 10 10 10 30 30 30",
        "3e38 4 10 10 10 30 30 30", "50 1 2147483647 2147483647 2147483647 -2147483648 0 0",
        "50 -3 500 -500 500 1 1 1"};
    for (const char* const patch : patches) {
        for (const int index : {0, 2, 11, 20, 23}) {
            const std::string line = Format("GS%02d=%s\n", index, patch);
            ASSERT_EQ(Read(TonalFileOf(line) + HandFile().substr(19)), TonalResult::Ok);
            ExpectFiniteFigures(data);
        }
    }
}

TEST_F(TonalResolutionDataTest, ExportsTheSeriesOfAllPlots)
{
    ASSERT_EQ(Read(Sample("tonal-resolution.con")), TonalResult::Ok);
    const auto target = folder.Path() / "t.csv";
    ASSERT_EQ(ExportTonalAsCsv(target, data), FileStatus::Ok);
    const std::string text = TempFolder::Read(target);
    EXPECT_TRUE(text.starts_with("patch,L,scan_red,scan_green,scan_blue,fit_red,fit_green,fit_blue,"
                                 "difference_red,difference_green,difference_blue,density\r\n"
                                 "GS00,91.5,"))
        << text;
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 25);
    // Of the last row's values, the differences are those of scan and fit.
    std::vector<double> values;
    std::istringstream row(text.substr(text.find("GS23,") + 5));
    for (std::string value; std::getline(row, value, ',');)
        values.push_back(ParseDouble(value));
    ASSERT_EQ(values.size(), 11U);
    EXPECT_NEAR(values[0], 4.4, 1e-6);
    for (std::size_t channel = 0; channel < kTonalChannels; ++channel) {
        EXPECT_EQ(values[1 + channel], data.m_patches[23].scan[channel]);
        EXPECT_NEAR(values[7 + channel], values[1 + channel] - values[4 + channel], 1e-12);
    }
    EXPECT_NEAR(values[10], -std::log10(4.4 / 903.3), 1e-7);
}

} // namespace
} // namespace vireo
