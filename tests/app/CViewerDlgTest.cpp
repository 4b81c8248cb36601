#include "app/CRecentFilesList.h"
#include "app/CViewerDlg.h"
#include "platform/Log.h"
#include "platform/Message.h"
#include "platform/Path.h"
#include "scanner/ScannerChoice.h"
#include "tests/TempFolder.h"
#include "tests/viewers/AltLetters.h"
#include "tests/viewers/DropFiles.h"
#include "tests/viewers/Waiting.h"

#include <QApplication>
#include <QCheckBox>
#include <QFileDialog>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

using namespace vireo;

namespace {

constexpr const char* kViewers[] = {"CView_LPF_Dialog", "COscilloscope_Dialog",
    "CView_Stitch_Dialog", "CNoiseTest_SM_Dialog", "CAdjustCenterCCD_Dialog",
    "CVerticalCameraVerification_Dialog", "CStarTest_Dialog", "CTonalResolutionDialog",
    "CLPF_Dialog", "CNCTest_Dialog"};

std::string WithTag(const std::string& tag)
{
    return tag + "\nDataPointer=        60\nScannerName=Unit\n";
}

std::string OldFile(char type, std::int32_t mark = 0)
{
    std::string bytes(60, '\0');
    bytes[11] = type;
    for (std::size_t i = 0; i < 4; ++i)
        bytes[20 + i] = static_cast<char>((mark >> (8 * i)) & 0xFF);
    return bytes;
}

/// Drives the real main dialog; its viewers only note that they were opened.
class CViewerDlgTest : public testing::Test {
protected:
    void SetUp() override
    {
        log_Close();
        // Where the log goes when it has no program folder.
        qputenv("XDG_STATE_HOME", QByteArray::fromStdString(Utf8FromPath(m_folder.Path())));
    }
    void TearDown() override
    {
        log_Close();
        qunsetenv("XDG_STATE_HOME");
    }

    struct Opened {
        std::string viewer;
        std::filesystem::path file;
        QRect mainPosition;
        std::string mainFile;
        bool mainVisible;
    };

    CViewerDlg::Setup MakeSetup()
    {
        CViewerDlg::Setup setup;
        setup.recentList = m_folder.Path() / "state" / "recent.txt";
        setup.programFolder = m_folder.Path();
        for (const char* viewer : kViewers)
            setup.viewers.Add(
                viewer, [this, viewer](const auto& file, ViewerHost& host, QWidget* parent) {
                    const auto* dialog = qobject_cast<CViewerDlg*>(parent);
                    ASSERT_NE(dialog, nullptr);
                    m_opened.push_back({viewer, file, dialog->geometry(), dialog->FileToLoad(),
                        dialog->isVisible()});
                    if (!file.empty() && !std::filesystem::is_directory(file))
                        host.FileShown(file);
                    RecentFiles list(m_folder.Path() / "state" / "recent.txt");
                    EXPECT_EQ(list.Load(), FileStatus::Ok);
                    m_listed = list.Files();
                });
        return setup;
    }

    /// Runs the dialog until it ends by itself; `step` is called again and again meanwhile and
    /// closes the dialog when it returns true.
    static int Run(CViewerDlg& dialog, const std::function<bool()>& step)
    {
        QTimer steps;
        QObject::connect(&steps, &QTimer::timeout, [&] {
            if (step())
                dialog.reject();
        });
        steps.start(1);
        QTimer stuck; // A dialog that nobody closes must fail its test, not hang it.
        QObject::connect(&stuck, &QTimer::timeout, [] {
            ADD_FAILURE() << "The dialog did not end.";
            for (auto* window : QApplication::topLevelWidgets())
                window->close();
        });
        stuck.start(20'000);
        return dialog.DoModal();
    }

    /// Runs the launcher, does `action` in it once and closes it when `finished` is true.
    static int RunLauncher(
        CViewerDlg& dialog, const std::function<void()>& action,
        const std::function<bool()>& finished = [] { return true; })
    {
        bool started = false;
        return Run(dialog, [&] {
            if (!std::exchange(started, true))
                action();
            return finished();
        });
    }

    int RunWithFile(const std::filesystem::path& file)
    {
        CViewerDlg dialog(MakeSetup());
        dialog.SetFileToLoad(Utf8FromPath(file));
        return Run(dialog, [&] { return !m_messages.Messages().empty(); });
    }

    static QPushButton* Button(const CViewerDlg& dialog, const char* name)
    {
        return dialog.findChild<QPushButton*>(name);
    }

    std::string OnlyMessage() const
    {
        return m_messages.Messages().size() == 1
            ? m_messages.Messages().front().text
            : std::to_string(m_messages.Messages().size()) + " messages";
    }

    TempFolder m_folder;
    MessageRecorder m_messages;
    std::vector<Opened> m_opened;
    std::vector<std::filesystem::path> m_listed; ///< In the file, while the last viewer was open.
};

const QRect kShrunk(5, 5, 1, 1);

} // namespace

struct DispatchCase {
    const char* name;
    std::string content;
    std::vector<std::string> viewers;
};

class DispatchTest : public CViewerDlgTest, public testing::WithParamInterface<DispatchCase> { };

TEST_P(DispatchTest, OpensTheViewerOutOfSightAndEnds)
{
    const auto file = m_folder.Write("result.con", GetParam().content);
    EXPECT_EQ(RunWithFile(file), QDialog::Accepted);
    EXPECT_EQ(OnlyMessage(), "0 messages");
    std::vector<std::string> viewers;
    for (const Opened& opened : m_opened) {
        viewers.push_back(opened.viewer);
        EXPECT_EQ(opened.file, file);
        EXPECT_TRUE(opened.mainVisible);
        EXPECT_EQ(opened.mainPosition == kShrunk, opened.viewer != "CNoiseTest_SM_Dialog");
    }
    EXPECT_EQ(viewers, GetParam().viewers);
}

using Viewers = std::vector<std::string>;

INSTANTIATE_TEST_SUITE_P(Tags, DispatchTest,
    testing::Values(
        DispatchCase{"LightProfile", WithTag("[Light Profile]"), Viewers{"CView_LPF_Dialog"}},
        DispatchCase{"G3LightProfile", WithTag("[G3 Light Profile]"), Viewers{"CView_LPF_Dialog"}},
        DispatchCase{"Oscilloscope", WithTag("[Oscilloscope]"), Viewers{"COscilloscope_Dialog"}},
        DispatchCase{"Mtf", WithTag("[MTF]"), Viewers{"COscilloscope_Dialog"}},
        DispatchCase{"Stitch", WithTag("[Stitch Test]"), Viewers{"CView_Stitch_Dialog"}},
        DispatchCase{"Noise", WithTag("[Noise Test]"), Viewers{"CNoiseTest_SM_Dialog"}},
        DispatchCase{
            "AdjustCenterCcd", WithTag("[Adjust Center CCD]"), Viewers{"CAdjustCenterCCD_Dialog"}},
        DispatchCase{"ScanLinePositioning", WithTag("[Scan-Line Positioning]"),
            Viewers{"CAdjustCenterCCD_Dialog"}},
        DispatchCase{"VerticalCamera", WithTag("[Vertical Camera Verification]"),
            Viewers{"CVerticalCameraVerification_Dialog"}},
        DispatchCase{"MirrorCarriage", WithTag("[Mirror Carriage Adjustment]"),
            Viewers{"CVerticalCameraVerification_Dialog"}},
        DispatchCase{"StarTest", WithTag("[StarTest]"), Viewers{"CStarTest_Dialog"}},
        DispatchCase{
            "TonalResolution", WithTag("[Tonal Resolution]"), Viewers{"CTonalResolutionDialog"}},
        DispatchCase{"TheTablesOrderDecidesNotTheFiles", WithTag("[StarTest][Stitch Test]"),
            Viewers{"CView_Stitch_Dialog"}}),
    [](const auto& row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(OldFiles, DispatchTest,
    testing::Values(DispatchCase{"Type16", OldFile(16), Viewers{"CView_LPF_Dialog"}},
        DispatchCase{"Type18", OldFile(18), Viewers{"CView_Stitch_Dialog"}},
        DispatchCase{"Type18WithMark", OldFile(18, 13900), Viewers{"CView_Stitch_Dialog"}},
        DispatchCase{"Type19", OldFile(19), Viewers{"CView_LPF_Dialog"}},
        DispatchCase{"Type17WithMark", OldFile(17, 13900), Viewers{"CView_LPF_Dialog"}}),
    [](const auto& row) { return row.param.name; });

TEST_F(CViewerDlgTest, ThePositionComesBackAndTheNameGoesWhenTheViewerCloses)
{
    CViewerDlg dialog(MakeSetup());
    dialog.SetFileToLoad(Utf8FromPath(m_folder.Write("r.con", WithTag("[MTF]"))));
    QRect before;
    Run(dialog, [&] {
        before = before.isNull() ? dialog.geometry() : before;
        return false;
    });
    ASSERT_EQ(m_opened.size(), 1U);
    EXPECT_NE(before, kShrunk);
    EXPECT_EQ(dialog.geometry(), before);
    EXPECT_EQ(dialog.NormalSize(), before.size());
    EXPECT_EQ(dialog.FileToLoad(), "");
}

TEST_F(CViewerDlgTest, TheNoiseViewerLeavesPositionAndNameAlone)
{
    CViewerDlg dialog(MakeSetup());
    const auto file = m_folder.Write("r.con", WithTag("[Noise Test]"));
    dialog.SetFileToLoad(Utf8FromPath(file));
    EXPECT_EQ(Run(dialog, [] { return false; }), QDialog::Accepted);
    ASSERT_EQ(m_opened.size(), 1U);
    EXPECT_EQ(m_opened.front().mainPosition, dialog.geometry());
    EXPECT_EQ(dialog.FileToLoad(), Utf8FromPath(file));
}

TEST_F(CViewerDlgTest, TheFileWaitsForTheTimerAndOtherTimersDoNotOpenIt)
{
    CViewerDlg dialog(MakeSetup());
    dialog.SetFileToLoad(Utf8FromPath(m_folder.Write("r.con", WithTag("[MTF]"))));
    std::optional<std::size_t> openedByOtherTimer;
    Run(dialog, [&] {
        if (!openedByOtherTimer) {
            QTimerEvent other(0x7FFF'0000);
            QApplication::sendEvent(&dialog, &other);
            openedByOtherTimer = m_opened.size();
        }
        return false;
    });
    EXPECT_EQ(openedByOtherTimer, 0U);
    EXPECT_EQ(m_opened.size(), 1U);
}

TEST_F(CViewerDlgTest, FilesThatCannotBeOpenedAreToldOnceAndTheDialogStays)
{
    const auto empty = m_folder.Write("empty.con", "");
    const auto missing = m_folder.Path() / "missing.con";
    for (const auto& file : {empty, missing, m_folder.Path(),
             m_folder.Write("late.con", std::string(100, ' ') + "[MTF]\n")}) {
        m_messages.Clear();
        EXPECT_EQ(RunWithFile(file), QDialog::Rejected) << file;
        EXPECT_NE(OnlyMessage().find(Utf8FromPath(file)), std::string::npos) << OnlyMessage();
    }
    EXPECT_TRUE(m_opened.empty());
}

TEST_F(CViewerDlgTest, APathThatIsTooLongForTheCommandLineOpensOtherwise)
{
    const auto file =
        m_folder.Write(std::string(240, 'x') + ".con", WithTag("[MTF]") + std::string(60, ' '));
    EXPECT_EQ(RunWithFile(file), QDialog::Rejected);
    EXPECT_NE(OnlyMessage().find("more than 256 characters"), std::string::npos) << OnlyMessage();
    CViewerDlg dialog(MakeSetup());
    RunLauncher(dialog, [&] { dialog.OpenAndStay(file); });
    ASSERT_EQ(m_opened.size(), 1U);
    EXPECT_EQ(m_opened.front().file, file);
}

TEST_F(CViewerDlgTest, AKindWithoutAViewerIsNamedAndTheDialogStays)
{
    auto setup = MakeSetup();
    setup.viewers = ViewerTable();
    CViewerDlg dialog(std::move(setup));
    dialog.SetFileToLoad(
        Utf8FromPath(m_folder.Write("profile.con", WithTag("[G3 Light Profile]"))));
    EXPECT_EQ(Run(dialog, [&] { return !m_messages.Messages().empty(); }), QDialog::Rejected);
    EXPECT_EQ(OnlyMessage().find("Vireo cannot show light profile files yet."), 0U);
    EXPECT_NE(OnlyMessage().find("profile.con"), std::string::npos);
}

TEST_F(CViewerDlgTest, SeveralViewersOpenOneAfterTheOther)
{
    auto setup = MakeSetup();
    setup.plan = [](const auto&) {
        return DispatchPlan{
            {"CView_LPF_Dialog", "CView_Stitch_Dialog", "CView_LPF_Dialog"}, false, {}};
    };
    CViewerDlg dialog(std::move(setup));
    const auto file = m_folder.Write("old.con", "x");
    dialog.SetFileToLoad(Utf8FromPath(file));
    EXPECT_EQ(Run(dialog, [] { return false; }), QDialog::Accepted);
    ASSERT_EQ(m_opened.size(), 3U);
    EXPECT_EQ(m_opened[0].viewer, "CView_LPF_Dialog");
    EXPECT_EQ(m_opened[1].viewer, "CView_Stitch_Dialog");
    EXPECT_EQ(m_opened[2].viewer, "CView_LPF_Dialog");
    for (const Opened& opened : m_opened) {
        EXPECT_EQ(opened.file, file);
        EXPECT_EQ(opened.mainPosition, kShrunk);
    }
}

TEST_F(CViewerDlgTest, AViewerAppearsInTheMiddleNotWhereTheMainDialogHides)
{
    QPoint middle;
    auto setup = MakeSetup();
    setup.viewers = ViewerTable();
    setup.viewers.Add("CStarTest_Dialog", [&](const auto&, ViewerHost&, QWidget* parent) {
        CViewerDialog viewer(parent);
        viewer.resize(300, 200);
        viewer.show();
        middle = viewer.geometry().center();
    });
    CViewerDlg dialog(std::move(setup));
    dialog.SetFileToLoad(Utf8FromPath(m_folder.Write("r.con", WithTag("[StarTest]"))));
    Run(dialog, [] { return false; });
    // The window's frame takes a few pixels.
    const QPoint off = middle - dialog.screen()->availableGeometry().center();
    EXPECT_LE(off.manhattanLength(), 40);
}

TEST_F(CViewerDlgTest, APackedDumpIsUnpackedAndItsFolderShown)
{
    const auto dump = m_folder.Write("dump.con", "[Kitbag]\nDataPointer=        33\n");
    std::filesystem::path unpacked;
    auto setup = MakeSetup();
    setup.unpackDump = [&](const auto& file) {
        unpacked = file;
        return true;
    };
    CViewerDlg dialog(std::move(setup));
    dialog.SetFileToLoad(Utf8FromPath(dump));
    EXPECT_EQ(Run(dialog, [] { return false; }), QDialog::Accepted);
    EXPECT_EQ(unpacked, dump);
    ASSERT_EQ(m_opened.size(), 1U);
    EXPECT_EQ(m_opened.front().viewer, "COscilloscope_Dialog");
    EXPECT_EQ(m_opened.front().file, m_folder.Path());
    EXPECT_EQ(m_opened.front().mainPosition, kShrunk);
}

TEST_F(CViewerDlgTest, ADumpThatCannotBeUnpackedLeavesTheDialogAsItWas)
{
    auto setup = MakeSetup();
    bool tried = false;
    setup.unpackDump = [&](const auto&) {
        tried = true;
        return false;
    };
    CViewerDlg dialog(std::move(setup));
    dialog.SetFileToLoad(Utf8FromPath(m_folder.Write("dump.con", WithTag("[Kitbag]"))));
    EXPECT_EQ(Run(dialog, [&] { return tried; }), QDialog::Rejected);
    EXPECT_NE(dialog.geometry(), kShrunk);
    EXPECT_TRUE(m_opened.empty());
}

struct NameCase {
    const char* name;
    std::string given;
    std::string kept;
};

class SetFileToLoadTest : public CViewerDlgTest, public testing::WithParamInterface<NameCase> { };

TEST_P(SetFileToLoadTest, KeepsTheName)
{
    CViewerDlg dialog(MakeSetup());
    dialog.SetFileToLoad("an earlier name");
    dialog.SetFileToLoad(GetParam().given);
    EXPECT_EQ(dialog.FileToLoad(), GetParam().kept);
}

INSTANTIATE_TEST_SUITE_P(Names, SetFileToLoadTest,
    testing::Values(NameCase{"QuotesAreDropped", "\"C:\\my files\\a.con\"", "C:\\my files\\a.con"},
        NameCase{"AllQuotesAreDropped", "\"a\" \"b\"", "a b"}, NameCase{"Empty", "", ""},
        NameCase{"CharacterLimit", std::string(255, 'x') + "yz", std::string(255, 'x') + "y"},
        NameCase{"QuotesCountToo", "\"" + std::string(300, 'x'), std::string(255, 'x')}),
    [](const auto& row) { return row.param.name; });

struct LauncherCase {
    const char* button;
    const char* viewer;
    bool shrinks;
};

class LauncherTest : public CViewerDlgTest, public testing::WithParamInterface<LauncherCase> { };

TEST_P(LauncherTest, OpensItsDialogAndEnds)
{
    CViewerDlg dialog(MakeSetup());
    const int result = RunLauncher(
        dialog, [&] { QTest::mouseClick(Button(dialog, GetParam().button), Qt::LeftButton); },
        [] { return false; });
    EXPECT_EQ(result, QDialog::Accepted);
    ASSERT_EQ(m_opened.size(), 1U);
    EXPECT_EQ(m_opened.front().viewer, GetParam().viewer);
    EXPECT_TRUE(m_opened.front().file.empty());
    EXPECT_EQ(m_opened.front().mainPosition == kShrunk, GetParam().shrinks);
}

TEST_P(LauncherTest, WithoutItsDialogSaysSoAndStays)
{
    auto setup = MakeSetup();
    setup.viewers = ViewerTable();
    CViewerDlg dialog(std::move(setup));
    const int result = RunLauncher(
        dialog, [&] { QTest::mouseClick(Button(dialog, GetParam().button), Qt::LeftButton); });
    EXPECT_EQ(result, QDialog::Rejected);
    EXPECT_EQ(OnlyMessage().find("Vireo cannot "), 0U);
}

TEST_P(LauncherTest, HandsOverAFileThatHappensToBeSet)
{
    CViewerDlg dialog(MakeSetup());
    const auto file = m_folder.Write("set.con", "x");
    RunLauncher(
        dialog,
        [&] {
            dialog.SetFileToLoad(Utf8FromPath(file));
            QTest::mouseClick(Button(dialog, GetParam().button), Qt::LeftButton);
        },
        [] { return false; });
    ASSERT_EQ(m_opened.size(), 1U);
    EXPECT_EQ(m_opened.front().file, file);
    EXPECT_EQ(dialog.FileToLoad(), "");
}

INSTANTIATE_TEST_SUITE_P(Buttons, LauncherTest,
    testing::Values(LauncherCase{"lightProfileButton", "CLPF_Dialog", true},
        LauncherCase{"stitchButton", "CView_Stitch_Dialog", true},
        LauncherCase{"noiseCheckButton", "CNCTest_Dialog", false}),
    [](const auto& row) { return row.param.button; });

TEST_F(CViewerDlgTest, ALiveTestWithoutItsScannerLeavesTheLauncherAsItIs)
{
    CViewerDlg::Setup setup = MakeSetup();
    setup.scannerSettings = m_folder.Path() / "Vireo.ini";
    setup.viewers = {};
    QRect positionWhileAsked;
    setup.viewers.Add(
        "CLPF_Dialog", [](const auto&, ViewerHost&, QWidget*) { FAIL(); },
        [&](QWidget* parent) {
            positionWhileAsked = parent->geometry();
            KeepSimulated(m_folder.Path() / "Vireo.ini", true);
            return false;
        });
    CViewerDlg dialog(setup);
    bool isTicked = false;
    EXPECT_EQ(RunLauncher(dialog,
                  [&] {
                      QTest::mouseClick(Button(dialog, "lightProfileButton"), Qt::LeftButton);
                      isTicked = dialog.findChild<QCheckBox*>("simulatedCheck")->isChecked();
                  }),
        QDialog::Rejected);
    EXPECT_NE(positionWhileAsked, kShrunk);
    EXPECT_TRUE(isTicked) << "what was chosen meanwhile";
}

TEST_F(CViewerDlgTest, KeepsTheChoiceOfTheSimulatedScanner)
{
    CViewerDlg::Setup setup = MakeSetup();
    setup.scannerSettings = m_folder.Path() / "Vireo.ini";
    for (const bool isTicked : {true, false}) {
        CViewerDlg dialog(setup);
        RunLauncher(dialog, [&] {
            auto* const check = dialog.findChild<QCheckBox*>("simulatedCheck");
            EXPECT_EQ(check->isChecked(), !isTicked);
            QTest::mouseClick(check, Qt::LeftButton, {}, QPoint(8, check->height() / 2));
        });
        EXPECT_EQ(ReadScannerChoice(setup.scannerSettings).isSimulated, isTicked);
    }
}

TEST_F(CViewerDlgTest, ADroppedFileOpensAndTheLauncherStays)
{
    CViewerDlg dialog(MakeSetup());
    const auto file = m_folder.Write("r.con", WithTag("[MTF]"));
    bool openedInsideTheDrop = true;
    EXPECT_EQ(RunLauncher(
                  dialog,
                  [&] {
                      EXPECT_TRUE(DropFiles(dialog, {UrlOf(file)}));
                      openedInsideTheDrop = !m_opened.empty();
                  },
                  [&] { return !m_opened.empty(); }),
        QDialog::Rejected);
    EXPECT_FALSE(openedInsideTheDrop);
    EXPECT_EQ(m_opened.size(), 1U);
    EXPECT_EQ(m_opened.front().file, file);
    EXPECT_NE(dialog.geometry(), kShrunk);
}

TEST_F(CViewerDlgTest, OnlyASingleLocalFileIsTakenFromADrag)
{
    CViewerDlg dialog(MakeSetup());
    RunLauncher(dialog, [&] {
        EXPECT_FALSE(DropFiles(dialog, {}));
        EXPECT_FALSE(DropFiles(dialog, {QUrl("https://example.com/r.con")}));
        EXPECT_FALSE(
            DropFiles(dialog, {UrlOf(m_folder.Path() / "a"), UrlOf(m_folder.Path() / "b")}));
    });
    EXPECT_TRUE(m_opened.empty());
}

TEST_F(CViewerDlgTest, TheOpenButtonOpensTheFileChosenAndStartsInItsFolderNextTime)
{
    CViewerDlg dialog(MakeSetup());
    const auto file = m_folder.Write("chosen.con", WithTag("[StarTest]"));
    QStringList filters;
    QString secondFolder;
    int dialogs = 0;
    const auto press = [&] { QTest::mouseClick(Button(dialog, "openButton"), Qt::LeftButton); };
    RunLauncher(
        dialog, [&] { QTimer::singleShot(0, &dialog, press); },
        [&] {
            auto* open = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (open != nullptr && dialogs == 0) {
                ++dialogs;
                filters = open->nameFilters();
                open->selectFile(QString::fromStdString(Utf8FromPath(file)));
                static_cast<QDialog*>(open)->accept();
            } else if (open != nullptr && dialogs == 1) {
                ++dialogs;
                secondFolder = open->directory().absolutePath();
                open->reject();
            } else if (open == nullptr && dialogs == 1 && m_opened.size() == 1) {
                QTimer::singleShot(0, &dialog, press);
            }
            return open == nullptr && dialogs == 2;
        });
    EXPECT_EQ(filters,
        (QStringList{"Test results (*.con)", "TIFF pictures (*.tif *.tiff)", "All files (*)"}));
    EXPECT_EQ(secondFolder, QString::fromStdString(Utf8FromPath(m_folder.Path())));
    ASSERT_EQ(m_opened.size(), 1U);
    EXPECT_EQ(m_opened.front().viewer, "CStarTest_Dialog");
    EXPECT_EQ(m_opened.front().file, file);
}

TEST_F(CViewerDlgTest, ARecentFileOpensOnDoubleClickAndEnterAndMovesUp)
{
    const auto first = m_folder.Write("first.con", WithTag("[MTF]"));
    const auto second = m_folder.Write("second.con", WithTag("[Noise Test]"));
    CViewerDlg dialog(MakeSetup());
    RunLauncher(dialog, [&] {
        dialog.OpenAndStay(first);
        dialog.OpenAndStay(second);
        auto* list = dialog.findChild<CRecentFilesList*>();
        ASSERT_EQ(list->count(), 2);
        EXPECT_EQ(list->item(0)->text(), "second.con");
        ExpectDifferentLetters(dialog);
        const QPoint lower = list->visualItemRect(list->item(1)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, lower);
        EXPECT_EQ(m_opened.size(), 2U) << "One click only selects.";
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, lower);
        ASSERT_EQ(m_opened.size(), 3U);
        EXPECT_EQ(m_opened[2].file, first);
        EXPECT_EQ(list->item(0)->text(), "first.con");
        list->setFocus();
        list->setCurrentRow(1);
        QTest::keyClick(list, Qt::Key_Return);
        ASSERT_EQ(m_opened.size(), 4U);
        EXPECT_EQ(m_opened[3].file, second);
    });
}

TEST_F(CViewerDlgTest, AFileOfTheCommandLineIsListedNextTime)
{
    RunWithFile(m_folder.Write("earlier.con", WithTag("[MTF]")));
    CViewerDlg dialog(MakeSetup());
    RunLauncher(dialog, [&] {
        const auto* list = dialog.findChild<CRecentFilesList*>();
        ASSERT_EQ(list->count(), 1);
        EXPECT_EQ(list->item(0)->text(), "earlier.con");
    });
}

TEST_F(CViewerDlgTest, AFileIsListedWhileItsViewerIsOpen)
{
    const auto file = m_folder.Write("open.con", WithTag("[MTF]"));
    RunWithFile(file);
    EXPECT_EQ(m_listed, std::vector<std::filesystem::path>{file});
}

TEST_F(CViewerDlgTest, AFileThatHasGoneIsMarkedOnceItCannotBeOpened)
{
    const auto gone = m_folder.Write("gone.con", WithTag("[MTF]"));
    CViewerDlg dialog(MakeSetup());
    const auto* const list = dialog.findChild<CRecentFilesList*>();
    RunLauncher(
        dialog,
        [&] {
            dialog.OpenAndStay(gone);
            LetPass(500); // The list has been looked through.
            std::filesystem::remove(gone);
            EXPECT_FALSE(list->IsMissing(0));
            dialog.OpenAndStay(gone);
        },
        [&] { return list->IsMissing(0); });
}

TEST_F(CViewerDlgTest, WhatCannotBeOpenedIsNotListed)
{
    RunWithFile(m_folder.Write("strange.con", "Dear colleague,"));
    CViewerDlg dialog(MakeSetup());
    RunLauncher(dialog, [&] { EXPECT_EQ(dialog.findChild<CRecentFilesList*>()->count(), 0); });
}

TEST_F(CViewerDlgTest, MissingRecentFilesTurnGrayAndDeleteTakesThemOff)
{
    const auto there = m_folder.Write("there.con", WithTag("[MTF]"));
    const auto gone = m_folder.Write("gone.con", WithTag("[MTF]"));
    RunWithFile(there);
    RunWithFile(gone);
    std::filesystem::remove(gone);
    CViewerDlg dialog(MakeSetup());
    RunLauncher(
        dialog, [] {},
        [&] {
            auto* list = dialog.findChild<CRecentFilesList*>();
            if (!list->IsMissing(0))
                return false;
            EXPECT_FALSE(list->IsMissing(1));
            list->setCurrentRow(0);
            QTest::keyClick(list, Qt::Key_Delete);
            EXPECT_EQ(list->count(), 1);
            EXPECT_EQ(list->item(0)->text(), "there.con");
            return true;
        });
}

TEST_F(CViewerDlgTest, TheFileMenuOffersToOpenConFilesWithVireoWhereThatCanBeChosen)
{
    struct OneSwitch : FileAssociation {
        AssociationState State() const override { return state; }
        bool Set() override { return state = AssociationState::On, true; }
        bool Undo() override { return state = AssociationState::Off, true; }
        AssociationState state = AssociationState::Off;
    };
    const auto entry = [](const CViewerDlg& dialog) -> QAction* {
        for (QAction* action : dialog.findChildren<QAction*>())
            if (action->isCheckable() && action->text() == "Open .con files with &Vireo")
                return action;
        return nullptr;
    };
    auto setup = MakeSetup();
    EXPECT_EQ(entry(CViewerDlg(setup)), nullptr);
    const auto association = std::make_shared<OneSwitch>();
    setup.association = association;
    for (const auto state : {AssociationState::On, AssociationState::Off}) {
        CViewerDlg dialog(setup);
        RunLauncher(dialog, [&] {
            EXPECT_NE(entry(dialog)->isChecked(), state == AssociationState::On);
            entry(dialog)->trigger();
            EXPECT_EQ(entry(dialog)->isChecked(), state == AssociationState::On);
        });
        EXPECT_EQ(association->state, state);
    }
}

TEST_F(CViewerDlgTest, WithoutAProgramFolderTheUserIsTold)
{
    auto setup = MakeSetup();
    setup.programFolder.clear();
    CViewerDlg dialog(std::move(setup));
    RunLauncher(dialog, [] {});
    EXPECT_EQ(OnlyMessage(), "Error in Get Program Path");
}

TEST_F(CViewerDlgTest, TheTitleIsTheApplications)
{
    CViewerDlg dialog(MakeSetup());
    RunLauncher(dialog, [&] { EXPECT_EQ(dialog.windowTitle(), "Vireo 6"); });
}

TEST_F(CViewerDlgTest, TheExitButtonEndsTheProgram)
{
    CViewerDlg dialog(MakeSetup());
    EXPECT_EQ(RunLauncher(
                  dialog, [&] { QTest::mouseClick(Button(dialog, "exitButton"), Qt::LeftButton); },
                  [] { return false; }),
        QDialog::Accepted);
    EXPECT_TRUE(m_opened.empty());
}
