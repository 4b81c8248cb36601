#include "scanner/LineAcquisition.h"
#include "tests/scanner/TestScanners.h"
#include "tests/scanner/WatchedScanner.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>

namespace vireo {
namespace {

using Error = ScannerError;

class LineAcquisitionTest : public testing::Test {
protected:
    void Open()
    {
        OpenScanner opened;
        ASSERT_FALSE(OpenDevice(std::make_unique<WatchedScanner>(watch, setup), opened));
        acquisition = std::make_unique<LineAcquisition>(std::move(opened));
    }
    /// Waits for something that the thread does; far longer than it ever takes.
    static bool Becomes(const std::function<bool()>& condition)
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
        while (!condition()) {
            if (std::chrono::steady_clock::now() > end)
                return false;
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return true;
    }
    bool TakeLine()
    {
        return Becomes([this] { return acquisition->TakeNewest(line); });
    }

    Watch watch;
    SimulatedSetup setup = FastSimulation();
    std::unique_ptr<LineAcquisition> acquisition;
    AcquiredLine line;
};

TEST_F(LineAcquisitionTest, GivesNewLinesWhileItRuns)
{
    Open();
    EXPECT_FALSE(acquisition->TakeNewest(line));
    EXPECT_EQ(acquisition->Identity().LinePixels(), 21624U);
    acquisition->Start();
    EXPECT_TRUE(acquisition->IsRunning());
    std::uint64_t last = 0;
    for (int i = 0; i < 20; ++i) {
        ASSERT_TRUE(TakeLine());
        EXPECT_GT(line.number, last);
        last = line.number;
        EXPECT_EQ(line.line.planes[2].size(), 21624U);
        EXPECT_EQ(line.paper, PaperStatus::Loaded);
        EXPECT_EQ(line.averaged, 1);
    }
    acquisition->Stop();
    EXPECT_FALSE(acquisition->IsRunning());
    acquisition.reset();
    EXPECT_EQ(watch.opens, 1);
    EXPECT_EQ(watch.closes, 1);
    EXPECT_FALSE(watch.overlapped);
}

TEST_F(LineAcquisitionTest, AveragesAndHolds)
{
    Open();
    acquisition->SetAverage(16);
    acquisition->Start();
    ASSERT_TRUE(Becomes([this] { return acquisition->TakeNewest(line) && line.averaged == 16; }));
    for (std::size_t pixel = 0; pixel < 1000; ++pixel) {
        EXPECT_LE(line.hold.lowest.planes[1][pixel], line.line.planes[1][pixel]);
        EXPECT_GE(line.hold.highest.planes[1][pixel], line.line.planes[1][pixel]);
    }
}

TEST_F(LineAcquisitionTest, ASheetThatComesOrGoesBeginsTheAverageAnew)
{
    setup.sheetLines = 40;
    setup.gapLines = 40;
    Open();
    acquisition->SetAverage(64);
    acquisition->Start();
    bool seen[2] = {};
    ASSERT_TRUE(Becomes([&] {
        if (!acquisition->TakeNewest(line))
            return false;
        const bool isLoaded = line.paper == PaperStatus::Loaded;
        seen[isLoaded ? 1 : 0] = true;
        EXPECT_EQ(line.line.planes[0][10000] > 100, isLoaded);
        EXPECT_EQ(line.hold.lowest.planes[0][10000] > 100, isLoaded);
        EXPECT_LE(line.averaged, 40);
        return seen[0] && seen[1];
    }));
}

TEST_F(LineAcquisitionTest, ChangesValuesBetweenLines)
{
    Open();
    ScannerValues values;
    ASSERT_TRUE(acquisition->TakeValues(values)) << "as they were when it was opened";
    EXPECT_FALSE(acquisition->TakeValues(values));
    acquisition->ChangeValue(ScannerSetting::Gain, {2, 1}, 77); // Also while it stands still.
    ASSERT_TRUE(Becomes([&] { return acquisition->TakeValues(values); }));
    EXPECT_EQ(values.ValueOf(ScannerSetting::Gain, {2, 1}), 77);
    acquisition->Start();
    for (int value = 0; value < 50; ++value)
        acquisition->ChangeValue(ScannerSetting::Offset, {0, 0}, value);
    ASSERT_TRUE(Becomes([&] {
        acquisition->TakeValues(values);
        return values.ValueOf(ScannerSetting::Offset, {0, 0}) == 49;
    }));
    EXPECT_FALSE(watch.overlapped);
}

TEST_F(LineAcquisitionTest, ARefusedValueIsToldAndEndsNothing)
{
    Open();
    acquisition->Start();
    acquisition->ChangeValue(ScannerSetting::Stitch, {0, 0}, 1000);
    std::optional<ScannerFailure> failure;
    ASSERT_TRUE(Becomes([&] { return (failure = acquisition->TakeFailure()).has_value(); }));
    EXPECT_EQ(failure->error, Error::StitchOutOfRange);
    EXPECT_TRUE(acquisition->IsRunning());
    ASSERT_TRUE(TakeLine());
}

TEST_F(LineAcquisitionTest, AFailureIsToldOnceAndStartOpensAnew)
{
    Open();
    watch.fails = true;
    acquisition->Start();
    std::optional<ScannerFailure> failure;
    ASSERT_TRUE(Becomes([&] { return (failure = acquisition->TakeFailure()).has_value(); }));
    EXPECT_EQ(failure->error, Error::LibraryError);
    EXPECT_EQ(failure->libraryError, Error::Unknown) << "the library gives no reason";
    EXPECT_FALSE(acquisition->IsRunning());
    EXPECT_FALSE(acquisition->TakeFailure());

    watch.openError = 101;
    acquisition->Start();
    ASSERT_TRUE(Becomes([&] { return (failure = acquisition->TakeFailure()).has_value(); }));
    EXPECT_EQ(failure->error, Error::NoScanner);
    EXPECT_FALSE(acquisition->IsRunning());

    watch.openError = 0;
    watch.fails = false;
    static_cast<void>(acquisition->TakeNewest(line));
    acquisition->Start();
    EXPECT_TRUE(TakeLine());
    EXPECT_TRUE(acquisition->IsRunning());
}

TEST_F(LineAcquisitionTest, ALibrarysOwnCodeIsKept)
{
    OpenScanner opened;
    ASSERT_FALSE(OpenDevice(MakeTestLibraryScanner(), opened));
    acquisition = std::make_unique<LineAcquisition>(std::move(opened));
    acquisition->Start();
    std::optional<ScannerFailure> failure;
    ASSERT_TRUE(Becomes([&] { return (failure = acquisition->TakeFailure()).has_value(); }));
    EXPECT_EQ(static_cast<int>(failure->libraryError), 850);
}

TEST_F(LineAcquisitionTest, ADeviceThatCannotBeOpenedIsTold)
{
    watch.openError = 101;
    OpenScanner opened;
    const ScannerFailure failure =
        OpenDevice(std::make_unique<WatchedScanner>(watch, setup), opened);
    EXPECT_EQ(failure.error, Error::NoScanner);
    EXPECT_EQ(opened.device, nullptr);
}

TEST_F(LineAcquisitionTest, EndsAtAnyMoment)
{
    for (int i = 0; i < 30; ++i) {
        Open();
        if (i % 3 != 0)
            acquisition->Start();
        if (i % 2 == 0)
            acquisition->ChangeValue(ScannerSetting::Gain, {0, 0}, i);
        if (i % 5 == 1 && i % 3 != 0) {
            EXPECT_TRUE(TakeLine());
        }
        acquisition.reset();
        EXPECT_EQ(watch.closes, i + 1);
    }
    EXPECT_FALSE(watch.overlapped);
}

} // namespace
} // namespace vireo
