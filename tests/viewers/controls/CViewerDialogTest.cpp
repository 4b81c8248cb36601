#include "platform/Message.h"
#include "platform/ProgramInfo.h"
#include "tests/viewers/Waiting.h"
#include "viewers/controls/CAboutDlg.h"
#include "viewers/controls/CViewerDialog.h"
#include "viewers/controls/Placement.h"
#include "viewers/controls/QtText.h"
#include "viewers/controls/Resources.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QMargins>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

namespace vireo {
namespace {

/// A viewer with one control, that remembers its commands.
class TestDialog : public CViewerDialog {
public:
    explicit TestDialog(bool withViewMenu = false)
    {
        auto* page = new QVBoxLayout(this);
        page->addWidget(new QPushButton(QStringLiteral("E&xit")));
        OnInitDialog();
        if (withViewMenu)
            ViewMenu().addAction(AcceleratorAction(40001));
    }

    using CViewerDialog::AcceleratorAction;
    using CViewerDialog::AddToFileMenu;
    using CViewerDialog::LoadAcceleratorTable;
    using CViewerDialog::ShownFileChanged;

    std::vector<int> commands;
    int abouts = 0;
    std::filesystem::path shown;

protected:
    std::filesystem::path ShownFile() const override { return shown; }
    void OnAcceleratorCommand(int command) override { commands.push_back(command); }
    void OnAbout() override { ++abouts; }
};

QStringList MenuTitles(const QDialog& dialog)
{
    QStringList titles;
    for (const QAction* action : dialog.findChild<QMenuBar*>()->actions())
        titles << action->text();
    return titles;
}

QMenu* Menu(const QDialog& dialog, const char* title)
{
    for (QAction* action : dialog.findChild<QMenuBar*>()->actions()) {
        if (action->text() == QLatin1String(title))
            return action->menu();
    }
    return nullptr;
}

TEST(CViewerDialog, HasMenusForWhatSystemMenusHide)
{
    const TestDialog dialog;
    EXPECT_EQ(MenuTitles(dialog), (QStringList{"&File", "&Help"}));
    EXPECT_EQ(Menu(dialog, "&Help")->actions().last()->text(), QStringLiteral("&About Vireo..."));
    const TestDialog withView(true);
    EXPECT_EQ(MenuTitles(withView), (QStringList{"&File", "&View", "&Help"}));
}

TEST(CViewerDialog, FileMenuKeepsExitLast)
{
    TestDialog dialog;
    auto* print = new QAction(QStringLiteral("&Print"), &dialog);
    dialog.AddToFileMenu(print);
    const auto actions = Menu(dialog, "&File")->actions();
    ASSERT_EQ(actions.size(), 3);
    EXPECT_EQ(actions[0], print);
    EXPECT_TRUE(actions[1]->isSeparator());
    EXPECT_EQ(actions[2]->text(), QStringLiteral("E&xit"));
}

TEST(CViewerDialog, KeysReachTheirCommands)
{
    TestDialog dialog;
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    QTest::keyClick(&dialog, Qt::Key_H, Qt::ControlModifier);
    EXPECT_EQ(dialog.commands, std::vector<int>{40001});
    QTest::keyClick(&dialog, Qt::Key_F1);
    EXPECT_EQ(dialog.abouts, 1);
    QTest::keyClick(&dialog, Qt::Key_H);
    EXPECT_EQ(dialog.commands.size(), 1u);
}

TEST(CViewerDialog, GoesOnWithoutAnAcceleratorTable)
{
    MessageRecorder recorder;
    TestDialog dialog;
    EXPECT_TRUE(recorder.Messages().empty());
    dialog.LoadAcceleratorTable("IDR_NO_SUCH_TABLE");
    ASSERT_EQ(recorder.Messages().size(), 1u);
    EXPECT_EQ(recorder.Messages()[0].text, "Load Accel Failed");
    EXPECT_EQ(recorder.Messages()[0].icon, MessageIcon::Exclamation);
    EXPECT_NE(dialog.AcceleratorAction(40001), nullptr);
    EXPECT_EQ(dialog.AcceleratorAction(40002), nullptr);
}

TEST(CViewerDialog, CanBeMaximisedAndHasAnIcon)
{
    const TestDialog dialog;
    EXPECT_TRUE(dialog.windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
    EXPECT_TRUE(dialog.windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
    EXPECT_FALSE(dialog.windowIcon().isNull());
    for (const int size : {16, 32, 48, 256})
        EXPECT_TRUE(ApplicationIcon().availableSizes().contains(QSize(size, size))) << size;
}

struct PlaceCase {
    const char* name;
    QSize wanted;
    QSize smallest;
    QRect place;
};

TEST(Placement, AWindowIsNoLargerThanItsDesktop)
{
    // A panel of 40 pixels at the top; the frame takes 10 in width and 35 in height.
    const QRect desktop(0, 40, 960, 500);
    const QMargins frame(5, 30, 5, 5);
    const PlaceCase rows[] = {
        {"fits", {400, 200}, {100, 100}, {280, 202, 400, 200}},
        {"too wide and too high", {1100, 700}, {500, 400}, {5, 70, 950, 465}},
        {"too wide", {1100, 200}, {500, 100}, {5, 202, 950, 200}},
        {"cannot become so small", {1100, 700}, {1000, 600}, {5, 70, 1000, 600}},
    };
    for (const PlaceCase& row : rows)
        EXPECT_EQ(PlaceOnDesktop(row.wanted, row.smallest, frame, desktop), row.place) << row.name;
}

TEST(CViewerDialog, OpensWithinItsDesktop)
{
    TestDialog dialog;
    dialog.resize(5000, 4000);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    EXPECT_TRUE(dialog.screen()->availableGeometry().contains(dialog.frameGeometry()));
}

TEST(Accelerators, LinesThatCannotBeReadCountForNothing)
{
    const auto table = ParseAccelerators(QStringLiteral("# comment 1\n\n  Ctrl+H \t 40001\r\n"
                                                        "Ctrl+P\nNoSuchKey 3\nF5 x\nAlt+F2 7"));
    ASSERT_EQ(table.size(), 2u);
    EXPECT_EQ(table[0].keys, QKeySequence(Qt::CTRL | Qt::Key_H));
    EXPECT_EQ(table[0].command, 40001);
    EXPECT_EQ(table[1].keys, QKeySequence(Qt::ALT | Qt::Key_F2));
    EXPECT_EQ(table[1].command, 7);
}

TEST(CAboutDlg, ShowsTheProgramsOwnRecord)
{
    CAboutDlg about;
    const ProgramInfo info = OwnProgramInfo();
    const auto text = [&about](const char* name) {
        return about.findChild<QLabel*>(QLatin1String(name))->text();
    };
    EXPECT_EQ(text("FileVersion"), QStringFromText(info.fileVersion));
    EXPECT_EQ(text("FileDescription"), QStringFromText(info.fileDescription));
    EXPECT_EQ(text("Release"), "Release " + QStringFromText(info.productVersion));
    EXPECT_FALSE(text("FileVersion").isEmpty());

    about.show();
    QTest::mouseClick(
        about.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
    EXPECT_FALSE(about.isVisible());
    EXPECT_EQ(about.result(), QDialog::Accepted);
}

TEST(CViewerDialog, ReportsFilesOnceItIsPaintedAndAtItsEnd)
{
    std::vector<std::filesystem::path> reported;
    const auto report = [&](const std::filesystem::path& file) { reported.push_back(file); };
    {
        TestDialog dialog;
        dialog.shown = "a.con";
        dialog.ReportFiles(report);
        dialog.show();
        EXPECT_TRUE(reported.empty()) << "nobody waits for it";
        EXPECT_TRUE(Becomes([&] { return reported.size() == 1; }));
        dialog.shown = "b.con";
        dialog.ShownFileChanged();
        dialog.ShownFileChanged(2);
        EXPECT_EQ(reported, (std::vector<std::filesystem::path>{"a.con", "b.con"}));
    }
    EXPECT_EQ(reported.size(), 2U);
    {
        TestDialog neverPainted;
        neverPainted.shown = "c.con";
        neverPainted.ReportFiles(report);
    }
    EXPECT_EQ(reported.size(), 3U);
}

} // namespace
} // namespace vireo
