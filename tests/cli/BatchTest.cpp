#include "tests/TempFolder.h"
#include "tests/cli/ProgramRun.h"
#include "tests/cli/ScanFile.h"

#include <gtest/gtest.h>

namespace vireo {

namespace {

TEST(Batch, KeepsTheOrderOfTheCommandLineWhateverTheJobs)
{
    // Long files between short ones, so that results come out of turn.
    ScanFile shortScan;
    shortScan.cameras = {12};
    ScanFile longScan;
    longScan.cameras = {300'000};
    const TempFolder folder;
    folder.Write("short.con", shortScan.Bytes());
    folder.Write("long.con", longScan.Bytes());
    std::vector<std::string> files;
    constexpr int kFiles = 200;
    for (int i = 0; i < kFiles; ++i) {
        const auto file = folder.Path() / (std::to_string(i) + ".con");
        std::filesystem::create_hard_link(
            folder.Path() / (i % 16 == 0 ? "long.con" : "short.con"), file);
        files.push_back(Text(file));
    }
    std::vector<std::string> one{"analyse", "--jobs", "1"};
    std::vector<std::string> eight{"analyse", "--jobs", "8"};
    one.insert(one.end(), files.begin(), files.end());
    eight.insert(eight.end(), files.begin(), files.end());

    const ProgramRun inTurn = RunCli(one);
    const ProgramRun atOnce = RunCli(eight);
    EXPECT_EQ(inTurn.exitStatus, 0);
    EXPECT_EQ(atOnce.exitStatus, 0);
    const auto objects = atOnce.Objects();
    ASSERT_EQ(objects.size(), files.size());
    for (std::size_t i = 0; i < files.size(); ++i)
        EXPECT_EQ(objects[i]["file"], files[i]);
    EXPECT_EQ(atOnce.output, inTurn.output);
}

TEST(Batch, DoesTheOthersWhenOneFails)
{
    const TempFolder folder;
    const std::string good = Text(folder.Write("good.con", ScanFile().Bytes()));
    const std::string missing = Text(folder.Path() / "missing.con");
    const ProgramRun run = RunCli({"analyse", good, missing, good});
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(run.Objects().size(), 2U);
    EXPECT_EQ(run.error, "vireo-cli: " + missing + ": No such file\n");
}

TEST(Batch, SaysNothingOfFilesThatCannotBeRead)
{
    const TempFolder folder;
    for (const char* command : {"identify", "header", "analyse"}) {
        RefusalOf({command, Text(folder.Path() / "missing")});
    }
}

TEST(Batch, NeverChangesItsInput)
{
    const TempFolder folder;
    const std::string bytes = ScanFile().Bytes();
    const auto file = folder.Write("scan.con", bytes);
    const auto picture = folder.Write("scan.png", bytes);
    RunCli({"analyse", Text(file)});
    EXPECT_EQ(RunCli({"export", Text(file), "-o", Text(file)}).exitStatus, 1);
    EXPECT_EQ(RunCli({"render", Text(picture), "-o", Text(picture)}).exitStatus, 1);
    EXPECT_EQ(TempFolder::Read(file), bytes);
    EXPECT_EQ(TempFolder::Read(picture), bytes);

    const auto limits = folder.Write("limits.pdf", "[mtf]\ncolor = 1\n");
    for (const char* command : {"report", "render"})
        EXPECT_EQ(RefusalOf({command, Text(file), "--limits", Text(limits), "-o",
                      Text(folder.Path() / "." / "limits.pdf")}),
            "vireo-cli: " + Text(limits) + ": The output would replace the limits\n");
    EXPECT_EQ(TempFolder::Read(limits), "[mtf]\ncolor = 1\n");
}

#ifndef _WIN32
TEST(Batch, TakesAnyName)
{
    const TempFolder folder;
    const std::string names[] = {"-x.con", "[a,b]", "header", "two\nlines", "M\xC3\xBCnchen.con"};
    std::vector<std::string> arguments{"identify", "--"};
    for (const std::string& name : names)
        arguments.push_back(Text(folder.Write(name, "[MTF]\n")));
    const ProgramRun run = RunCli(arguments);
    EXPECT_EQ(run.exitStatus, 0) << run.error;
    const auto objects = run.Objects();
    ASSERT_EQ(objects.size(), std::size(names));
    for (std::size_t i = 0; i < std::size(names); ++i)
        EXPECT_EQ(objects[i]["file"], arguments[i + 2]);

    const ProgramRun failed = RunCli({"identify", "[no,such]", "--", "--jobs", "no\nsuch"});
    EXPECT_EQ(failed.error,
        "vireo-cli: [no,such]: No such file\nvireo-cli: --jobs: No such file\n"
        "vireo-cli: no such: No such file\n");
}
#endif

} // namespace

} // namespace vireo
