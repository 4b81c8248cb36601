#include "platform/AppendFile.h"
#include "platform/KnownFolders.h"
#include "platform/Log.h"
#include "tests/TempFolder.h"

#include <cstdlib>
#include <regex>
#include <sstream>
#include <thread>
#include <vector>

namespace vireo {
namespace {

std::vector<std::string> Lines(const std::filesystem::path& file)
{
    std::istringstream stream(TempFolder::Read(file));
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

/// The messages of a log without their time stamps, which are checked for their form.
std::vector<std::string> Messages(const std::filesystem::path& file)
{
    static const std::regex kStamp(R"(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3} )");
    std::vector<std::string> messages;
    for (const std::string& line : Lines(file)) {
        EXPECT_TRUE(std::regex_search(line, kStamp, std::regex_constants::match_continuous))
            << line;
        messages.push_back(line.substr(24));
    }
    return messages;
}

/// Begins and ends without a log, whatever the tests before and after do.
class LogTest : public testing::Test {
protected:
    LogTest() { Forget(); }
    ~LogTest() override { Forget(); }

    static void Forget()
    {
        const TempFolder folder;
        log_Init("Forget", ".log", folder.Path());
        log_Close();
    }
    TempFolder m_folder;
};

TEST_F(LogTest, OneLineForEachMessage)
{
    ASSERT_TRUE(log_Init("Vireo", ".log", m_folder.Path()));
    EXPECT_EQ(log_FilePath(), m_folder.Path() / "Vireo.log");
    Log_Msg("bool COscilloscope_Dialog::ReadFile()");
    Log_Msg("two\r\nlines\n");
    Log_Msg("caf\xE9");
    Log_Msg_Int("iResult =", -5'000'000'000);
    Log_Msg_Txt("File: ", "a.con");
    Log_Msg_Double("Factor", 0.5);
    Log_Msg_Hex("Result", 0x8447001B);
    Log_Msg_Hex("Result", 1);
    Log_Msg_Char("Camera", 'E');
    log_Close();
    const std::vector<std::string> expected = {"bool COscilloscope_Dialog::ReadFile()",
        "two  lines ", "caf\xE9", "iResult = -5000000000", "File: a.con", "Factor 0.5",
        "Result 0x8447001B", "Result 0x00000001", "Camera E"};
    EXPECT_EQ(Messages(m_folder.Path() / "Vireo.log"), expected);
}

TEST_F(LogTest, EarlyMessagesAreKeptUpToALimit)
{
    for (int i = 0; i < 1'005; ++i)
        Log_Msg_Int("early", i);
    EXPECT_EQ(log_FilePath(), std::filesystem::path());
    ASSERT_TRUE(log_Init("Vireo", ".log", m_folder.Path()));
    Log_Msg("late");
    log_Close();
    const std::vector<std::string> messages = Messages(m_folder.Path() / "Vireo.log");
    ASSERT_EQ(messages.size(), 1'002U);
    for (std::size_t i = 0; i < 1'000; ++i)
        EXPECT_EQ(messages[i], "early " + std::to_string(i));
    EXPECT_EQ(messages[1'000], "5 more early messages were not kept");
    EXPECT_EQ(messages[1'001], "late");
}

TEST_F(LogTest, LaterProgramsAddToTheLog)
{
    const auto path = m_folder.Write("Vireo.log", "2026-03-01 13:05:09.042 before\n");
    ASSERT_TRUE(log_Init("Vireo", ".log", m_folder.Path()));
    Log_Msg("after");
    log_Close();
    EXPECT_EQ(Messages(path), (std::vector<std::string>{"before", "after"}));
}

TEST_F(LogTest, ALargeLogMakesRoomForANewOne)
{
    const auto path = m_folder.Write("Vireo.log", std::string(kLargestLog, 'x'));
    const auto old = m_folder.Write("Vireo.old.log", "from before\n");
    ASSERT_TRUE(log_Init("Vireo", ".log", m_folder.Path()));
    Log_Msg("first");
    EXPECT_EQ(std::filesystem::file_size(old), kLargestLog);
    EXPECT_EQ(Messages(path), std::vector<std::string>{"first"});

    AppendFile other; // Of a second viewer, which has the log open.
    ASSERT_TRUE(other.Open(path));
    const std::string line(kLargestLog / 4, 'y');
    for (int i = 0; i < 4; ++i)
        Log_Msg(line);
    log_Close();
    EXPECT_EQ(std::filesystem::file_size(path), 24 + line.size() + 1) << "the fourth has no room";
    EXPECT_LE(std::filesystem::file_size(old), kLargestLog);
    EXPECT_TRUE(other.Append("late\n"));
    EXPECT_EQ(TempFolder::Read(old).substr(24, 6), "first\n");
}

TEST_F(LogTest, SeveralWritersDoNotGarbleLines)
{
    constexpr int kLines = 500;
    const auto path = m_folder.Path() / "shared.log";
    const auto append = [&](char letter) {
        AppendFile file;
        ASSERT_TRUE(file.Open(path));
        for (int i = 0; i < kLines; ++i)
            EXPECT_TRUE(
                file.Append(std::string(static_cast<std::size_t>(50 + i % 100), letter) + '\n'));
    };
    std::vector<std::thread> writers;
    for (const char letter : {'a', 'b', 'c', 'd'})
        writers.emplace_back(append, letter);
    for (std::thread& writer : writers)
        writer.join();
    const std::vector<std::string> lines = Lines(path);
    EXPECT_EQ(lines.size(), 4U * kLines);
    for (const std::string& line : lines) {
        EXPECT_GE(line.size(), 50U);
        EXPECT_EQ(line.find_first_not_of(line[0]), std::string::npos) << line;
    }
}

TEST_F(LogTest, ThreadsOfOneProgramShareIt)
{
    ASSERT_TRUE(log_Init("Vireo", ".log", m_folder.Path()));
    const auto log = [](int writer) {
        for (int i = 0; i < 200; ++i)
            Log_Msg_Int("writer", writer);
    };
    std::thread other(log, 1);
    log(2);
    other.join();
    log_Close();
    EXPECT_EQ(Messages(m_folder.Path() / "Vireo.log").size(), 400U);
}

#ifdef _WIN32
TEST_F(LogTest, GoesToTheStateFolderWhenTheFolderTakesNoFile)
{
    Log_Msg("early");
    ASSERT_TRUE(log_Init("VireoTest", ".log", m_folder.Path() / "missing"));
    const auto path = log_FilePath();
    log_Close();
    EXPECT_EQ(path, StateFolder() / "VireoTest.log");
    EXPECT_EQ(Messages(path), std::vector<std::string>{"early"});
    std::filesystem::remove(path);
}
#else
/// Sets an environment variable, while it lives.
class ScopedVariable {
public:
    ScopedVariable(const char* name, const std::string& value) : m_name(name)
    {
        if (const char* const before = std::getenv(name))
            m_before = before;
        setenv(name, value.c_str(), 1);
    }
    ~ScopedVariable()
    {
        if (m_before)
            setenv(m_name, m_before->c_str(), 1);
        else
            unsetenv(m_name);
    }

private:
    const char* m_name;
    std::optional<std::string> m_before;
};

TEST_F(LogTest, GoesToTheStateFolderWhenTheFolderTakesNoFile)
{
    const ScopedVariable state("XDG_STATE_HOME", (m_folder.Path() / "state" / "deep").string());
    Log_Msg("early");
    ASSERT_TRUE(log_Init("Vireo", ".log", "/proc"));
    EXPECT_EQ(log_FilePath(), m_folder.Path() / "state" / "deep" / "vireo" / "Vireo.log");
    const auto path = log_FilePath();
    log_Close();
    EXPECT_EQ(Messages(path), std::vector<std::string>{"early"});
}

TEST_F(LogTest, WithNoPlaceToWriteMessagesAreDropped)
{
    const ScopedVariable state("XDG_STATE_HOME", "/proc");
    Log_Msg("early");
    EXPECT_FALSE(log_Init("Vireo", ".log", "/proc"));
    EXPECT_EQ(log_FilePath(), std::filesystem::path());
    Log_Msg("dropped");
    ASSERT_TRUE(log_Init("Vireo", ".log", m_folder.Path()));
    log_Close();
    EXPECT_EQ(TempFolder::Read(m_folder.Path() / "Vireo.log"), "");
}

TEST(KnownFolders, FollowTheDesktopStandard)
{
    const ScopedVariable home("HOME", "/home/somebody");
    const ScopedVariable config("XDG_CONFIG_HOME", "relative/is/ignored");
    const ScopedVariable data("XDG_DATA_HOME", "/data");
    const ScopedVariable dirs("XDG_DATA_DIRS", "/one:relative::/two/");
    EXPECT_EQ(ConfigFolder(), "/home/somebody/.config/vireo");
    EXPECT_EQ(ColourProfileFolders(),
        (std::vector<std::filesystem::path>{
            "/data/color/icc", "/one/color/icc", "/two/color/icc"}));
}
#endif

TEST(KnownFolders, TheProgramIsWhereItSays)
{
    EXPECT_TRUE(std::filesystem::is_regular_file(ProgramPath()));
    EXPECT_EQ(ProgramPath().stem(), "vireo_core_tests");
    EXPECT_EQ(ProgramPath().parent_path(), ProgramFolder());
    EXPECT_TRUE(StateFolder().is_absolute());
    EXPECT_TRUE(ConfigFolder().is_absolute());
    EXPECT_FALSE(ColourProfileFolders().empty());
}

TEST(CDateTime, Text)
{
    EXPECT_EQ((CDateTime{2026, 3, 1, 13, 5, 9, 42}.Text()), "2026-03-01 13:05:09.042");
    const CDateTime now = CDateTime::Now();
    EXPECT_GE(now.m_iYear, 2026);
    EXPECT_TRUE(now.m_iMonth >= 1 && now.m_iMonth <= 12 && now.m_iDay >= 1 && now.m_iDay <= 31);
}

} // namespace
} // namespace vireo
