// Every call by which files are written fails once, in every command and viewer that saves: what
// stood at the target stays, byte for byte, nothing is left beside it, and one line says why.

#include "tests/TempFolder.h"
#include "tests/faults/FaultTools.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <ostream>

namespace vireo {

namespace {

constexpr const char* kOld = "what stood there before\n";

enum class Saves { OneFile, SeveralFiles };

/// A program that saves. IN/ and OUT/ in its arguments stand for two folders; calls on files in OUT
/// fail.
struct SaveRow {
    const char* name;
    std::string program;
    std::vector<std::string> arguments;
    FolderContent before; ///< What is in OUT.
    Saves saves = Saves::OneFile;

    friend void PrintTo(const SaveRow& row, std::ostream* out) { *out << row.name; }
};

std::vector<SaveRow> AllSaves()
{
    const std::string cli = VIREO_CLI;
    const std::string save = VIREO_SAVE_FILE;
    const std::string picture = "IN/picture-gray.tif";
    return {
        {"convert", cli, {"convert", picture, "-o", "OUT/a.tif"}, {{"a.tif", kOld}}},
        {"convert-new", cli, {"convert", picture, "-o", "OUT/a.tif"}, {}},
        {"convert-lzw", cli,
            {"convert", "IN/picture-rgb.tif", "-o", "OUT/a.tif", "--compression", "lzw",
                "--predictor", "2"},
            {{"a.tif", kOld}}},
        {"export", cli, {"export", "IN/noise-gray.con", "-o", "OUT/a.csv"}, {{"a.csv", kOld}}},
        {"export-tiff", cli, {"export", picture, "-o", "OUT/a.csv"}, {}},
        {"render-png", cli, {"render", "IN/noise-gray.con", "-o", "OUT/a.png"}, {{"a.png", kOld}}},
        {"render-svg", cli, {"render", "IN/mtf.con", "-o", "OUT/a.svg"}, {{"a.svg", kOld}}},
        {"render-pdf", cli, {"render", "IN/startest-sweeps.con", "-o", "OUT/a.pdf"},
            {{"a.pdf", kOld}}},
        {"report", cli, {"report", "IN/noise-gray.con", "IN/mtf.con", "-o", "OUT/a.pdf"},
            {{"a.pdf", kOld}}},
        {"pack", cli, {"pack", "IN/noise-gray.con", picture, "-o", "OUT/a.con"}, {{"a.con", kOld}}},
        {"unpack", cli, {"unpack", "IN/test-run.con", "-d", "OUT"},
            {{"Oscil_Adjusted_Color_300.con", kOld}}, Saves::SeveralFiles},
        {"unpack-new-folder", cli, {"unpack", "IN/test-run.con", "-d", "OUT/new"}, {},
            Saves::SeveralFiles},
        {"save-noise", save, {"noise", "IN/noise-color.con", "OUT/a.con"}, {{"a.con", kOld}}},
        {"save-tonal", save, {"tonal", "IN/tonal-resolution.con", "OUT/a.con"}, {{"a.con", kOld}}},
        {"rewrite-tonal", save, {"tonal-open", "OUT/a.con"},
            {{"a.con", Sample("tonal-resolution-version-1.con")}}, Saves::SeveralFiles},
        {"save-picture", save, {"picture", picture, "OUT/a.tif"}, {{"a.tif", kOld}}},
        {"setting", save, {"setting", "OUT/a.ini"}, {{"a.ini", "[Test]\r\nValue=old\r\n"}}},
        {"new-setting", save, {"setting", "OUT/a.ini"}, {}},
    };
}

/// The bytes of a complete file, without the times that a PDF holds.
std::string WithoutTimes(const std::string& name, const std::string& bytes)
{
    if (!name.ends_with(".pdf"))
        return bytes;
    const bool isComplete = bytes.starts_with("%PDF-") && bytes.ends_with("%%EOF\n");
    return isComplete ? "a complete PDF" : bytes;
}

class FailingCalls : public testing::TestWithParam<SaveRow> {
protected:
    void SetUp() override
    {
        std::filesystem::create_directories(m_in);
        for (const char* const name : {"picture-gray.tif", "picture-rgb.tif", "noise-gray.con",
                 "noise-color.con", "mtf.con", "startest-sweeps.con", "tonal-resolution.con"})
            m_folder.Write(std::string("in/") + name, Sample(name));
        m_folder.Write("in/test-run.con", Sample("dump/test-run.con"));
    }

    /// Runs the program in a folder as it was before; its `call`th call fails with `error`.
    ProgramRun Run(int call, int error)
    {
        Refill(m_out, GetParam().before);
        std::filesystem::remove(m_note);
        std::vector<std::string> arguments{std::string("LD_PRELOAD=") + VIREO_FAILING_SYSTEM,
            "VIREO_FAIL_UNDER=" + Text(m_out), "VIREO_FAIL_NOTE=" + Text(m_note),
            "VIREO_FAIL_AT=" + std::to_string(call), "VIREO_FAIL_WITH=" + std::to_string(error),
            "QT_QPA_PLATFORM=offscreen", GetParam().program};
        for (const std::string& argument : GetParam().arguments)
            arguments.push_back(argument.starts_with("IN/") ? Text(m_in) + argument.substr(2)
                    : argument.starts_with("OUT")           ? Text(m_out) + argument.substr(3)
                                                            : argument);
        return RunTool("env", arguments);
    }

    /// What failed; empty when no call came to its turn.
    std::string FailedCall() const { return TempFolder::Read(m_note); }

    FolderContent Outcome() const
    {
        FolderContent content = ContentOf(m_out);
        for (auto& [name, bytes] : content)
            bytes = WithoutTimes(name, bytes);
        return content;
    }

    void CheckFailure(const ProgramRun& run, const FolderContent& complete) const
    {
        EXPECT_EQ(run.exitStatus, 1);
        EXPECT_EQ(run.Errors().size(), 1U) << run.error;
        if (GetParam().saves == Saves::OneFile) {
            EXPECT_EQ(Outcome(), GetParam().before);
            return;
        }
        // Some are saved, some are not; each is complete or as it was.
        for (const auto& [name, bytes] : GetParam().before)
            EXPECT_TRUE(Outcome().contains(name)) << name;
        for (const auto& [name, bytes] : Outcome()) {
            const auto before = GetParam().before.find(name);
            const bool isAsBefore = before != GetParam().before.end() && before->second == bytes;
            EXPECT_TRUE(isAsBefore || (complete.contains(name) && complete.at(name) == bytes))
                << name;
        }
    }

    /// Lets each call fail in turn until there are no more; how many there were.
    int FailEach(int error, const FolderContent& complete)
    {
        constexpr int kMostCalls = 1000;
        for (int call = 1; call < kMostCalls; ++call) {
            const ProgramRun run = Run(call, error);
            const std::string failed = FailedCall();
            SCOPED_TRACE("call " + std::to_string(call) + ", " + failed);
            // What the system will not copy is copied by the program, and a folder that cannot be
            // flushed takes nothing from the file in it.
            if (failed.empty() || failed == "copy_file_range" || failed == "fsync of a folder") {
                EXPECT_EQ(run.exitStatus, 0) << run.error;
                EXPECT_EQ(Outcome(), complete);
            } else {
                CheckFailure(run, complete);
            }
            for (const auto& [name, bytes] : Outcome())
                EXPECT_FALSE(IsTemporary(name)) << name;
            if (failed.empty() || HasFailure())
                return call - 1;
        }
        return kMostCalls;
    }

    TempFolder m_folder;
    std::filesystem::path m_in = m_folder.Path() / "in";
    std::filesystem::path m_out = m_folder.Path() / "out";
    std::filesystem::path m_note = m_folder.Path() / "note";
};

TEST_P(FailingCalls, LeaveTheOldFile)
{
    const ProgramRun good = Run(0, 0);
    ASSERT_EQ(good.exitStatus, 0) << good.error;
    const FolderContent complete = Outcome();
    ASSERT_NE(complete, GetParam().before);
    for (const int error : {ENOSPC, EIO}) {
        SCOPED_TRACE(error == EIO ? "EIO" : "ENOSPC");
        const int calls = FailEach(error, complete);
        // Made, written and renamed at the least.
        EXPECT_GE(calls, 3);
        std::printf("%d calls failed in turn\n", calls);
    }
}

INSTANTIATE_TEST_SUITE_P(Saves, FailingCalls, testing::ValuesIn(AllSaves()), [](const auto& row) {
    std::string name = row.param.name;
    std::erase(name, '-');
    return name;
});

} // namespace

} // namespace vireo
