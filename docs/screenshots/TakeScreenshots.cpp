// Takes the pictures of the manual and the README: opens each dialog on a sample, clicks what the
// picture is about, and saves what the window shows. docs/screenshots/take runs it.
//
//     vireo-screenshots SAMPLES OUT [--smallest] [NAME...]
//
// QT_SCALE_FACTOR=2 gives the same pictures at 200 %. --smallest makes each window as small as it
// gets, which shows what is clipped then.

#include "app/CViewerDlg.h"
#include "app/ProgramLimits.h"
#include "app/ViewerTable.h"
#include "platform/Message.h"
#include "scanner/ScannerChoice.h"
#include "viewers/controls/CWait_Dialog.h"
#include "viewers/controls/QtText.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QPixmap>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <cstdio>
#include <filesystem>
#include <semaphore>
#include <string>
#include <vector>

namespace {

struct Shot {
    const char* name;   ///< Of the picture, without ".png".
    const char* viewer; ///< Class of the dialog.
    const char* sample; ///< Empty for a live test.
    QSize size;
    std::vector<const char*> clicks;     ///< Object names of buttons, in order.
    std::vector<const char*> commands{}; ///< Texts of menu commands, before the clicks.
    int downKeys = 0;                    ///< The arrow key, on the widget "plot", before all else.
    QPointF pointer{};                   ///< Where it rests, as shares of the widget "plot".
    const char* child = nullptr;         ///< A menu command whose own dialog is taken instead.
    bool hasLimits = false;              ///< Judged by the limits of samples/limits.
};

const Shot kShots[] = {
    {"oscilloscope", "COscilloscope_Dialog", "oscilloscope-color.con", {1200, 760}, {}},
    {"limits", "COscilloscope_Dialog", "oscilloscope-color.con", {1200, 760}, {}, {}, 0, {},
        nullptr, true},
    {"limits-noise", "CNoiseTest_SM_Dialog", "noise-four-planes.con", {1200, 760}, {}, {}, 0, {},
        nullptr, true},
    {"limits-star-test", "CStarTest_Dialog", "startest-sweeps.con", {1200, 760}, {}, {}, 0, {},
        nullptr, true},
    {"limits-tonal", "CTonalResolutionDialog", "tonal-resolution.con", {1000, 600},
        {"differenceButton"}, {}, 0, {}, nullptr, true},
    {"oscilloscope-light-profile", "COscilloscope_Dialog", "oscilloscope-color.con", {1200, 760},
        {"lightProfileButton"}},
    {"oscilloscope-scan-width", "COscilloscope_Dialog", "oscilloscope-color.con", {1200, 760},
        {"scanWidthButton"}},
    {"oscilloscope-vertical-positioning", "COscilloscope_Dialog", "oscilloscope-color.con",
        {1200, 760}, {"verticalPositioningButton"}},
    {"oscilloscope-lines", "COscilloscope_Dialog", "oscilloscope-lines.con", {1200, 760},
        {"showFocusCheck", "holdButton"}},
    {"oscilloscope-adjustment", "COscilloscope_Dialog", "oscilloscope-generation-9.con",
        {1200, 760}, {}},
    {"oscilloscope-mtf", "COscilloscope_Dialog", "mtf.con", {1200, 760}, {}},
    {"dump", "COscilloscope_Dialog", "dump/test-run.con", {1200, 760}, {}},
    {"light-profile", "CView_LPF_Dialog", "light-profile-gray.con", {1200, 760}, {}},
    {"light-profile-signed", "CView_LPF_Dialog", "light-profile-signed.con", {1200, 760},
        {"cameraBButton", "boundaryButton"}},
    {"light-profile-binary", "CView_LPF_Dialog", "light-profile-binary.con", {900, 560}, {}},
    {"adjust-center-ccd", "CAdjustCenterCCD_Dialog", "adjust-center-ccd.con", {1100, 560}, {}},
    {"adjustment-picture", "CVerticalCameraVerification_Dialog", "mirror-carriage-adjustment.con",
        {1100, 480}, {}},
    {"adjustment-unexplained", "CVerticalCameraVerification_Dialog",
        "vertical-camera-verification.con", {1000, 480}, {}},
    {"header", "CView_LPF_Dialog", "light-profile-signed.con", {1200, 760}, {}, {}, 0, {},
        "Show &Header"},
    {"noise", "CNoiseTest_SM_Dialog", "noise-color.con", {1100, 520}, {}},
    {"noise-check", "CNCTest_Dialog", "noise-color.con", {860, 360}, {}},
    {"tonal-best-fit", "CTonalResolutionDialog", "tonal-resolution.con", {1000, 600}, {}},
    {"tonal-difference", "CTonalResolutionDialog", "tonal-resolution.con", {1000, 600},
        {"differenceButton"}},
    {"tonal-dynamic-range", "CTonalResolutionDialog", "tonal-resolution-shadows.con", {1000, 600},
        {"dynamicRangeButton"}},
    {"tonal-report", "CTonalResolutionDialog", "tonal-resolution.con", {1000, 600},
        {"reportCheck"}},
    {"stitch", "CView_Stitch_Dialog", "stitch-gray.con", {960, 640}, {}},
    {"stitch-whole", "CView_Stitch_Dialog", "stitch-run-length.con", {760, 360}, {"fitButton"}},
    {"startest", "CStarTest_Dialog", "startest-sweeps.con", {1240, 600}, {}, {}, 1, {0.36, 0.4}},
    {"startest-vibration", "CStarTest_Dialog", "startest-sweeps.con", {1240, 500},
        {"automaticCheck"}, {"Vibration"}, 2},
    {"startest-wide-line", "CStarTest_Dialog", "startest-sweeps.con", {1240, 500},
        {"automaticCheck"}, {"Wide Line"}, 2},
    {"startest-speed", "CStarTest_Dialog", "startest-sweeps.con", {1240, 500}, {"automaticCheck"},
        {"Scan Speed"}, 2},
    {"startest-widths", "CStarTest_Dialog", "startest-sweeps.con", {1240, 500}, {"automaticCheck"},
        {"Line Widths"}, 2},
    {"startest-average", "CStarTest_Dialog", "startest-repeats.con", {1240, 500}, {}},
    {"picture-gray", "CPictureView_Dialog", "picture-gray.tif", {1160, 640}, {}},
    {"picture-palette", "CPictureView_Dialog", "picture-palette.tif", {1160, 640},
        {"oneToOneButton"}},
    {"live-light-profile", "CLPF_Dialog", "", {1180, 720}, {"holdCheck"}},
    {"live-light-profile-boundary", "CLPF_Dialog", "", {1180, 720}, {"boundaryButton"}},
    {"live-noise-check", "CNCTest_Dialog", "", {960, 420}, {}},
};

/// The top window that is open now: a modal dialog.
QWidget* OpenDialog()
{
    return QApplication::activeModalWidget();
}

bool Click(QWidget& dialog, const char* buttonName)
{
    auto* button = dialog.findChild<QAbstractButton*>(QString::fromLatin1(buttonName));
    if (!button)
        return false;
    // A check box takes clicks on its box and text only, which need not reach its middle.
    constexpr int kInside = 8;
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(kInside, button->height() / 2));
    return true;
}

bool RunCommand(QWidget& dialog, const char* text)
{
    for (QAction* const action : dialog.findChildren<QAction*>()) {
        if (action->text() == QLatin1String(text)) {
            action->trigger();
            return true;
        }
    }
    return false;
}

/// Turns to another record of a plot, and rests the pointer over it.
bool ArrangePlot(QWidget& dialog, const Shot& shot)
{
    auto* const plot = dialog.findChild<QWidget*>(QStringLiteral("plot"));
    if (!plot)
        return shot.downKeys == 0 && shot.pointer.isNull();
    for (int i = 0; i < shot.downKeys; ++i)
        QTest::keyClick(plot, Qt::Key_Down);
    if (!shot.pointer.isNull())
        QTest::mouseMove(plot,
            QPointF(shot.pointer.x() * plot->width(), shot.pointer.y() * plot->height()).toPoint());
    return true;
}

/// Saves the picture of the dialog that a command opens over the open one.
bool PhotographChild(QWidget& dialog, const char* command, const QString& target)
{
    bool good = false;
    QTimer::singleShot(150, [&] {
        QWidget* const child = OpenDialog();
        if (!child || child == &dialog)
            return;
        good = child->grab().save(target);
        child->close();
    });
    return RunCommand(dialog, command) && good;
}

enum class WindowSize { OfShot, Smallest };

/// Arranges the open dialog and saves its picture. Returns whether all went as planned.
bool Photograph(const Shot& shot, WindowSize size, const QString& target)
{
    QWidget* const dialog = OpenDialog();
    if (!dialog)
        return false;
    // A window gets no smaller than its controls allow.
    dialog->resize(size == WindowSize::Smallest ? QSize(1, 1) : shot.size);
    QTest::qWait(150);
    bool good = ArrangePlot(*dialog, shot);
    for (const char* const command : shot.commands)
        good = RunCommand(*dialog, command) && good;
    for (const char* const button : shot.clicks)
        good = Click(*dialog, button) && good;
    // How many lines come is counted for half a second; a verdict comes when the file is read.
    constexpr int kLive = 1300;
    QTest::qWait(*shot.sample == '\0' || shot.hasLimits ? kLive : 150);
    if (shot.child)
        good = PhotographChild(*dialog, shot.child, target) && good;
    else
        good = dialog->grab().save(target) && good;
    if (const auto* const rate = dialog->findChild<QLabel*>(QStringLiteral("rateText")))
        std::printf("%s: %s\n", shot.name, qPrintable(rate->text()));
    dialog->close();
    return good;
}

/// The wait dialog, two fifths on its way with what would take long.
bool TakeWait(const QString& folder)
{
    const QString target = folder + QStringLiteral("/dump-wait.png");
    vireo::CWait_Dialog wait(QStringLiteral("Vireo 6"), QStringLiteral("Unpacking test-run.con"));
    std::binary_semaphore taken(0);
    bool good = false;
    QTimer::singleShot(2 * vireo::CWait_Dialog::kShowAfterMilliseconds, [&] {
        good = wait.grab().save(target);
        taken.release();
    });
    wait.Run([&taken](vireo::WorkProgress& progress) {
        progress.SetTotal(5);
        progress.SetDone(2);
        taken.acquire();
    });
    std::printf("%s %s\n", good ? "took" : "FAILED", qPrintable(target));
    return good;
}

/// A copy of a sample in a folder: a dump is unpacked beside itself, and no sample shall be
/// changed.
std::filesystem::path CopyOf(const std::filesystem::path& sample, const QTemporaryDir& folder)
{
    std::filesystem::path copy = vireo::PathFromQString(folder.path()) / "copy" / sample.filename();
    std::filesystem::create_directory(copy.parent_path());
    std::filesystem::copy_file(sample, copy);
    return copy;
}

/// The start window.
bool TakeLauncher(const QString& folder)
{
    const QString target = folder + QStringLiteral("/start.png");
    vireo::CViewerDlg::Setup setup;
    setup.scannerSettings = vireo::ScannerSettingsFile();
    setup.programFolder = vireo::PathFromQString(QDir::tempPath());
    vireo::CViewerDlg launcher(setup);
    bool good = false;
    QTimer::singleShot(300, [&] {
        good = launcher.grab().save(target);
        launcher.close();
    });
    launcher.DoModal();
    std::printf("%s %s\n", good ? "took" : "FAILED", qPrintable(target));
    return good;
}

bool Take(
    const Shot& shot, WindowSize size, const std::filesystem::path& samples, const QString& folder)
{
    vireo::ViewerTable viewers = vireo::ProgramViewers();
    const QString target = folder + QLatin1Char('/') + QLatin1String(shot.name) + ".png";
    bool good = false;
    // Messages are part of some samples; nobody is there to close their boxes.
    const vireo::MessageRecorder messages;
    QTimer::singleShot(300, [&] { good = Photograph(shot, size, target); });
    const QTemporaryDir scratch;
    const bool isLive = *shot.sample == '\0';
    vireo::ProgramLimits(vireo::ScannerSettingsFile())
        .Choose(shot.hasLimits ? samples / "limits" / "final-test.txt" : std::filesystem::path());
    viewers.OpenViewer(shot.viewer,
        isLive ? std::filesystem::path() : CopyOf(samples / shot.sample, scratch), nullptr);
    std::printf("%s %s\n", good ? "took" : "FAILED", qPrintable(target));
    return good;
}

/// Settings of nobody: all defaults, and the simulated scanner.
bool UseOwnSettings(const QTemporaryDir& folder)
{
    qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
    qputenv("APPDATA", folder.path().toUtf8());
    vireo::KeepSimulated(vireo::ScannerSettingsFile(), true);
    return folder.isValid();
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QStringList arguments = QApplication::arguments();
    const bool isSmallest = arguments.removeAll(QStringLiteral("--smallest")) > 0;
    const WindowSize size = isSmallest ? WindowSize::Smallest : WindowSize::OfShot;
    if (arguments.size() < 3) {
        std::fprintf(stderr, "usage: vireo-screenshots SAMPLES OUT [--smallest] [NAME...]\n");
        return 2;
    }
    const QStringList wanted = arguments.mid(3);
    QDir().mkpath(arguments[2]);
    const QTemporaryDir settings;
    bool good = UseOwnSettings(settings);
    for (const Shot& shot : kShots)
        if (wanted.isEmpty() || wanted.contains(QLatin1String(shot.name)))
            good = Take(shot, size, vireo::PathFromQString(arguments[1]), arguments[2]) && good;
    if (wanted.isEmpty() || wanted.contains(QStringLiteral("start")))
        good = TakeLauncher(arguments[2]) && good;
    if (wanted.isEmpty() || wanted.contains(QStringLiteral("dump-wait")))
        good = TakeWait(arguments[2]) && good;
    return good ? 0 : 1;
}
