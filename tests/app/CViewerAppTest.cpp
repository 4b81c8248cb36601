#include "app/CViewerApp.h"
#include "platform/Log.h"
#include "platform/Message.h"
#include "platform/Path.h"
#include "tests/TempFolder.h"

#include <QTimer>

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

using namespace vireo;

namespace {

constexpr std::size_t kTimestampLength = std::string_view("2026-03-01 13:05:09.042 ").size();

/// Starts the application on a command line; its viewers note what they were opened with.
class CViewerAppTest : public testing::Test {
protected:
    void SetUp() override { log_Close(); }
    void TearDown() override { log_Close(); }

    /// `closes`: whether the main dialog has to be closed for the program to end.
    bool Start(const std::string& commandLine, bool closes)
    {
        CViewerDlg::Setup setup;
        setup.programFolder = m_folder.Path();
        setup.viewers.Add("COscilloscope_Dialog",
            [this](const auto& file, ViewerHost&, QWidget*) { m_opened.push_back(file); });
        CViewerApp app(commandLine, std::move(setup));
        QTimer close;
        QObject::connect(&close, &QTimer::timeout, [&] {
            if (closes || !m_messages.Messages().empty())
                app.MainWindow()->reject();
        });
        close.start(1);
        const bool result = app.InitInstance();
        EXPECT_EQ(app.MainWindow(), nullptr);
        log_Close();
        return result;
    }

    std::vector<std::string> LogLines() const
    {
        std::istringstream text(TempFolder::Read(m_folder.Path() / "Vireo.log"));
        std::vector<std::string> lines;
        for (std::string line; std::getline(text, line);)
            lines.push_back(line.substr(std::min(line.size(), kTimestampLength)));
        return lines;
    }

    TempFolder m_folder;
    MessageRecorder m_messages;
    std::vector<std::filesystem::path> m_opened;
};

} // namespace

TEST_F(CViewerAppTest, OpensTheFileOfTheCommandLineAndLogsTheWay)
{
    const auto file = m_folder.Write("two blanks.con", "[MTF]\nDataPointer=        60\n");
    const std::string line = Utf8FromPath(file);
    EXPECT_FALSE(Start(line, false));
    EXPECT_EQ(m_opened, std::vector{file});
    EXPECT_TRUE(m_messages.Messages().empty());
    EXPECT_EQ(LogLines(),
        (std::vector<std::string>{"Command Line Start", line, "Command Line End",
            "void CViewerDlg::SetFileToLoad(char* txt) Load File Name:", line,
            "CViewerDlg::Load File Name:"}));
}

TEST_F(CViewerAppTest, AnEmptyCommandLineLogsNothingAndShowsTheLauncher)
{
    EXPECT_FALSE(Start("", true));
    EXPECT_TRUE(m_opened.empty());
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(CViewerAppTest, ASwitchBeforeADrivePathIsNotPartOfTheName)
{
    EXPECT_FALSE(Start("-o D:\\r.con", false));
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_NE(m_messages.Messages().front().text.find("D:\\r.con"), std::string::npos);
    EXPECT_EQ(m_messages.Messages().front().text.find("-o"), std::string::npos);
    EXPECT_EQ(LogLines().at(1), "-o D:\\r.con");
    EXPECT_EQ(LogLines().at(4), "D:\\r.con");
}
