#include "platform/FileIdentity.h"
#include "tests/TempFolder.h"
#include "tests/cli/ProgramRun.h"
#include "tests/cli/ScanFile.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vireo {

namespace {

/// The names that an identification of these arguments tells, without the folder in front.
std::vector<std::string> Identified(
    const TempFolder& folder, const std::vector<std::string>& arguments)
{
    std::vector<std::string> all{"identify", Text(folder.Path())};
    all.insert(all.end(), arguments.begin(), arguments.end());
    const ProgramRun run = RunCli(all);
    EXPECT_EQ(run.exitStatus, 0) << run.error;
    std::vector<std::string> names;
    for (const auto& object : run.Objects())
        names.push_back(object["file"].get<std::string>().substr(Text(folder.Path()).size() + 1));
    return names;
}

TEST(Folders, StandForTheirFilesInTheOrderOfTheirBytes)
{
    const TempFolder folder;
    std::filesystem::create_directories(folder.Path() / "b" / "deep");
    std::filesystem::create_directories(folder.Path() / "a.d");
    for (const char* name :
        {"b.con", "B.con", "a", ".c", "\xC3\xA4.con", "b/z", "b/deep/x", "a.d/y"})
        folder.Write(name, "[MTF]\n");
    EXPECT_EQ(Identified(folder, {}),
        (std::vector<std::string>{".c", "B.con", "a", "b.con", "\xC3\xA4.con"}));
    // Files that another program is writing, or has left when it was killed.
    folder.Write(".vireo-0123456789abcdef.tmp", "half a fi");
    const std::vector<std::string> all{
        ".c", "B.con", "a", "b.con", "\xC3\xA4.con", "a.d/y", "b/z", "b/deep/x"};
    EXPECT_EQ(Identified(folder, {"--recursive"}), all);
    EXPECT_EQ(Identified(folder, {"-r", "--jobs", "7"}), all);
    // A separator at the end is not doubled.
    EXPECT_EQ(RunCli({"identify", Text(folder.Path() / "a.d") + "/"}).Objects().at(0)["file"],
        Text(folder.Path() / "a.d") + "/y");
}

TEST(Folders, StandBetweenFiles)
{
    const TempFolder folder;
    std::filesystem::create_directories(folder.Path() / "run");
    std::filesystem::create_directories(folder.Path() / "empty");
    const std::string good = Text(folder.Write("good.con", ScanFile().Bytes()));
    folder.Write("run/1.con", ScanFile().Bytes());
    folder.Write("run/README", "Made on a Monday.\n");
    const std::string run = Text(folder.Path() / "run");
    const ProgramRun analysed =
        RunCli({"analyse", good, run, Text(folder.Path() / "empty"), good, run});
    EXPECT_EQ(analysed.exitStatus, 1);
    std::vector<std::string> files;
    for (const auto& object : analysed.Objects())
        files.push_back(object["file"]);
    EXPECT_EQ(files,
        (std::vector<std::string>{
            good, run + "/1.con", run + "/README", good, run + "/1.con", run + "/README"}));
    const std::string line = "vireo-cli: " + run + "/README: Unknown kind of file\n";
    EXPECT_EQ(analysed.error, line + line);
    EXPECT_EQ(RunCli({"identify", Text(folder.Path() / "empty")}).exitStatus, 0);
}

TEST(Folders, AreRefusedWhereOneFileIsMeant)
{
    const TempFolder folder;
    folder.Write("one.con", ScanFile().Bytes());
    const std::string name = Text(folder.Path());
    const std::string out = Text(folder.Path() / "out");
    for (const std::vector<std::string>& arguments :
        {std::vector<std::string>{"unpack", name, "-d", out},
            std::vector<std::string>{"render", name, "-o", out + ".png"},
            std::vector<std::string>{"export", name, "-o", out},
            std::vector<std::string>{"convert", name, "-o", out}}) {
        const ProgramRun run = RunCli(arguments);
        EXPECT_EQ(run.exitStatus, 1) << arguments[0];
        EXPECT_EQ(run.error, "vireo-cli: " + name + ": Is a folder\n") << arguments[0];
    }
    EXPECT_EQ(RunCli({"render", "--recursive", name, "-o", out + ".png"}).exitStatus, 2);
}

TEST(Folders, ArePackedWithTheirFiles)
{
    const TempFolder folder;
    std::filesystem::create_directories(folder.Path() / "run");
    folder.Write("run/b", "2");
    folder.Write("run/a", "1");
    const std::string dump = Text(folder.Path() / "run.con");
    ASSERT_EQ(RunCli({"pack", Text(folder.Path() / "run"), "-o", dump}).exitStatus, 0);
    const auto members = RunCli({"analyse", dump}).Objects().at(0)["members"];
    ASSERT_EQ(members.size(), 2U);
    EXPECT_EQ(members[0]["name"], "a");
    EXPECT_EQ(members[1]["name"], "b");
}

TEST(Folders, DoNotStandForTheFileThatIsWrittenIntoThem)
{
    for (const char* command : {"pack", "report"}) {
        const TempFolder folder;
        folder.Write("a.con", ScanFile().Bytes());
        const std::string name = Text(folder.Path());
        const std::string out = Text(folder.Path() / "out.pdf");
        for (int run = 0; run < 2; ++run)
            EXPECT_EQ(RunCli({command, name, "-o", out}).error, "") << command << run;
        EXPECT_EQ(RunCli({command, name, out, "-o", out}).exitStatus, 1);
    }
}

#ifndef _WIN32
TEST(Folders, ThatLeadBackAreEnteredOnce)
{
    const TempFolder folder;
    std::filesystem::create_directories(folder.Path() / "a" / "b");
    folder.Write("a/1", "[MTF]\n");
    folder.Write("a/b/2", "[MTF]\n");
    for (const char* name : {"a/b/up", "a/b/out", "a/self", "z"})
        std::filesystem::create_directory_symlink(folder.Path() / "a", folder.Path() / name);
    std::filesystem::create_directory_symlink(folder.Path(), folder.Path() / "a/b/top");
    EXPECT_EQ(Identified(folder, {"-r"}), (std::vector<std::string>{"a/1", "a/b/2"}));

    // A link to a folder elsewhere is followed; each argument is done whole.
    const std::string link = Text(folder.Path() / "z");
    EXPECT_EQ(RunCli({"identify", "-r", link, link}).Objects().size(), 4U);
    std::filesystem::create_symlink("round", folder.Path() / "a/round");
    const ProgramRun run = RunCli({"identify", link});
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(run.Objects().size(), 1U);
    EXPECT_EQ(run.Errors().size(), 1U) << run.error;
}

TEST(Folders, ThatCannotBeReadKeepNoOtherFromBeingDone)
{
    const TempFolder folder;
    for (const char* name : {"a", "locked", "z"}) {
        std::filesystem::create_directories(folder.Path() / name);
        folder.Write(std::string(name) + "/file", "[MTF]\n");
    }
    const std::string locked = Text(folder.Path() / "locked");
    std::filesystem::permissions(locked, std::filesystem::perms::none);
    std::error_code error;
    if (std::filesystem::directory_iterator(locked, error); !error)
        GTEST_SKIP() << "This user may read every folder";
    const ProgramRun run = RunCli({"identify", "--recursive", Text(folder.Path())});
    std::filesystem::permissions(locked, std::filesystem::perms::owner_all);
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(run.Objects().size(), 2U);
    EXPECT_EQ(run.error, "vireo-cli: " + locked + ": Permission denied\n");
}
#endif

} // namespace

} // namespace vireo
