#include "scanner/SimulatedScanner.h"
#include "tests/scanner/TestScanners.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

namespace vireo {
namespace {

using Error = ScannerError;

class SimulatedScannerTest : public testing::Test {
protected:
    static ScanLine LineOf(ScannerDevice& device)
    {
        ScanLine line;
        EXPECT_EQ(device.AcquireLine(line), Error::Ok);
        return line;
    }
    static std::unique_ptr<SimulatedScanner> Opened(const SimulatedSetup& setup)
    {
        auto device = std::make_unique<SimulatedScanner>(setup);
        EXPECT_EQ(device->Open(), Error::Ok);
        return device;
    }
    static double Mean(const ScanLine& line, std::size_t from, std::size_t count)
    {
        const auto first = line.planes[0].begin() + static_cast<std::ptrdiff_t>(from);
        return std::accumulate(first, first + static_cast<std::ptrdiff_t>(count), 0.0)
            / static_cast<double>(count);
    }

    SimulatedSetup setup = FastSimulation();
};

TEST_F(SimulatedScannerTest, TheSameSeedGivesTheSameLines)
{
    const auto first = Opened(setup);
    const auto second = Opened(setup);
    setup.seed = 2;
    const auto sister = Opened(setup);
    const ScanLine line = LineOf(*first);
    EXPECT_EQ(line.planes, LineOf(*second).planes);
    EXPECT_NE(line.planes, LineOf(*first).planes) << "noise differs from line to line";
    EXPECT_NE(line.planes, LineOf(*sister).planes);
}

TEST_F(SimulatedScannerTest, TypeAndModeChooseTheScanner)
{
    struct Row {
        int type;
        int mode;
        Error error;
        int cameras;
        int planes;
        int width;
    };
    const Row rows[] = {{4, 6, Error::Ok, 4, 3, 43248}, {5, 4, Error::Ok, 4, 1, 48000},
        {9, 2, Error::Ok, 5, 3, 60000}, {3, 6, Error::UnknownScanner, 0, 1, 0}};
    for (const Row& row : rows) {
        setup.type = row.type;
        setup.mode = row.mode;
        SimulatedScanner device(setup);
        EXPECT_EQ(device.Open(), row.error) << row.type;
        ScannerIdentity identity;
        static_cast<void>(device.GetIdentity(identity));
        EXPECT_EQ(identity.cameras, row.cameras) << row.type;
        EXPECT_EQ(identity.Planes(), row.planes) << row.type;
        EXPECT_EQ(identity.widthPer1200, row.width) << row.type;
    }
    ScannerIdentity identity;
    EXPECT_EQ(Opened({})->GetIdentity(identity), Error::Ok);
    EXPECT_EQ(identity.name, "SimulatedScanner");
    EXPECT_EQ(identity.generation, 4);
    EXPECT_EQ(identity.Resolution(), 600);
}

TEST_F(SimulatedScannerTest, TheLampFallsOffTowardsTheEndsUntilCorrected)
{
    const auto device = Opened(setup);
    const std::size_t pixels = LineOf(*device).planes[0].size();
    const ScanLine raw = LineOf(*device);
    EXPECT_GT(Mean(raw, pixels / 2, 500), Mean(raw, 0, 500) + 15.0);
    EXPECT_GT(Mean(raw, pixels / 2, 500), Mean(raw, pixels - 500, 500) + 15.0);
    EXPECT_EQ(device->SetValue(ScannerSetting::Correction, {}, 1), Error::Ok);
    const ScanLine corrected = LineOf(*device);
    for (std::size_t from = 0; from + 500 <= pixels; from += 500)
        EXPECT_NEAR(Mean(corrected, from, 500), 205.0, 1.0) << from;
}

TEST_F(SimulatedScannerTest, CamerasStepAtTheirBoundariesWhereTheStitchValuesAre)
{
    setup.mode |= SimulatedMode::kCorrects;
    const auto device = Opened(setup);
    int gain = 0;
    ASSERT_EQ(device->GetValue(ScannerSetting::Gain, {1, 0}, gain), Error::Ok);
    ASSERT_EQ(device->SetValue(ScannerSetting::Gain, {1, 0}, gain + 40), Error::Ok);
    for (const int stitch : {-32, 0, 7, 32}) {
        ASSERT_EQ(device->SetValue(ScannerSetting::Stitch, {0, 0}, stitch), Error::Ok);
        const ScanLine line = LineOf(*device);
        const auto boundary = static_cast<std::size_t>(5406 + stitch);
        // 40 of 256 more gain: about 30 levels, far above the noise of a pixel.
        EXPECT_GT(line.planes[0][boundary] - line.planes[0][boundary - 1], 15) << stitch;
    }
}

TEST_F(SimulatedScannerTest, TheOffsetIsAddedUntilTheSignalEnds)
{
    const auto device = Opened(setup);
    int offset = 0;
    ASSERT_EQ(device->GetValue(ScannerSetting::Offset, {0, 0}, offset), Error::Ok);
    const double before = Mean(LineOf(*device), 1000, 2000);
    ASSERT_EQ(device->SetValue(ScannerSetting::Offset, {0, 0}, offset + 40), Error::Ok);
    EXPECT_NEAR(Mean(LineOf(*device), 1000, 2000), before + 10.0, 0.2);
    ASSERT_EQ(device->SetValue(ScannerSetting::Gain, {0, 0}, 255), Error::Ok);
    EXPECT_EQ(Mean(LineOf(*device), 4000, 1000), 255.0);
}

TEST_F(SimulatedScannerTest, NoiseIsOfSomeTenthsToAFewLevels)
{
    const auto device = Opened(setup);
    double squares = 0.0;
    for (int i = 0; i < 50; ++i) {
        const auto first = LineOf(*device).planes[0];
        const auto second = LineOf(*device).planes[0];
        for (std::size_t pixel = 0; pixel < 2000; ++pixel)
            squares += std::pow(static_cast<double>(first[pixel]) - second[pixel], 2.0);
    }
    const double deviation = std::sqrt(squares / (50.0 * 2000.0 * 2.0));
    EXPECT_GT(deviation, 0.6);
    EXPECT_LT(deviation, 1.8);
}

TEST_F(SimulatedScannerTest, ASheetComesAndGoes)
{
    setup.sheetLines = 3;
    setup.gapLines = 2;
    const auto device = Opened(setup);
    std::string seen;
    for (int i = 0; i < 10; ++i) {
        PaperStatus paper = PaperStatus::None;
        ASSERT_EQ(device->GetPaperStatus(paper), Error::Ok);
        const bool isBright = Mean(LineOf(*device), 10000, 500) > 100.0;
        EXPECT_EQ(isBright, paper == PaperStatus::Loaded) << i;
        seen += isBright ? 'S' : '.';
    }
    EXPECT_EQ(seen, "SSS..SSS..");
}

} // namespace
} // namespace vireo
