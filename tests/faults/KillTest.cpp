// Programs are stopped at any moment while they save: the target is the old file or the new one,
// complete either way. Killed without being asked they may leave a temporary file beside it.

#include "samples/BigFiles.h"
#include "tests/TempFolder.h"
#include "tests/faults/FaultTools.h"

#include <QProcess>
#include <QStringList>

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <iterator>
#include <ostream>
#include <random>
#include <thread>

namespace vireo {

namespace {

using Clock = std::chrono::steady_clock;

struct KillRow {
    const char* name;
    const char* output;
    std::vector<std::string> arguments; ///< Of vireo-cli; IN and OUT are replaced.

    friend void PrintTo(const KillRow& row, std::ostream* out) { *out << row.name; }
};

class Killed : public testing::TestWithParam<KillRow> {
protected:
    void SetUp() override
    {
        std::filesystem::create_directories(m_folder.Path() / "out");
        ASSERT_TRUE(WriteBigFile("tiff", 2'000'000, m_folder.Path() / "in.tif"));
        m_folder.Write("in.con", Sample("dump/test-run.con"));
        for (std::string argument : GetParam().arguments) {
            const std::size_t in = argument.find("IN");
            const std::size_t out = argument.find("OUT");
            if (in == 0)
                argument.replace(0, 2, Text(m_folder.Path() / "in"));
            else if (out == 0)
                argument.replace(0, 3, Text(m_folder.Path() / "out"));
            m_arguments.append(QString::fromStdString(argument));
        }
    }

    /// Starts the program and stops it after a while; true when it had not ended before.
    bool RunFor(std::chrono::microseconds time, int signal) const
    {
        QProcess process;
        process.start(QStringLiteral(VIREO_CLI), m_arguments);
        process.waitForStarted();
        std::this_thread::sleep_for(time);
        ::kill(static_cast<pid_t>(process.processId()), signal);
        process.waitForFinished();
        return process.exitStatus() == QProcess::CrashExit;
    }

    TempFolder m_folder;
    std::filesystem::path m_target = m_folder.Path() / "out" / GetParam().output;
    QStringList m_arguments;
};

TEST_P(Killed, LeaveACompleteFile)
{
    const auto began = Clock::now();
    RunFor(std::chrono::seconds(0), SIGKILL);
    QProcess whole;
    whole.start(QStringLiteral(VIREO_CLI), m_arguments);
    ASSERT_TRUE(whole.waitForFinished());
    ASSERT_EQ(whole.exitCode(), 0) << whole.readAllStandardError().toStdString();
    const auto length = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - began);
    const std::string complete = TempFolder::Read(m_target);
    const std::string old = "what stood there before\n";

    constexpr int kSignals[] = {SIGKILL, SIGTERM, SIGINT, SIGHUP};
    std::mt19937 random(1);
    std::uniform_int_distribution<std::int64_t> moment(0, length.count());
    int killed = 0;
    int kept = 0;
    int leftBehind = 0;
    const int rounds = Rounds(40);
    for (int round = 0; round < rounds; ++round) {
        Refill(m_target.parent_path(), {{m_target.filename().string(), old}});
        const int signal = kSignals[static_cast<std::size_t>(round) % std::size(kSignals)];
        killed += RunFor(std::chrono::microseconds(moment(random)), signal);
        const std::string found = TempFolder::Read(m_target);
        ASSERT_TRUE(found == old || found == complete) << found.size() << " bytes";
        kept += found == old;
        for (const auto& [name, bytes] : ContentOf(m_target.parent_path()))
            if (IsTemporary(name)) {
                EXPECT_EQ(signal, SIGKILL) << "asked to stop, it leaves nothing";
                ++leftBehind;
            }
    }
    EXPECT_GT(killed, 0);
    std::printf("%d runs, %d stopped before their end: %d old files, %d new ones, %d temporary "
                "files left\n",
        rounds, killed, kept, rounds - kept, leftBehind);
}

INSTANTIATE_TEST_SUITE_P(Saves, Killed,
    testing::Values(KillRow{"convert", "a.tif", {"convert", "IN.tif", "-o", "OUT/a.tif"}},
        KillRow{"convertLzw", "a.tif",
            {"convert", "IN.tif", "-o", "OUT/a.tif", "--compression", "lzw"}},
        KillRow{"pack", "a.con", {"pack", "IN.tif", "-o", "OUT/a.con"}},
        KillRow{"export", "a.csv", {"export", "IN.tif", "-o", "OUT/a.csv"}},
        KillRow{"unpack", "Oscil_Adjusted_Color_300.con", {"unpack", "IN.con", "-d", "OUT"}}),
    [](const auto& row) { return row.param.name; });

} // namespace

} // namespace vireo
