#include "viewers/controls/TargetDeviation.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vireo {
namespace {

/// A line of 1000 pixels, dark but for the green target from `from` to `to`.
ProfileLine TargetLine(int from, int to)
{
    ProfileLine line;
    auto& samples = line.Of(Plane::Green).samples;
    samples.assign(1000, 10);
    std::fill(samples.begin() + from, samples.begin() + to, std::uint8_t{200});
    return line;
}

constexpr double kHalfAPixelMm = 0.05;

TEST(CameraAdjustmentTest, ATargetInTheMiddleDeviatesByNothing)
{
    const auto deviation =
        MeasureTargetDeviation(TargetLine(150, 850), {{1000}, 0.1}, ShownColour::Green);
    ASSERT_TRUE(deviation);
    EXPECT_NEAR(deviation->leftMm, 0.0, kHalfAPixelMm);
    EXPECT_NEAR(deviation->rightMm, 0.0, kHalfAPixelMm);
}

TEST(CameraAdjustmentTest, ATargetTooFarRightLeavesTooMuchAtTheLeft)
{
    // Margins of 170 and 130 pixels, where 150 each would be right: 20 pixels of 0.1 mm.
    const auto deviation =
        MeasureTargetDeviation(TargetLine(170, 870), {{1000}, 0.1}, ShownColour::All);
    ASSERT_TRUE(deviation);
    EXPECT_NEAR(deviation->leftMm, 2.0, kHalfAPixelMm);
    EXPECT_NEAR(deviation->rightMm, -2.0, kHalfAPixelMm);
}

TEST(CameraAdjustmentTest, WithoutBothEdgesOrTheirDistanceThereIsNothingToTell)
{
    const ProfileCameras cameras{{1000}, 0.1};
    EXPECT_FALSE(MeasureTargetDeviation(TargetLine(0, 0), cameras, ShownColour::Green));
    EXPECT_FALSE(MeasureTargetDeviation(TargetLine(0, 800), cameras, ShownColour::Green));
    EXPECT_FALSE(MeasureTargetDeviation(TargetLine(150, 850), cameras, ShownColour::Red));
    EXPECT_FALSE(MeasureTargetDeviation(TargetLine(150, 850), {{1000}, 0.0}, ShownColour::Green));
}

} // namespace
} // namespace vireo
