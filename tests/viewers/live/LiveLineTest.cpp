#include "platform/Text.h"
#include "viewers/live/LiveLine.h"
#include "viewers/live/LiveText.h"
#include "viewers/noise/NoiseData.h"
#include "viewers/noise/NoiseVerdict.h"

#include <gtest/gtest.h>

namespace vireo {
namespace {

ScannerIdentity TwoCameras(bool isColour)
{
    ScannerIdentity identity;
    identity.name = "Kite";
    identity.isColour = isColour;
    identity.cameras = 2;
    identity.cameraPixels = {2, 3};
    identity.widthPer1200 = 6000;
    return identity;
}

using Samples = std::vector<std::uint8_t>;

TEST(LiveLine, PlanesGoWhereThePlotHasThem)
{
    AcquiredLine acquired;
    acquired.line.planes = {Samples{1, 1, 1, 1, 1}, Samples{2, 2, 2, 2, 2}, Samples(5, 3)};
    acquired.hold.lowest.planes = {Samples(5, 10), Samples(5, 20), Samples(5, 30)};
    acquired.hold.highest.planes = {Samples(5, 110), Samples(5, 120), Samples(5, 130)};
    struct Row {
        bool isColour;
        ShownColour shown;
        int plane;
        int lowest; ///< 0: not shown.
    };
    const Row rows[] = {{true, ShownColour::Red, 0, 10}, {true, ShownColour::Green, 1, 20},
        {true, ShownColour::Blue, 2, 30}, {true, ShownColour::All, 1, 0},
        {false, ShownColour::Gray, 0, 10}};
    for (const Row& row : rows) {
        const ScannerIdentity identity = TwoCameras(row.isColour);
        EXPECT_EQ(ScannerPlane(identity, row.shown), row.plane);
        ProfileLine line;
        FillProfileLine(acquired, identity, row.shown, true, line);
        EXPECT_EQ(line.Of(Plane::Green).samples[0], row.isColour ? 2 : 1);
        EXPECT_EQ(line.Of(Plane::Blue).samples.size(), row.isColour ? 5U : 0U);
        ASSERT_EQ(line.extras.size(), row.lowest == 0 ? 0U : 2U);
        if (row.lowest != 0) {
            EXPECT_EQ(line.extras[0].trace.samples[4], row.lowest);
            EXPECT_EQ(line.extras[1].trace.samples[4], row.lowest + 100);
        }
        FillProfileLine(acquired, identity, row.shown, false, line);
        EXPECT_TRUE(line.extras.empty());
    }
    const ProfileCameras cameras = CamerasOf(TwoCameras(true));
    EXPECT_EQ(cameras.Start(1), 2);
    EXPECT_DOUBLE_EQ(cameras.pixelPitchMm, 25.4) << "five pixels on five inches";
}

TEST(LiveText, SaysWhatIsThere)
{
    ScannerIdentity identity = TwoCameras(true);
    EXPECT_EQ(ScannerText(identity), "Kite");
    identity.id = "K7";
    EXPECT_EQ(ScannerText(identity), "Kite (K7)");
    AcquiredLine line;
    line.number = 7;
    line.averaged = 1;
    EXPECT_EQ(AverageNote(line), "Line 7");
    line.averaged = 3;
    EXPECT_EQ(AverageNote(line), "Average of 3 lines");
    EXPECT_EQ(CursorNote({5410, 229.06, 1, 198}), "pixel 5410: 198, camera B, 229.06 mm");
    EXPECT_EQ(CursorNote({7, {}, {}, 0}), "pixel 7: 0");
    EXPECT_EQ(RateText(118.4, 0.0), "taking lines");
    EXPECT_EQ(RateText(118.4, 29.6), "118 lines/s, 30 shown");
    const CDateTime when{2026, 3, 1, 9, 5, 7, 0};
    const auto header = LiveHeaderLines(identity, ShownColour::Red, when, true);
    ASSERT_EQ(header.size(), 7U);
    EXPECT_EQ(header[3], "Date:          2026-03-01");
    EXPECT_EQ(header[4], "Time:          09:05:07");
}

/// A gray line of 200 pixels at 100, one of them at another value.
NoiseData LineWith(std::uint8_t value)
{
    std::vector<Samples> planes(1, Samples(200, 100));
    planes[0][50] = value;
    NoiseData data;
    data.TakeLine(planes);
    return data;
}

TEST(NoiseVerdict, JudgesByTheLimit)
{
    struct Row {
        int value;
        int limit;
        NoiseVerdict verdict;
    };
    const Row rows[] = {{95, 5, NoiseVerdict::Pass}, {94, 5, NoiseVerdict::Fail},
        {105, 5, NoiseVerdict::Pass}, {106, 5, NoiseVerdict::Fail}, {94, 6, NoiseVerdict::Pass},
        {107, 6, NoiseVerdict::Fail}, {99, 0, NoiseVerdict::Fail}, {100, 0, NoiseVerdict::Pass},
        {0, 2147483647, NoiseVerdict::Pass}};
    for (const Row& row : rows)
        EXPECT_EQ(
            JudgeNoise(LineWith(static_cast<std::uint8_t>(row.value)), row.limit), row.verdict)
            << row.value << " of 100 by " << row.limit;
    EXPECT_EQ(NoiseVerdictText(LineWith(94), 5), "Fail\nGray 1");
    EXPECT_EQ(JudgeNoise(NoiseData(), 5), NoiseVerdict::None);
    EXPECT_EQ(NoiseVerdictText(NoiseData(), 5), "");
}

TEST(NoiseVerdict, JudgesEveryPlane)
{
    std::vector<Samples> planes(3, Samples(300, 200));
    NoiseData data;
    data.TakeLine(planes);
    EXPECT_EQ(NoiseVerdictText(data, 5), "Pass");
    planes[2][10] = 255;
    planes[2][30] = 0;
    planes[0][0] = 100;
    data.m_shown = ShownColour::Blue;
    data.TakeLine(planes);
    EXPECT_EQ(NoiseVerdictText(data, 5), "Fail\nRed 1, Blue 2");
    EXPECT_EQ(data.m_shown, ShownColour::Blue) << "as it was";
    EXPECT_EQ(data.ShownAverage(), 200);
}

} // namespace
} // namespace vireo
