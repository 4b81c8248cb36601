#include "app/CViewerDlg.h"
#include "app/UnpackBeside.h"
#include "platform/Log.h"
#include "platform/Message.h"
#include "platform/Path.h"
#include "tests/DumpFile.h"
#include "tests/TempFolder.h"
#include "viewers/controls/CWait_Dialog.h"
#include "viewers/oscilloscope/COscilloscope_Dialog.h"

#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <functional>

namespace vireo {
namespace {

class UnpackBesideTest : public testing::Test {
protected:
    void SetUp() override
    {
        qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(Utf8FromPath(m_folder.Path())));
        std::filesystem::create_directories(m_settings);
        std::filesystem::create_directory(m_dumps);
        log_Init("Test", ".log", m_folder.Path());
    }
    void TearDown() override
    {
        log_Close();
        qunsetenv("XDG_CONFIG_HOME");
    }

    std::filesystem::path Dump(const std::string& bytes)
    {
        return m_folder.Write("dumps/dump.con", bytes);
    }
    std::size_t FilesBesideDump() const
    {
        const std::filesystem::directory_iterator files(m_dumps);
        return static_cast<std::size_t>(std::distance(begin(files), end(files))) - 1;
    }

    TempFolder m_folder;
    std::filesystem::path m_settings = m_folder.Path() / "vireo" / "Fct_Test";
    std::filesystem::path m_dumps = m_folder.Path() / "dumps";
    MessageRecorder m_messages;
};

/// Calls `act` with the modal window that is open, again and again, until it returns true.
class WithModal {
public:
    explicit WithModal(std::function<bool(QWidget&)> act)
    {
        QObject::connect(&m_timer, &QTimer::timeout, [this, act = std::move(act)] {
            QWidget* const window = QApplication::activeModalWidget();
            if (window && act(*window))
                m_timer.stop();
        });
        m_timer.start(5);
    }

private:
    QTimer m_timer;
};

TEST_F(UnpackBesideTest, ItsFolderBecomesTheWorkPath)
{
    m_folder.Write("vireo/Fct_Test/Kestrel6_FixPath.txt", "");
    EXPECT_TRUE(UnpackBeside(Dump(DumpFile{{{"a.con", "x"}}}.Bytes()), nullptr));
    EXPECT_TRUE(m_messages.Messages().empty());
    EXPECT_EQ(TempFolder::Read(m_dumps / "a.con"), "x");
    EXPECT_EQ(TempFolder::Read(m_settings / "Kestrel6_Path.txt"), Utf8FromPath(m_dumps / ""));
}

TEST_F(UnpackBesideTest, WhatIsLeftOutIsToldOnceAndLogged)
{
    std::filesystem::create_directory(m_dumps / "b.con");
    const DumpFile dump{{{"a.con", "x"}, {"NUL", ""}, {"b.con", "y"}}};
    EXPECT_TRUE(UnpackBeside(Dump(dump.Bytes()), nullptr));
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_TRUE(m_messages.Messages()[0].text.ends_with(
        "dump.con\n\n2 of 3 files left out:\n\nNUL: the name is that of a device\n"
        "b.con: Is a folder"))
        << m_messages.Messages()[0].text;
    log_Close();
    const std::string log = TempFolder::Read(m_folder.Path() / "Test.log");
    EXPECT_NE(log.find("Files unpacked: 1"), std::string::npos) << log;
    EXPECT_NE(log.find("NUL the name is that of a device"), std::string::npos) << log;
}

TEST_F(UnpackBesideTest, WithoutAnyFileThereIsNothingToShow)
{
    EXPECT_FALSE(UnpackBeside(Dump(DumpFile{{{"a/b", ""}}}.Bytes()), nullptr));
    EXPECT_FALSE(UnpackBeside(Dump("[Kitbag]\nDataPointer=        99\n"), nullptr));
    EXPECT_FALSE(UnpackBeside(m_dumps / "none", nullptr));
    EXPECT_EQ(m_messages.Messages().size(), 3U);
    EXPECT_TRUE(UnpackBeside(Dump("[Kitbag]\nDataPointer=         0\n"), nullptr))
        << "a dump without members is no failure";
    EXPECT_EQ(m_messages.Messages().size(), 3U);
}

TEST_F(UnpackBesideTest, TheUserCanStopALongOne)
{
    constexpr std::size_t kMembers = 100'000;
    DumpFile dump;
    for (std::size_t i = 0; i < kMembers; ++i)
        dump.members.emplace_back(std::to_string(i), "");
    QString text;
    const WithModal stop([&](QWidget& window) {
        if (!qobject_cast<CWait_Dialog*>(&window))
            return false;
        text = window.findChild<QLabel*>()->text();
        QTest::mouseClick(window.findChild<QPushButton*>(), Qt::LeftButton);
        return true;
    });
    EXPECT_FALSE(UnpackBeside(Dump(dump.Bytes()), nullptr));
    EXPECT_EQ(text, "Unpacking dump.con");
    EXPECT_TRUE(m_messages.Messages().empty()) << "who cancels knows it";
    EXPECT_GT(FilesBesideDump(), 0U);
    EXPECT_LT(FilesBesideDump(), kMembers);
}

/// The whole way with the program's own dialogs: the main dialog unpacks the sample dump, the
/// oscilloscope shows its first file, and Change another.
TEST_F(UnpackBesideTest, TheSampleDumpOpensInTheOscilloscope)
{
    const auto dump = m_dumps / "test-run.con";
    std::filesystem::copy_file(
        std::filesystem::path(VIREO_SAMPLES) / "dump" / "test-run.con", dump);
    CViewerDlg::Setup setup;
    setup.viewers = ProgramViewers();
    setup.recentList = m_folder.Path() / "recent.txt";
    setup.programFolder = m_folder.Path();
    CViewerDlg dialog(std::move(setup));
    dialog.SetFileToLoad(Utf8FromPath(dump));

    std::vector<QString> shown;
    const WithModal look([&shown](QWidget& window) {
        // Commands count from the first paint on.
        if (!qobject_cast<COscilloscope_Dialog*>(&window) || !window.windowHandle()->isExposed())
            return false;
        const auto note = [&] { shown.push_back(window.findChild<QLabel*>("folderText")->text()); };
        note();
        QTimer::singleShot(0, [] {
            auto* const list = QApplication::activeModalWidget()->findChild<QListWidget*>();
            EXPECT_EQ(list->count(), 4);
            list->setCurrentRow(2);
            QTest::keyClick(list, Qt::Key_Return);
        });
        QTest::mouseClick(window.findChild<QPushButton*>("changeButton"), Qt::LeftButton);
        note();
        return window.close();
    });
    EXPECT_EQ(dialog.DoModal(), QDialog::Accepted);
    EXPECT_EQ(shown, (std::vector<QString>{"300dpi Color Adjusted", "300dpi Color Unadjusted"}));
    EXPECT_TRUE(m_messages.Messages().empty());
    EXPECT_FALSE(std::filesystem::exists(m_dumps / "Kitbag.txt")) << "this is no test station";
}

} // namespace
} // namespace vireo
