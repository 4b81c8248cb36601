#include "tests/TempFolder.h"
#include "tests/cli/ProgramRun.h"

#include <gtest/gtest.h>

namespace vireo {

namespace {

#ifdef __linux__

const std::string kNoise = VIREO_SAMPLES "/noise-gray.con";

/// Copies vireo-cli alone into the folder, so that nothing lies beside it.
std::string CopyProgram(const TempFolder& folder)
{
    const auto copy = folder.Path() / "vireo-cli";
    std::filesystem::copy_file(VIREO_CLI, copy);
    return Text(copy);
}

TEST(Drawing, IsTheBusinessOfAnotherProgram)
{
    const ProgramRun libraries = RunTool("ldd", {VIREO_CLI});
    ASSERT_EQ(libraries.exitStatus, 0) << libraries.error;
    EXPECT_NE(libraries.output.find("libc.so"), std::string::npos);
    EXPECT_EQ(libraries.output.find("Qt"), std::string::npos) << libraries.output;
}

TEST(Drawing, SaysWhatIsMissing)
{
    const TempFolder folder;
    const std::string program = CopyProgram(folder);
    const std::string out = Text(folder.Path() / "out.png");
    const ProgramRun run = RunTool(program, {"render", kNoise, "-o", out});
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(run.output, "");
    ASSERT_EQ(run.Errors().size(), 1U);
    EXPECT_TRUE(run.error.starts_with("vireo-cli: The program that draws, ")) << run.error;
    EXPECT_TRUE(run.error.ends_with(" cannot be started: No such file\n")) << run.error;
    // What is wrong with the command line is told all the same, and other commands go on.
    EXPECT_EQ(RunTool(program, {"render", kNoise, "-o", "out.bmp"}).exitStatus, 2);
    EXPECT_EQ(RunTool(program, {"analyse", kNoise}).exitStatus, 0);
}

TEST(Drawing, TakesTheSettingsBesideTheProgram)
{
    const TempFolder folder;
    const std::string program = CopyProgram(folder);
    std::filesystem::create_symlink(
        std::filesystem::path(VIREO_CLI).parent_path() / "vireo-cli-draw",
        folder.Path() / "vireo-cli-draw");
    const auto draw = [&](const std::string& name, const std::string& unit) {
        const auto out = folder.Path() / name;
        std::vector<std::string> arguments{"render", kNoise, "-o", Text(out)};
        if (!unit.empty())
            arguments.insert(arguments.end(), {"--unit", unit});
        EXPECT_EQ(RunTool(program, arguments).error, "");
        return TempFolder::Read(out);
    };
    const std::string inches = draw("a.svg", "Inch");
    EXPECT_NE(draw("b.svg", "CM"), inches);
    folder.Write("Kestr6.ini", "[Miscellaneous]\nUnit=Inch\n");
    EXPECT_EQ(draw("c.svg", ""), inches);
}

#endif

} // namespace

} // namespace vireo
