#include "tests/TempFolder.h"
#include "tests/cli/ProgramRun.h"
#include "tests/cli/ScanFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <sstream>

namespace vireo {

namespace {

struct UsageRow {
    const char* name;
    std::vector<std::string> arguments;

    friend void PrintTo(const UsageRow& row, std::ostream* out) { *out << row.name; }
};

class BadUsage : public testing::TestWithParam<UsageRow> { };

TEST_P(BadUsage, IsToldInOneLine)
{
    const ProgramRun run = RunCli(GetParam().arguments);
    EXPECT_EQ(run.exitStatus, 2);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.Errors().size(), 1U) << run.error;
    EXPECT_TRUE(run.error.starts_with("vireo-cli: ")) << run.error;
}

INSTANTIATE_TEST_SUITE_P(CommandLines, BadUsage,
    testing::Values(UsageRow{"nothing", {}}, UsageRow{"unknown command", {"show", "a.con"}},
        UsageRow{"empty command", {""}}, UsageRow{"command of two lines", {"a\nb"}},
        UsageRow{"no file", {"identify"}}, UsageRow{"no file behind --", {"identify", "--"}},
        UsageRow{"unknown option", {"identify", "--all", "a.con"}},
        UsageRow{"option of another command", {"identify", "--line", "1", "a.con"}},
        UsageRow{"option before the command", {"--jobs", "2", "identify", "a.con"}},
        UsageRow{"unknown option before the command", {"--all", "identify", "a.con"}},
        UsageRow{"value for a flag", {"analyse", "--recursive=3", "a.con"}},
        UsageRow{"no value", {"analyse", "a.con", "--line"}},
        UsageRow{"no number", {"analyse", "--line", "first", "a.con"}},
        UsageRow{"number with a rest", {"analyse", "--line", "1x", "a.con"}},
        UsageRow{"negative line", {"analyse", "--line", "-1", "a.con"}},
        UsageRow{"line without end", {"analyse", "--line", "99999999999999999999", "a.con"}},
        UsageRow{"no jobs", {"analyse", "--jobs", "0", "a.con"}},
        UsageRow{"unknown kind", {"analyse", "--as", "scan", "a.con"}},
        UsageRow{"option twice", {"analyse", "--line", "1", "--line", "2", "a.con"}},
        UsageRow{"no output", {"export", "a.con"}},
        UsageRow{"two files into one", {"export", "a.con", "b.con", "-o", "c.csv"}},
        UsageRow{"unknown picture", {"render", "a.con", "-o", "a.bmp"}},
        UsageRow{"picture without extension", {"render", "a.con", "-o", "png"}},
        UsageRow{"size without height", {"render", "a.con", "-o", "a.png", "--size", "100"}},
        UsageRow{"size of nothing", {"render", "a.con", "-o", "a.png", "--size", "0x100"}},
        UsageRow{"size too large", {"render", "a.con", "-o", "a.png", "--size", "16385x10"}},
        UsageRow{"no scale", {"render", "a.con", "-o", "a.png", "--scale", "0"}},
        UsageRow{"scaled too large",
            {"render", "a.con", "--size", "5000x10", "--scale", "4", "-oa.png"}},
        UsageRow{"unknown camera", {"render", "a.con", "-o", "a.png", "--camera", "I"}},
        UsageRow{"unknown colour", {"render", "a.con", "-o", "a.png", "--color", "pink"}},
        UsageRow{"unknown paper", {"render", "a.con", "-o", "a.pdf", "--page", "A5"}},
        UsageRow{"error code of letters", {"error", "0x65"}},
        UsageRow{"output without a name", {"export", "a.con", "-o", ""}},
        UsageRow{"value for the help", {"export", "--help=1"}},
        UsageRow{"two dumps", {"unpack", "a.con", "b.con"}},
        UsageRow{"folder without a name", {"unpack", "a.con", "-d", ""}},
        UsageRow{"limits without a name", {"check", "a.con", "--limits", ""}},
        UsageRow{"drawn limits without a name", {"render", "a.con", "-oa.png", "--limits="}},
        UsageRow{"no dump to pack into", {"pack", "a.con"}},
        UsageRow{"no zoom", {"render", "a.con", "-o", "a.png", "--zoom", "0"}}));

TEST(Usage, FaultsAreToldInWordsForUsers)
{
    struct Row {
        std::vector<std::string> arguments;
        const char* text;
    };
    for (const Row& row : {Row{{"analyse", "--arrays=1", "x"}, "--arrays takes no value"},
             Row{{"analyse", "--help=1"}, "--help takes no value"},
             Row{{"analyse", "--line", "1", "--line=2", "x"}, "--line is given more than once"},
             Row{{"unpack", "x", "y"}, "There is more than one FILE"},
             Row{{"analyse", "--bogus"}, "There is no option --bogus"},
             Row{{"check", "-x", "--line", "a"}, "There is no option -x"},
             Row{{"analyse", "--bogus=3", "x"}, "There is no option --bogus"}})
        EXPECT_EQ(RunCli(row.arguments).error,
            "vireo-cli: " + std::string(row.text) + " (see vireo-cli --help)\n");
}

TEST(Error, PrintsTheRowOfACode)
{
    struct Row {
        std::vector<std::string> arguments;
        const char* output;
    };
    for (const Row& row : {Row{{"error", "850"},
                               R"({"code":850,"severity":0,"class":"User Correctable",)"
                               R"("text":"Paper jam. Please reinsert sheet and try again."})"},
             Row{{"error", "--plate", "850"},
                 R"({"code":850,"severity":0,"class":"User Correctable",)"
                 R"("text":"Table jam. Please reposition plate and try again."})"}}) {
        const ProgramRun run = RunCli(row.arguments);
        EXPECT_EQ(run.exitStatus, 0);
        EXPECT_EQ(run.output, row.output + std::string("\n"));
    }
    const ProgramRun unknown = RunCli({"error", "102"});
    EXPECT_EQ(unknown.exitStatus, 1);
    EXPECT_EQ(unknown.output, "");
    EXPECT_EQ(unknown.error, "vireo-cli: 102: no such error code\n");
}

TEST(Usage, TellsTheVersion)
{
    const ProgramRun run = RunCli({"--version"});
    EXPECT_EQ(run.exitStatus, 0);
    EXPECT_EQ(run.output, "vireo-cli " VIREO_VERSION "\n");
}

#ifndef _WIN32
TEST(Usage, AnOutputThatCannotBeWrittenIsAFailure)
{
    for (const char* arguments : {"--version", "--help", "render --help", "error 850",
             "identify " VIREO_SAMPLES "/mtf.con"}) {
        for (const char* output : {" >/dev/full", " >&-"}) {
            const ProgramRun run =
                RunTool("sh", {"-c", std::string(VIREO_CLI " ") + arguments + output});
            EXPECT_EQ(run.exitStatus, 1) << arguments << output;
            EXPECT_EQ(run.error, "vireo-cli: standard output: Cannot be written\n");
        }
    }
}

TEST(Usage, WhatIsToldDoesNotGoIntoTheFileThatIsWritten)
{
    // Its rows fail while the report is being written.
    std::string bytes = TempFolder::Read(VIREO_SAMPLES "/picture-rgb.tif");
    std::fill_n(bytes.begin() + 20000, 10000, '\xFF');
    const TempFolder folder;
    const std::string picture = Text(folder.Write("bad.tif", bytes));
    const auto report = folder.Path() / "a.pdf";
    const ProgramRun run = RunTool(
        "sh", {"-c", VIREO_CLI " report " + picture + " -o " + Text(report) + " 0<&- >&- 2>&-"});
    EXPECT_EQ(run.exitStatus, 1);
    const std::string pdf = TempFolder::Read(report);
    EXPECT_TRUE(pdf.starts_with("%PDF"));
    EXPECT_EQ(pdf.find("vireo-cli: "), std::string::npos);
}
#endif

TEST(Usage, TellsHelpOfEachCommandOnEightyColumns)
{
    const ProgramRun program = RunCli({"--help"});
    EXPECT_EQ(program.exitStatus, 0);
    for (const char* command : {"identify", "header", "analyse", "check", "render", "report",
             "export", "unpack", "pack", "convert", "error"}) {
        EXPECT_NE(program.output.find("\n  " + std::string(command) + ' '), std::string::npos);
        const ProgramRun run = RunCli({command, "--help"});
        EXPECT_EQ(run.exitStatus, 0) << command;
        EXPECT_TRUE(
            run.output.starts_with("Usage: vireo-cli " + std::string(command) + " [options]"))
            << run.output;
        EXPECT_NE(run.output.find("\n  -h, --help "), std::string::npos) << command;
        EXPECT_EQ(run.error, "") << command;
        std::istringstream lines(program.output + run.output);
        for (std::string line; std::getline(lines, line);)
            EXPECT_LE(line.size(), 80U) << line;
    }
}

TEST(Usage, BracketsAndWhatFollowsTheEndOfOptionsAreTexts)
{
    EXPECT_EQ(RunCli({"error", "--", "850"}).output, RunCli({"error", "850"}).output);
    const ProgramRun run = RunCli({"analyse", "a.con", "--as", "[mtf]"});
    EXPECT_NE(run.error.find("There is no kind [mtf]"), std::string::npos) << run.error;
}

TEST(Usage, ReadsNumbersAsDecimal)
{
    ScanFile scan;
    scan.lines = 9;
    const TempFolder folder;
    const std::string file = Text(folder.Write("a.con", scan.Bytes()));
    EXPECT_EQ(RunCli({"analyse", "--line", "08", file}).output,
        RunCli({"analyse", "--line=8", file}).output);
}

} // namespace

} // namespace vireo
