#include "viewers/oscilloscope/OscilloscopeChoices.h"
#include "viewers/oscilloscope/OscilloscopeData.h"

#include <gtest/gtest.h>

#include <string>

namespace vireo {
namespace {

std::string Offered(const OscilloscopeChoices& choices)
{
    std::string letters;
    for (int camera = 0; camera < ProfileCameras::kCameras; ++camera) {
        if (choices.cameras[static_cast<std::size_t>(camera)])
            letters += ProfileCameras::Letter(camera);
    }
    return letters;
}

TEST(OscilloscopeChoicesTest, ACameraOfFewerThanTenPixelsIsNotOffered)
{
    OscilloscopeData data;
    data.m_iCameraPixels = {9, 10, 0, 5000, -3, 11, 0, 0};
    EXPECT_EQ(Offered(ChoicesFor(data, 0)), "BDF");
}

struct CameraCase {
    const char* name;
    int before;
    int expected;
};

class ChosenCameraTest : public testing::TestWithParam<CameraCase> { };

TEST_P(ChosenCameraTest, IsOneThatIsOffered)
{
    OscilloscopeData data;
    data.m_iCameraPixels = {0, 100, 100, 0, 0, 0, 0, 100};
    EXPECT_EQ(ChoicesFor(data, GetParam().before).camera, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(All, ChosenCameraTest,
    testing::Values(CameraCase{"TheOneBefore", 2, 2}, CameraCase{"TheLast", 7, 7},
        CameraCase{"TheFirstForOneThatIsGone", 4, 1}, CameraCase{"TheFirstAtTheStart", 0, 1}),
    [](const auto& test) { return test.param.name; });

TEST(OscilloscopeChoicesTest, WithoutCamerasNothingIsOffered)
{
    const OscilloscopeChoices choices = ChoicesFor(OscilloscopeData(), 5);
    EXPECT_FALSE(choices.hasCameras);
    EXPECT_EQ(choices.camera, 0);
    EXPECT_EQ(Offered(choices), "");
}

struct ColourCase {
    const char* name;
    int color; ///< The header's value.
    int shownColor;
    ShownColour expected;
    bool isGray;
    bool hasEveryPlane;
};

class OfferedColoursTest : public testing::TestWithParam<ColourCase> { };

TEST_P(OfferedColoursTest, AreThoseOfTheData)
{
    const ColourCase& row = GetParam();
    OscilloscopeData data;
    data.m_iColor = row.color;
    data.m_iShownColor = row.shownColor;
    const OscilloscopeChoices choices = ChoicesFor(data, 0);
    EXPECT_EQ(choices.shown, row.expected);
    EXPECT_EQ(choices.isGray, row.isGray);
    EXPECT_EQ(choices.hasEveryPlane, row.hasEveryPlane);
}

INSTANTIATE_TEST_SUITE_P(All, OfferedColoursTest,
    testing::Values(ColourCase{"Corrected", 254, 2, ShownColour::Blue, false, true},
        ColourCase{"AllOfTheHeader", 3, 1, ShownColour::Green, false, true},
        ColourCase{"Gray", 4, 4, ShownColour::Gray, true, false},
        ColourCase{"BlueOfOnePlaneIsKeptAsGreen", 2, 2, ShownColour::Green, false, false}),
    [](const auto& test) { return test.param.name; });

TEST(OscilloscopeChoicesTest, CameraAdjustmentNeedsGenerationNineAndFiveCameras)
{
    OscilloscopeData data;
    data.m_iGeneration = 9;
    data.m_iCameraCount = 5;
    EXPECT_TRUE(ChoicesFor(data, 0).usesCameraAdjustment);
    data.m_iCameraCount = 4;
    EXPECT_FALSE(ChoicesFor(data, 0).usesCameraAdjustment);
    data.m_iCameraCount = 8;
    data.m_iGeneration = 8;
    EXPECT_FALSE(ChoicesFor(data, 0).usesCameraAdjustment);
}

} // namespace
} // namespace vireo
