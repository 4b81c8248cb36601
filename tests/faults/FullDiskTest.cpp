// Folders that cannot be written to, and a disk that is full: one line, and the old file stays.

#include "tests/TempFolder.h"
#include "tests/faults/FaultTools.h"

#include <gtest/gtest.h>

#include <ostream>
#include <unistd.h>

namespace vireo {

namespace {

struct SaveRow {
    const char* name;
    const char* output;
    std::vector<std::string> arguments; ///< Of vireo-cli; OUT is replaced.

    friend void PrintTo(const SaveRow& row, std::ostream* out) { *out << row.name; }
};

std::vector<SaveRow> AllSaves()
{
    const std::string samples = std::string(VIREO_SAMPLES) + "/";
    return {
        {"convert", "a.tif",
            {"convert", samples + "picture-gray.tif", "-o", "OUT/a.tif", "--compression", "none"}},
        {"export", "a.csv", {"export", samples + "noise-color.con", "-o", "OUT/a.csv"}},
        {"render", "a.svg", {"render", samples + "noise-color.con", "-o", "OUT/a.svg"}},
        {"pack", "a.con", {"pack", samples + "picture-rgb.tif", "-o", "OUT/a.con"}},
        {"unpack", "Oscil_Adjusted_Color_300.con",
            {"unpack", samples + "dump/test-run.con", "-d", "OUT"}}};
}

class NoRoom : public testing::TestWithParam<SaveRow> {
protected:
    std::vector<std::string> Command() const
    {
        std::vector<std::string> command{
            "env", "QT_QPA_PLATFORM=offscreen", "HOME=/tmp", VIREO_CLI};
        for (std::string argument : GetParam().arguments) {
            if (argument.starts_with("OUT"))
                argument.replace(0, 3, Text(m_out));
            command.push_back(argument);
        }
        return command;
    }

    /// The first line is the program's exit status, the others are the names in the folder.
    void Check(const ProgramRun& run) const
    {
        EXPECT_EQ(run.output, "1\n" + std::string(GetParam().output) + "\nold\n") << run.error;
        EXPECT_EQ(run.Errors().size(), 1U) << run.error;
    }

    TempFolder m_folder;
    std::filesystem::path m_out = m_folder.Path() / "out";
};

constexpr const char* kRunAndLook = R"("$@"; echo $?; cd "$OUT" && ls -A | grep . && cat "$NAME")";

TEST_P(NoRoom, ReadOnlyFolder)
{
    namespace fs = std::filesystem;
    fs::create_directories(m_out);
    m_folder.Write(std::string("out/") + GetParam().output, "old\n");
    fs::permissions(m_out,
        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
        fs::perm_options::remove);
    std::vector<std::string> arguments{
        "OUT=" + Text(m_out), std::string("NAME=") + GetParam().output};
    if (geteuid() == 0) {
        // Root may write anywhere.
        const std::vector<std::string> nobody{
            "setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"};
        std::vector<std::string> trial(nobody.begin() + 1, nobody.end());
        trial.insert(trial.end(), {VIREO_CLI, "--version"});
        if (RunTool("setpriv", trial).exitStatus != 0)
            GTEST_SKIP() << "a user without rights cannot run the programs here";
        arguments.insert(arguments.end(), nobody.begin(), nobody.end());
    }
    arguments.insert(arguments.end(), {"sh", "-c", kRunAndLook, "sh"});
    const auto command = Command();
    arguments.insert(arguments.end(), command.begin(), command.end());
    Check(RunTool("env", arguments));
}

TEST_P(NoRoom, FullDisk)
{
    if (RunTool("unshare", {"--mount", "true"}).exitStatus != 0)
        GTEST_SKIP() << "only root can make a small disk";
    std::filesystem::create_directories(m_out);
    const std::string script = std::string("mount -t tmpfs -o size=16k none \"$OUT\" || exit 77\n"
                                           "echo old >\"$OUT/$NAME\"\n")
        + kRunAndLook;
    std::vector<std::string> arguments{"OUT=" + Text(m_out),
        std::string("NAME=") + GetParam().output, "unshare", "--mount", "sh", "-c", script, "sh"};
    const auto command = Command();
    arguments.insert(arguments.end(), command.begin(), command.end());
    const ProgramRun run = RunTool("env", arguments);
    if (run.exitStatus == 77)
        GTEST_SKIP() << "no disk can be mounted here";
    if (GetParam().output == std::string("Oscil_Adjusted_Color_300.con")) {
        // What had room is there.
        EXPECT_TRUE(run.output.starts_with("1\n")) << run.output;
        EXPECT_EQ(run.output.find(".vireo-"), std::string::npos) << run.output;
        EXPECT_TRUE(run.output.ends_with("old\n")) << run.output;
        return;
    }
    Check(run);
}

INSTANTIATE_TEST_SUITE_P(
    Saves, NoRoom, testing::ValuesIn(AllSaves()), [](const auto& row) { return row.param.name; });

} // namespace

} // namespace vireo
