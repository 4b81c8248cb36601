#include "tests/DumpFile.h"
#include "tests/TempFolder.h"
#include "tests/cli/ProgramRun.h"

#include <gtest/gtest.h>

namespace vireo {
namespace {

using Json = nlohmann::ordered_json;

class KitbagProgram : public testing::Test {
protected:
    std::string Dump(const std::string& bytes) { return Text(folder.Write("d.con", bytes)); }

    TempFolder folder;
    const DumpFile good{{{"a.con", "abc"}, {"Kitbag.txt", "text"}, {"b", ""}}};
    const DumpFile bad{{{"a.con", "abc"}, {"..\\b", "abc"}, {"NUL", "abc"}, {"D.CON", "abc"}}};
};

TEST_F(KitbagProgram, AnalysesTheDirectoryAndItsMembers)
{
    const std::string file = Dump(bad.Bytes());
    const Json object = ObjectOf({"analyse", file});
    Json expected{{"file", file}, {"kind", "kitbag"}, {"data_offset", 61}};
    // The digest is the first test vector of FIPS 180-4.
    for (const auto& [name, content] : bad.members)
        expected["members"].push_back(Json{{"name", name}, {"size", 3},
            {"sha256", "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"},
            {"accepted", name == "a.con"}});
    EXPECT_EQ(object.dump(), expected.dump());
}

TEST_F(KitbagProgram, TellsOfMembersThatAreCutOff)
{
    const ProgramRun run = RunCli({"analyse", Dump(good.Bytes("a.con=3\nb=\n\xE4=1\n"))});
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(run.Errors().size(), 1U);
    EXPECT_NE(run.error.find("2 of 3 members are cut off"), std::string::npos) << run.error;
    const Json members = run.Objects().at(0)["members"];
    EXPECT_TRUE(members[1]["size"].is_null());
    EXPECT_TRUE(members[1]["sha256"].is_null());
    EXPECT_EQ(members[2].dump(), R"({"name":"ä","size":1,"sha256":null,"accepted":true})");

    EXPECT_EQ(RunCli({"analyse", Dump("[Kitbag]\nDataPointer=         0\n")})
                  .Objects()
                  .at(0)["members"]
                  .size(),
        0U);
    RefusalOf({"analyse", Dump("[Kitbag]\nDataPointer=        99\n")});
}

TEST_F(KitbagProgram, UnpacksBesideTheDumpOrIntoAFolder)
{
    const std::string file = Dump(good.Bytes());
    const ProgramRun run = RunCli({"unpack", file});
    EXPECT_EQ(run.exitStatus, 0) << run.error;
    EXPECT_EQ(run.output + run.error, "");
    EXPECT_EQ(TempFolder::Read(folder.Path() / "a.con"), "abc");
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "Kitbag.txt"));

    const auto target = folder.Path() / "new" / "folder";
    EXPECT_EQ(RunCli({"unpack", "-d", Text(target), file}).exitStatus, 0);
    EXPECT_EQ(TempFolder::Read(target / "a.con"), "abc");
    EXPECT_TRUE(std::filesystem::exists(target / "b"));
}

TEST_F(KitbagProgram, TellsInOneLineWhatItLeavesOut)
{
    const std::string file = Dump(bad.Bytes());
    const ProgramRun run = RunCli({"unpack", file});
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(run.error,
        "vireo-cli: " + file
            + ": 3 of 4 members left out: 3 refused (..\\b: the name has a folder part; ...)\n");
    EXPECT_EQ(TempFolder::Read(folder.Path() / "a.con"), "abc");
    EXPECT_EQ(TempFolder::Read(file), bad.Bytes());
}

TEST_F(KitbagProgram, RefusesWhatIsNoDumpAndFoldersThatAreNone)
{
    const std::string dump = Dump(good.Bytes());
    const std::string other = Text(folder.Write("o.con", "[Noise Test]\nDataPointer=        36\n"));
    for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
             {"unpack", other}, {"unpack", Text(folder.Path() / "none")},
             {"unpack", dump, "-d", other}, {"unpack", dump, "-d", other + "/sub"}}) {
        const ProgramRun run = RunCli(arguments);
        EXPECT_EQ(run.exitStatus, 1) << arguments.back();
        EXPECT_EQ(run.Errors().size(), 1U) << run.error;
    }
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "a.con"));
}

TEST_F(KitbagProgram, PacksWhatItUnpacks)
{
    const std::string dump = Text(folder.Path() / "packed.con");
    std::vector<std::string> arguments{"pack"};
    for (const auto& [name, content] : good.members)
        arguments.push_back(Text(folder.Write(name, content)));
    arguments.insert(arguments.end(), {"-o", dump});
    const ProgramRun run = RunCli(arguments);
    EXPECT_EQ(run.exitStatus, 0) << run.error;
    EXPECT_EQ(TempFolder::Read(dump), good.Bytes());

    arguments.insert(arguments.begin() + 1, {"none", Text(folder.Write("x=y", ""))});
    const ProgramRun failed = RunCli(arguments);
    EXPECT_EQ(failed.exitStatus, 1);
    EXPECT_EQ(failed.Errors().size(), 2U) << "a line for each file that cannot be packed";
    EXPECT_EQ(TempFolder::Read(dump), good.Bytes()) << "the dump stays as it was";
}

} // namespace
} // namespace vireo
