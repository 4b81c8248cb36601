#include "app/ProgramLimits.h"
#include "platform/Message.h"
#include "tests/TempFolder.h"
#include "viewers/adjustment/CAdjustCenterCCD_Dialog.h"
#include "viewers/controls/PlotFurniture.h"
#include "viewers/controls/ViewerHost.h"
#include "viewers/lightprofile/CView_LPF_Dialog.h"
#include "viewers/noise/CNoiseTest_SM_Dialog.h"
#include "viewers/oscilloscope/COscilloscope_Dialog.h"
#include "viewers/picture/CPictureView_Dialog.h"
#include "viewers/startest/CStarTest_Dialog.h"
#include "viewers/stitch/CView_Stitch_Dialog.h"
#include "viewers/tonal/CTonalResolutionDialog.h"

#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace vireo {
namespace {

const std::filesystem::path kSamples = VIREO_SAMPLES;

LimitsAnswer AnswerOf(ProgramLimits& limits, const LimitsQuestion& question)
{
    limits.Ask(question);
    std::optional<LimitsAnswer> answer;
    EXPECT_TRUE(QTest::qWaitFor([&] { return (answer = limits.TakeAnswer()).has_value(); }));
    return answer.value_or(LimitsAnswer());
}

TEST(ProgramLimits, TheChoiceIsKept)
{
    const TempFolder folder;
    const auto settings = folder.Path() / "new" / "Vireo.ini";
    EXPECT_TRUE(ProgramLimits(settings).Chosen().empty());
    ProgramLimits(settings).Choose(PathFromUtf8("/limits \xC3\xA9.txt"));
    EXPECT_EQ(ProgramLimits(settings).Chosen(), PathFromUtf8("/limits \xC3\xA9.txt"));
    ProgramLimits(settings).Choose({});
    EXPECT_TRUE(ProgramLimits(settings).Chosen().empty());
}

TEST(ProgramLimits, AnswersOfEveryFileAndEveryFault)
{
    const TempFolder folder;
    ProgramLimits limits(folder.Path() / "Vireo.ini");
    limits.Choose(kSamples / "limits" / "final-test.txt");
    const LimitsAnswer lines = AnswerOf(limits, {kSamples / "oscilloscope-lines.con", 5});
    ASSERT_TRUE(lines.verdict);
    EXPECT_EQ(lines.verdict->checked, 12U);
    EXPECT_EQ(lines.failure, "");
    EXPECT_GE(lines.limits.size(), 8U);
    const LimitsAnswer none = AnswerOf(limits, {kSamples / "oscilloscope-lines.con", 5000});
    EXPECT_FALSE(none.verdict);
    EXPECT_TRUE(none.failure.starts_with("There is no line 5000"));
    EXPECT_FALSE(AnswerOf(limits, {folder.Path() / "missing.con"}).verdict);

    limits.Choose(folder.Write("bad.txt", "[noise]\nnothing > 0\n"));
    const LimitsAnswer bad = AnswerOf(limits, {kSamples / "noise-gray.con"});
    EXPECT_FALSE(bad.verdict);
    EXPECT_NE(bad.failure.find("Line 2: "), std::string::npos);
}

class NoHost : public ViewerHost {
public:
    bool OpenViewer(std::string_view, const std::filesystem::path&, QWidget*) override
    {
        return false;
    }
    bool OpenPicture(const MarkedPicture&, QWidget*) override { return false; }
    bool UnpackDump(const std::filesystem::path&, QWidget*) override { return false; }
};

using MakeViewer = std::unique_ptr<CViewerDialog> (*)(const std::filesystem::path&, ViewerHost&);

template <typename Dialog>
std::unique_ptr<CViewerDialog> Make(const std::filesystem::path& file, ViewerHost&)
{
    return std::make_unique<Dialog>(file, nullptr);
}

struct ViewerCase {
    const char* sample;
    MakeViewer make;
    const char* badge;
    bool hasMarks;
};

class ViewerVerdictTest : public testing::TestWithParam<ViewerCase> { };

/// Whether a picture has a pixel of the colour of limits.
bool HasMarks(const QImage& picture)
{
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixelColor(x, y) == PlotColour::kLimit)
                return true;
    return false;
}

TEST_P(ViewerVerdictTest, IsThatOfTheCommandLine)
{
    const TempFolder folder;
    const MessageRecorder messages;
    auto limits = std::make_unique<ProgramLimits>(folder.Path() / "Vireo.ini");
    limits->Choose(kSamples / "limits" / "final-test.txt");
    NoHost host;
    const auto viewer = GetParam().make(kSamples / GetParam().sample, host);
    viewer->UseLimits(std::move(limits));
    viewer->resize(900, 600);
    viewer->show();
    const auto* const badge = viewer->findChild<QToolButton*>("verdictBadge");
    ASSERT_TRUE(QTest::qWaitFor([&] { return badge->isVisible(); }));
    EXPECT_EQ(badge->text(), GetParam().badge);
    EXPECT_EQ(HasMarks(viewer->grab().toImage()), GetParam().hasMarks);
}

INSTANTIATE_TEST_SUITE_P(Viewers, ViewerVerdictTest,
    testing::Values(
        ViewerCase{"noise-four-planes.con", Make<CNoiseTest_SM_Dialog>, "Fail: 1 of 5", true},
        ViewerCase{"noise-gray.con", Make<CNoiseTest_SM_Dialog>, "Pass", true},
        ViewerCase{"oscilloscope-color.con",
            [](const std::filesystem::path& file,
                ViewerHost& host) -> std::unique_ptr<CViewerDialog> {
                return std::make_unique<COscilloscope_Dialog>(file, false, host);
            },
            "Pass", true},
        ViewerCase{"startest-sweeps.con",
            [](const std::filesystem::path& file,
                ViewerHost& host) -> std::unique_ptr<CViewerDialog> {
                return std::make_unique<CStarTest_Dialog>(file, host);
            },
            "Fail: 6 of 25", true},
        ViewerCase{"stitch-binary.con", Make<CView_Stitch_Dialog>, "Fail: 1 of 3", false},
        ViewerCase{"tonal-resolution.con", Make<CTonalResolutionDialog>, "Pass", false},
        ViewerCase{"light-profile-gray.con", Make<CView_LPF_Dialog>, "Pass", false},
        ViewerCase{"adjust-center-ccd.con", Make<CAdjustCenterCCD_Dialog>, "Pass", false},
        ViewerCase{"picture-rgb.tif", Make<CPictureView_Dialog>, "Fail: 1 of 3", false}));

} // namespace
} // namespace vireo
