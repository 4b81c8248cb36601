#include "viewers/controls/ProfileAnalysis.h"
#include "viewers/controls/ProfileScene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace vireo {
namespace {

TEST(FocusFigure, IsTheMeanSquaredDifference)
{
    // Differences 3, -4, 0, 12: (9 + 16 + 0 + 144) / 4.
    EXPECT_DOUBLE_EQ(FocusFigure(std::vector<std::uint8_t>{10, 13, 9, 9, 21}), 42.25);
    EXPECT_EQ(FocusFigure(std::vector<std::uint8_t>(100, 77)), 0.0);
    EXPECT_EQ(FocusFigure(std::vector<std::uint8_t>{5}), 0.0);
    EXPECT_EQ(FocusFigure({}), 0.0);
}

TEST(FocusFigure, IsLargerForASharperPictureOfTheSameLines)
{
    std::vector<std::uint8_t> sharp;
    std::vector<std::uint8_t> soft;
    for (int i = 0; i < 50; ++i) {
        for (const int value : {40, 40, 200, 200})
            sharp.push_back(static_cast<std::uint8_t>(value));
        for (const int value : {80, 80, 160, 160})
            soft.push_back(static_cast<std::uint8_t>(value));
    }
    EXPECT_GT(FocusFigure(sharp), 3.9 * FocusFigure(soft));
}

/// A dark line with a bright target whose edges run over one part-covered pixel each.
std::vector<std::uint8_t> Target(int length, int from, int to, int atFrom, int atTo)
{
    std::vector<std::uint8_t> samples(static_cast<std::size_t>(length), 20);
    for (int i = from; i < to; ++i)
        samples[static_cast<std::size_t>(i)] = 220;
    samples[static_cast<std::size_t>(from - 1)] = static_cast<std::uint8_t>(atFrom);
    samples[static_cast<std::size_t>(to)] = static_cast<std::uint8_t>(atTo);
    return samples;
}

TEST(TargetEdges, AreFoundToAPartOfAPixel)
{
    // Threshold 120. A pixel of 120 is the first at the threshold: the crossing is at its centre.
    const TargetEdges edges = FindTargetEdges(Target(2000, 300, 1700, 120, 120));
    ASSERT_TRUE(edges.left && edges.right);
    EXPECT_DOUBLE_EQ(*edges.left, 299.5);
    EXPECT_DOUBLE_EQ(*edges.right, 1700.5);
    EXPECT_DOUBLE_EQ(*edges.Width(), 1401.0);
    EXPECT_DOUBLE_EQ(*edges.Centre(), 1000.0);

    // 20 to 220 between the centres 299.5 and 300.5 crosses 120 half way.
    EXPECT_DOUBLE_EQ(*FindTargetEdges(Target(2000, 300, 1700, 20, 20)).left, 300.0);
    // A covered share of 3/4 (170) moves the edge: 20 at 298.5, 170 at 299.5; 120 at 2/3 between.
    EXPECT_NEAR(*FindTargetEdges(Target(2000, 300, 1700, 170, 20)).left, 298.5 + 2.0 / 3.0, 1e-12);
}

TEST(TargetEdges, PassOverDustOutsideAndInside)
{
    std::vector<std::uint8_t> samples = Target(2000, 300, 1700, 20, 20);
    for (const std::size_t at : {50U, 51U, 52U, 53U, 1950U})
        samples[at] = 240; // bright specks outside
    for (const std::size_t at : {301U, 303U, 900U, 1698U})
        samples[at] = 25; // dark ones inside
    const TargetEdges edges = FindTargetEdges(samples);
    EXPECT_DOUBLE_EQ(*edges.left, 300.0);
    EXPECT_DOUBLE_EQ(*edges.right, 1700.0);
}

TEST(TargetEdges, AreMissingWhereThereAreNone)
{
    EXPECT_FALSE(FindTargetEdges(std::vector<std::uint8_t>(500, 130)).left);
    EXPECT_FALSE(FindTargetEdges({}).left);
    std::vector<std::uint8_t> reachesLeftEnd(1000, 210);
    std::fill(reachesLeftEnd.begin() + 800, reachesLeftEnd.end(), std::uint8_t{15});
    const TargetEdges edges = FindTargetEdges(reachesLeftEnd);
    EXPECT_FALSE(edges.left);
    EXPECT_FALSE(edges.Width());
    EXPECT_DOUBLE_EQ(edges.right.value_or(-1.0), 800.0);
}

TEST(Boundary, ComparesTheMeansOfItsSides)
{
    std::vector<std::uint8_t> samples(100, 100);
    for (std::size_t i = 50; i < 100; ++i)
        samples[i] = 110;
    samples[49] = 104; // mean of the last four on the left: 101
    const auto means = MeasureBoundary(samples, 50, 4);
    ASSERT_TRUE(means);
    EXPECT_DOUBLE_EQ(means->left, 101.0);
    EXPECT_DOUBLE_EQ(means->right, 110.0);
    EXPECT_DOUBLE_EQ(means->Step(), 9.0);
    EXPECT_FALSE(MeasureBoundary(samples, 0, 4));
    EXPECT_FALSE(MeasureBoundary(samples, 100, 4));
    EXPECT_FALSE(MeasureBoundary(std::span<const std::uint8_t>(), 50, 4));
}

TEST(Transition, LiesAtTheCentreOfTheSlope)
{
    std::vector<std::uint8_t> samples(200, 40);
    std::fill(samples.begin() + 103, samples.end(), std::uint8_t{200});
    EXPECT_DOUBLE_EQ(FindTransition(samples, 100, 40).value_or(-1), 103.0);
    samples[103] = 80; // steps of 40 at 103 and 120 at 104: 103.75
    EXPECT_DOUBLE_EQ(FindTransition(samples, 100, 40).value_or(-1), 103.75);
    // A falling edge counts as well.
    for (std::uint8_t& sample : samples)
        sample = static_cast<std::uint8_t>(255 - sample);
    EXPECT_DOUBLE_EQ(FindTransition(samples, 100, 40).value_or(-1), 103.75);
}

TEST(Transition, IsMissingWhereNoSlopeStandsOut)
{
    std::vector<std::uint8_t> samples(200, 90);
    EXPECT_FALSE(FindTransition(samples, 100, 40));
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = static_cast<std::uint8_t>(i % 2 == 0 ? 90 : 130); // one step like another
    EXPECT_FALSE(FindTransition(samples, 100, 40));
    EXPECT_FALSE(FindTransition({}, 100, 40));
    EXPECT_FALSE(FindTransition(samples, 5000, 40));
}

/// Two cameras of 1,000 pixels, the second 10 brighter, a target from 100 to 1,900.
struct TwoCameras {
    TwoCameras()
    {
        cameras.pixels = {1000, 1000};
        cameras.pixelPitchMm = 0.05;
        std::vector<std::uint8_t> samples(2000, 20);
        for (std::size_t i = 100; i < 1900; ++i)
            samples[i] = i < 1000 ? 180 : 190;
        for (ProfileLine::Trace& plane : line.planes)
            plane.samples = samples;
        auto& blue = line.Of(Plane::Blue).samples;
        std::fill(blue.begin() + 1005, blue.begin() + 1900, std::uint8_t{250});
        line.Summarise();
    }

    ProfileLine line;
    ProfileCameras cameras;
};

struct SceneCase {
    const char* name;
    ProfileRequest request;
    ProfileView view;
    const char* title;
};

class ProfileSceneCases : public testing::TestWithParam<SceneCase> { };

TEST_P(ProfileSceneCases, ShowsTheStretchAndSaysTheResult)
{
    const TwoCameras data;
    const SceneCase& row = GetParam();
    const ProfileScene scene =
        ComposeScene(row.request, data.line, ShownColour::Green, data.cameras);
    EXPECT_DOUBLE_EQ(scene.view.first, row.view.first) << row.name;
    EXPECT_DOUBLE_EQ(scene.view.length, row.view.length) << row.name;
    EXPECT_EQ(scene.title, row.title) << row.name;
}

constexpr auto kLeft = ProfileSide::Left;
constexpr auto kRight = ProfileSide::Right;

INSTANTIATE_TEST_SUITE_P(Modes, ProfileSceneCases,
    testing::Values(SceneCase{"overview", {ProfileMode::Overview, kLeft, 0}, {0, 2000}, ""},
        SceneCase{"start of camera B", {ProfileMode::Camera, kLeft, 1}, {1000, 125},
            "Camera B, first 125 of 1000 pixels"},
        SceneCase{"end of camera A", {ProfileMode::Camera, kRight, 0}, {875, 125},
            "Camera A, last 125 of 1000 pixels"},
        SceneCase{"a camera that is not there", {ProfileMode::Camera, kLeft, 2}, {0, 2000},
            "Camera C has no pixels"},
        SceneCase{"left of the boundary", {ProfileMode::LightProfile, kLeft, 0}, {938, 62},
            "Camera A at A | B: mean 180.0"},
        SceneCase{"right of the boundary", {ProfileMode::LightProfile, kRight, 0}, {1000, 62},
            "Camera B at A | B: mean 190.0, step +10.0 (+5.6 %)"},
        SceneCase{"the last camera is shown with its left neighbour",
            {ProfileMode::LightProfile, kLeft, 1}, {938, 62}, "Camera A at A | B: mean 180.0"},
        // Half way from 20 to the bright level of 190 is 105: 75/160 before the centre of pixel
        // 100.
        SceneCase{"left edge", {ProfileMode::ScanWidth, kLeft, 0}, {36.03125, 128},
            "Left edge at 100.03 px = 5.00 mm"},
        SceneCase{"right edge and width", {ProfileMode::ScanWidth, kRight, 0}, {1836, 128},
            "Width between edges 1799.97 px = 90.00 mm"},
        SceneCase{"transitions of the planes", {ProfileMode::VerticalPositioning, kLeft, 1},
            {952, 96}, "Transition from pixel 1000: Blue +5.00"}));

TEST(ProfileScene, ABoundaryHasRoomForEveryPlaneThatIsShown)
{
    const TwoCameras data;
    const ProfileRequest request{ProfileMode::LightProfile, kRight, 0};
    const auto green = ComposeScene(request, data.line, ShownColour::Green, data.cameras);
    EXPECT_EQ(green.low, 177.0); // 180 to 190, and air up to 16 levels.
    EXPECT_EQ(green.high, 193.0);
    const auto all = ComposeScene(request, data.line, ShownColour::All, data.cameras);
    EXPECT_EQ(all.low, 173.0); // Blue goes up to 250.
    EXPECT_EQ(all.high, 255.0);
    EXPECT_EQ(all.title, "Camera B at A | B: mean 190.0 (green), step +10.0 (+5.6 %)");
}

TEST(ProfileScene, HasAnAnswerForEveryRequestOnAnyLine)
{
    const ProfileLine empty;
    ProfileCameras liar; // cameras that the line does not have
    liar.pixels = {5000, -7, 2000000000, 2000000000, 0, 0, 0, 3};
    ProfileLine tiny;
    tiny.Of(Plane::Green).samples = {1, 2, 3};
    tiny.Summarise();
    const TwoCameras data;
    for (const ProfileLine* line : {&empty, static_cast<const ProfileLine*>(&tiny), &data.line}) {
        for (const ProfileCameras& cameras : {ProfileCameras(), liar, data.cameras}) {
            for (int mode = 0; mode <= 4; ++mode) {
                for (int camera = -1; camera <= 9; ++camera) {
                    const ProfileRequest request{
                        static_cast<ProfileMode>(mode), kRight, camera, camera};
                    const ProfileScene scene =
                        ComposeScene(request, *line, ShownColour::Red, cameras);
                    const double length = std::max(static_cast<double>(line->Length()), 1.0);
                    EXPECT_GE(scene.view.first, 0.0);
                    EXPECT_GT(scene.view.length, 0.0);
                    EXPECT_LE(scene.view.End(), length + 1e-9);
                    EXPECT_LT(scene.low, scene.high);
                }
            }
        }
    }
}

} // namespace
} // namespace vireo
