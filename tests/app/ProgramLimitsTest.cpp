#include "app/ProgramLimits.h"
#include "platform/Message.h"
#include "tests/TempFolder.h"
#include "tests/viewers/AltLetters.h"
#include "tests/viewers/DropFiles.h"
#include "tests/viewers/Waiting.h"
#include "viewers/adjustment/CAdjustCenterCCD_Dialog.h"
#include "viewers/adjustment/CVerticalCameraVerification_Dialog.h"
#include "viewers/controls/PlotFurniture.h"
#include "viewers/controls/ViewerHost.h"
#include "viewers/lightprofile/CView_LPF_Dialog.h"
#include "viewers/live/CNCTest_Dialog.h"
#include "viewers/noise/CNoiseTest_SM_Dialog.h"
#include "viewers/oscilloscope/COscilloscope_Dialog.h"
#include "viewers/picture/CPictureView_Dialog.h"
#include "viewers/startest/CStarTest_Dialog.h"
#include "viewers/stitch/CView_Stitch_Dialog.h"
#include "viewers/tonal/CTonalResolutionDialog.h"

#include <QAction>
#include <QCheckBox>
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
    EXPECT_TRUE(Becomes([&] { return (answer = limits.TakeAnswer()).has_value(); }));
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
    // By itself it is a light profile.
    EXPECT_EQ(AnswerOf(limits, {kSamples / "noise-binary.con"}).verdict->checked, 1U);
    EXPECT_EQ(AnswerOf(limits, {kSamples / "noise-binary.con", 0, "noise"}).verdict->checked, 5U);

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
std::unique_ptr<CViewerDialog> Make(const std::filesystem::path& file, ViewerHost& host)
{
    if constexpr (std::is_same_v<Dialog, COscilloscope_Dialog>)
        return std::make_unique<Dialog>(file, std::filesystem::is_directory(file), host);
    else if constexpr (std::is_same_v<Dialog, CStarTest_Dialog>)
        return std::make_unique<Dialog>(file, host);
    else
        return std::make_unique<Dialog>(file, nullptr);
}

struct ViewerCase {
    const char* sample;
    MakeViewer make;
    const char* badge;
    bool hasMarks;
    bool keepsFile = true; ///< When another one is refused.
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
    ASSERT_TRUE(Becomes([&] { return badge->isVisible(); }));
    EXPECT_EQ(badge->text(), GetParam().badge);
    EXPECT_EQ(HasMarks(viewer->grab().toImage()), GetParam().hasMarks);
}

/// The commands that work on what is on view, by their enabled state.
void ExpectContentCommands(const CViewerDialog& viewer, bool areEnabled)
{
    int found = 0;
    for (const QAction* command : viewer.findChildren<QAction*>()) {
        const QString text = QString(command->text()).remove('&');
        for (const char* start : {"Save", "Print", "Export", "Copy", "Show Header", "Picture Inf"})
            if (text.startsWith(QLatin1String(start))) {
                EXPECT_EQ(command->isEnabled(), areEnabled) << text.toStdString();
                ++found;
            }
    }
    EXPECT_GE(found, 4);
}

TEST_P(ViewerVerdictTest, WhatARefusedFileLeavesIsNotJudgedAsThatFile)
{
    const TempFolder folder;
    const MessageRecorder messages;
    NoHost host;
    const auto other = folder.Write("other.con", "not a test result");
    const auto empty = folder.Write("empty.con", "");
    const auto open = [&](const std::filesystem::path& file) {
        auto viewer = GetParam().make(file, host);
        auto limits = std::make_unique<ProgramLimits>(folder.Path() / "Vireo.ini");
        limits->Choose(kSamples / "limits" / "final-test.txt");
        viewer->UseLimits(std::move(limits));
        viewer->show();
        LetPass(1);
        return viewer;
    };
    const auto shows = [](const CViewerDialog& viewer, const char* verdict) {
        const auto* const badge = viewer.findChild<QToolButton*>("verdictBadge");
        return Becomes([&] { return badge->isVisible() && badge->text() == verdict; });
    };

    const auto viewer = open(kSamples / GetParam().sample);
    std::vector<std::filesystem::path> reported;
    viewer->ReportFiles([&](const auto& file) { reported.push_back(file); });
    ExpectContentCommands(*viewer, true);
    EXPECT_TRUE(shows(*viewer, GetParam().badge));
    ASSERT_TRUE(DropFiles(*viewer, {UrlOf(other)}));
    ASSERT_TRUE(Becomes([&] { return messages.Messages().size() == 1; }));
    EXPECT_TRUE(messages.Messages()[0].text.starts_with(
        "Vireo cannot open this file:\n" + Utf8FromPath(other) + "\n\n"));
    EXPECT_TRUE(shows(*viewer, GetParam().keepsFile ? GetParam().badge : "Not checked"));
    ExpectContentCommands(*viewer, GetParam().keepsFile);
    EXPECT_EQ(reported, std::vector<std::filesystem::path>{kSamples / GetParam().sample});

    const auto refusing = open(empty);
    ASSERT_TRUE(Becomes([&] { return messages.Messages().size() == 2; }));
    if (qobject_cast<CView_Stitch_Dialog*>(refusing.get()))
        return; // There is no viewer of nothing.
    EXPECT_TRUE(shows(*refusing, "Not checked"));
    ExpectContentCommands(*refusing, false);
}

INSTANTIATE_TEST_SUITE_P(Viewers, ViewerVerdictTest,
    testing::Values(ViewerCase{"noise-four-planes.con", Make<CNoiseTest_SM_Dialog>, "Fail: 1 of 5",
                        true, false},
        ViewerCase{"noise-gray.con", Make<CNoiseTest_SM_Dialog>, "Pass", true, false},
        ViewerCase{"oscilloscope-color.con", Make<COscilloscope_Dialog>, "Pass", true, false},
        ViewerCase{"startest-sweeps.con", Make<CStarTest_Dialog>, "Fail: 6 of 25", true},
        ViewerCase{"stitch-binary.con", Make<CView_Stitch_Dialog>, "Fail: 1 of 3", false},
        ViewerCase{"tonal-resolution.con", Make<CTonalResolutionDialog>, "Pass", false},
        ViewerCase{"light-profile-gray.con", Make<CView_LPF_Dialog>, "Pass", false},
        ViewerCase{"adjust-center-ccd.con", Make<CAdjustCenterCCD_Dialog>, "Pass", false},
        ViewerCase{"picture-rgb.tif", Make<CPictureView_Dialog>, "Fail: 1 of 3", false}));

struct WindowCase {
    const char* sample; ///< Empty for a viewer without a file.
    MakeViewer make;
};

class ViewerWindowTest : public testing::TestWithParam<WindowCase> { };

TEST_P(ViewerWindowTest, NoLetterIsUsedTwiceAndThePreviewHasItsKeys)
{
    const MessageRecorder messages;
    NoHost host;
    const std::string sample = GetParam().sample;
    const auto viewer = GetParam().make(sample.empty() ? "" : kSamples / sample, host);
    const TempFolder folder;
    viewer->UseLimits(std::make_unique<ProgramLimits>(folder.Path() / "Vireo.ini"));
    viewer->show();
    LetPass(50);
    ExpectDifferentLetters(*viewer);
    if (auto* const report = viewer->findChild<QCheckBox*>("reportCheck")) {
        report->click();
        ExpectDifferentLetters(*viewer);
    }
    QStringList keys;
    for (const QAction* command : viewer->findChildren<QAction*>()) {
        if (command->text() == "Print Pre&view...")
            keys << command->shortcut().toString();
    }
    EXPECT_EQ(keys, QStringList{"Ctrl+Shift+P"});
}

TEST_P(ViewerWindowTest, TheWholeWindowHasRoomOnASmallScreen)
{
    // 1920 x 1080 at 200 %, less what a title and a task bar take.
    constexpr QSize kRoom(960, 460);
    const MessageRecorder messages;
    NoHost host;
    const std::string sample = GetParam().sample;
    const auto viewer = GetParam().make(sample.empty() ? "" : kSamples / sample, host);
    viewer->resize(1, 1);
    viewer->show();
    LetPass(50);
    EXPECT_LE(viewer->width(), kRoom.width());
    EXPECT_LE(viewer->height(), kRoom.height());
}

INSTANTIATE_TEST_SUITE_P(Windows, ViewerWindowTest,
    testing::Values(WindowCase{"", Make<CNoiseTest_SM_Dialog>},
        WindowCase{"noise-gray.con", Make<CNoiseTest_SM_Dialog>},
        WindowCase{"noise-color.con", Make<CNCTest_Dialog>},
        WindowCase{"oscilloscope-color.con", Make<COscilloscope_Dialog>},
        WindowCase{"oscilloscope-gray.con", Make<COscilloscope_Dialog>},
        WindowCase{"oscilloscope-generation-9.con", Make<COscilloscope_Dialog>},
        WindowCase{"oscilloscope-lines.con", Make<COscilloscope_Dialog>},
        WindowCase{"oscilloscope-set", Make<COscilloscope_Dialog>},
        WindowCase{"startest-repeats.con", Make<CStarTest_Dialog>},
        WindowCase{"stitch-gray.con", Make<CView_Stitch_Dialog>},
        WindowCase{"tonal-resolution.con", Make<CTonalResolutionDialog>},
        WindowCase{"light-profile-gray.con", Make<CView_LPF_Dialog>},
        WindowCase{"light-profile-signed.con", Make<CView_LPF_Dialog>},
        WindowCase{"adjust-center-ccd.con", Make<CAdjustCenterCCD_Dialog>},
        WindowCase{"vertical-camera-verification.con", Make<CVerticalCameraVerification_Dialog>},
        WindowCase{"picture-rgb.tif", Make<CPictureView_Dialog>},
        WindowCase{"picture-bilevel.tif", Make<CPictureView_Dialog>}));

} // namespace
} // namespace vireo
