// Several programs on one file: readers, writers, and readers of a file that is being rewritten.

#include "tests/TempFolder.h"
#include "tests/faults/FaultTools.h"

#include <QProcess>
#include <QStringList>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <fstream>
#include <memory>
#include <ostream>
#include <random>
#include <thread>

namespace vireo {

namespace {

constexpr int kProcesses = 8;

/// Starts several runs of vireo-cli at once and waits for all.
std::vector<ProgramRun> RunTogether(const std::vector<std::vector<std::string>>& commandLines)
{
    std::vector<std::unique_ptr<QProcess>> processes;
    for (const auto& arguments : commandLines) {
        QStringList texts;
        for (const std::string& argument : arguments)
            texts.append(QString::fromStdString(argument));
        processes.push_back(std::make_unique<QProcess>());
        processes.back()->start(QStringLiteral(VIREO_CLI), texts);
    }
    std::vector<ProgramRun> runs;
    for (const auto& process : processes) {
        ProgramRun run;
        if (process->waitForFinished(120'000) && process->exitStatus() == QProcess::NormalExit)
            run.exitStatus = process->exitCode();
        run.output = process->readAllStandardOutput().toStdString();
        run.error = process->readAllStandardError().toStdString();
        runs.push_back(std::move(run));
    }
    return runs;
}

TEST(SharedFile, EightReadersSeeTheSame)
{
    for (const char* const sample :
        {"oscilloscope-lines.con", "startest-sweeps.con", "picture-rgb.tif", "dump/test-run.con"}) {
        const std::string file = std::string(VIREO_SAMPLES) + "/" + sample;
        const ProgramRun alone = RunCli({"analyse", file});
        ASSERT_EQ(alone.exitStatus, 0);
        for (const ProgramRun& run : RunTogether({kProcesses, {"analyse", file}})) {
            EXPECT_EQ(run.exitStatus, 0) << run.error;
            EXPECT_EQ(run.output, alone.output);
        }
    }
}

TEST(SharedFile, OfEightWritersOneWins)
{
    const TempFolder folder;
    std::vector<std::vector<std::string>> commandLines;
    std::vector<std::string> alone;
    for (int i = 0; i < kProcesses; ++i) {
        const std::string input = Text(folder.Write("in" + std::to_string(i) + ".con",
            Sample("noise-gray.con") + std::string(static_cast<std::size_t>(i), 'x')));
        const std::string own = Text(folder.Path() / ("alone" + std::to_string(i)));
        ASSERT_EQ(RunCli({"pack", input, "-o", own}).exitStatus, 0);
        alone.push_back(TempFolder::Read(own));
        commandLines.push_back({"pack", input, "-o", Text(folder.Path() / "out" / "a.con")});
    }
    for (int round = 0; round < Rounds(10); ++round) {
        Refill(folder.Path() / "out", {});
        for (const ProgramRun& run : RunTogether(commandLines))
            EXPECT_EQ(run.exitStatus, 0) << run.error;
        const FolderContent content = ContentOf(folder.Path() / "out");
        ASSERT_EQ(content.size(), 1U);
        EXPECT_NE(std::find(alone.begin(), alone.end(), content.at("a.con")), alone.end());
    }
}

enum class Rewriting { InPlace, ByRenaming, Truncating };

struct RewriteRow {
    const char* name;
    const char* sample;
    Rewriting way;

    friend void PrintTo(const RewriteRow& row, std::ostream* out) { *out << row.name; }
};

/// Rewrites a file over and over, in a thread of its own, until it is destroyed.
class Rewriter {
public:
    Rewriter(std::filesystem::path file, std::string bytes, Rewriting way)
        : m_file(std::move(file)),
          m_bytes(std::move(bytes)),
          m_way(way),
          m_thread([this] { Work(); })
    {
    }
    Rewriter(const Rewriter&) = delete;
    Rewriter& operator=(const Rewriter&) = delete;
    ~Rewriter()
    {
        m_stop = true;
        m_thread.join();
    }

private:
    void Work()
    {
        std::mt19937 random(1);
        std::uniform_int_distribution<std::size_t> place(0, m_bytes.size() - 1);
        while (!m_stop) {
            // The second half differs each time, so that a mixture of two versions is seen too.
            std::string bytes = m_bytes;
            bytes[place(random) / 2 + bytes.size() / 2] = static_cast<char>(random());
            if (m_way == Rewriting::ByRenaming) {
                Rename(bytes);
                continue;
            }
            WriteInPieces(m_file, bytes);
            if (m_way == Rewriting::Truncating) {
                std::filesystem::resize_file(m_file, place(random), m_ignored);
                Pause();
            }
        }
    }

    void Rename(const std::string& bytes)
    {
        std::filesystem::path other = m_file;
        other += ".new";
        WriteInPieces(other, bytes);
        std::filesystem::rename(other, m_file, m_ignored);
    }

    /// Long enough for a reader to come upon what is there now.
    static void Pause() { std::this_thread::sleep_for(std::chrono::microseconds(300)); }

    static void WriteInPieces(const std::filesystem::path& file, const std::string& bytes)
    {
        std::ofstream stream(file, std::ios::binary);
        const std::size_t piece = bytes.size() / 7 + 1;
        for (std::size_t at = 0; at < bytes.size(); at += piece) {
            stream << bytes.substr(at, piece) << std::flush;
            Pause();
        }
    }

    std::filesystem::path m_file;
    std::string m_bytes;
    Rewriting m_way;
    std::error_code m_ignored;
    std::atomic<bool> m_stop{false};
    std::thread m_thread;
};

class Rewritten : public testing::TestWithParam<RewriteRow> { };

TEST_P(Rewritten, GivesAnObjectOrAReason)
{
    const TempFolder folder;
    const std::string bytes = Sample(GetParam().sample);
    const std::string extension = std::filesystem::path(GetParam().sample).extension().string();
    const std::filesystem::path file = folder.Write("a" + extension, bytes);
    const Rewriter rewriter(file, bytes, GetParam().way);
    int objects = 0;
    int failures = 0;
    for (int round = 0; round < Rounds(25); ++round) {
        const ProgramRun run = RunCli({"analyse", Text(file)});
        ASSERT_TRUE(run.exitStatus == 0 || run.exitStatus == 1) << run.exitStatus << run.error;
        const auto found = run.Objects(); // Each line is an object, or this throws.
        objects += static_cast<int>(found.size());
        failures += run.exitStatus;
        EXPECT_LE(found.size(), 1U);
        EXPECT_EQ(run.Errors().size(), run.exitStatus == 0 ? 0U : 1U) << run.error;
        EXPECT_TRUE(run.exitStatus == 1 || found.size() == 1);
    }
    std::printf("%d runs gave %d objects and %d reasons\n", Rounds(25), objects, failures);
}

std::vector<RewriteRow> AllRewritings()
{
    std::vector<RewriteRow> rows;
    for (const auto& [way, name] : {std::pair{Rewriting::InPlace, "in place"},
             {Rewriting::ByRenaming, "by renaming"}, {Rewriting::Truncating, "truncating"}}) {
        for (const char* const sample :
            {"oscilloscope-lines.con", "noise-color.con", "stitch-gray.con", "startest-sweeps.con",
                "tonal-resolution.con", "dump/test-run.con", "picture-gray.tif"})
            rows.push_back({name, sample, way});
    }
    return rows;
}

INSTANTIATE_TEST_SUITE_P(Ways, Rewritten, testing::ValuesIn(AllRewritings()));

} // namespace

} // namespace vireo
