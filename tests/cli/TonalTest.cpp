#include "tests/TempFolder.h"
#include "tests/cli/Rendered.h"
#include "tests/viewers/tonal/TonalFiles.h"

#include <gtest/gtest.h>

namespace vireo {
namespace {

using Json = nlohmann::ordered_json;

class TonalProgram : public testing::Test {
protected:
    std::string File(const std::string& bytes) { return Text(folder.Write("t.con", bytes)); }
    std::size_t FilesInFolder() const
    {
        const std::filesystem::directory_iterator files(folder.Path());
        return static_cast<std::size_t>(std::distance(begin(files), end(files)));
    }

    TempFolder folder;
};

TEST_F(TonalProgram, AnalysesEveryFigure)
{
    const Json object = ObjectOf({"analyse", File(HandFile())});
    EXPECT_EQ(KeysOf(object),
        (std::vector<std::string>{"file", "kind", "version", "scanner_name", "date", "time",
            "serial_no", "chassis_no", "firmware_build", "it8_ref_file", "gamma_slope_limit",
            "corrected_on_load", "it8_dynamic_range", "scanner_dynamic_range", "correlation",
            "slope", "offset", "bit_depth_light", "bit_depth_dark", "max_light_deviation",
            "max_dark_deviation", "index_max_dynamic_range", "index_min_dynamic_range",
            "bit_depth_index", "patches", "report"}));
    EXPECT_EQ(object["kind"], "tonal-resolution");
    EXPECT_EQ(object["gamma_slope_limit"], 7);
    EXPECT_EQ(object["corrected_on_load"], false);
    EXPECT_NEAR(object["slope"][0].get<double>(), 2.358807, 1e-6);
    EXPECT_NEAR(object["correlation"][0].get<double>(), 11.0 / 13.0, 1e-9);
    EXPECT_NEAR(object["bit_depth_light"][2].get<double>(), 6.99435, 5e-6);
    EXPECT_NEAR(object["max_dark_deviation"].get<double>(), 233.75, 1e-9);
    EXPECT_EQ(object["bit_depth_index"], (Json{{"light", 2}, {"dark", 20}}));
    EXPECT_EQ(object["index_min_dynamic_range"], 11);
    ASSERT_EQ(object["patches"].size(), 24U);
    const Json& patch = object["patches"][2];
    EXPECT_EQ(KeysOf(patch),
        (std::vector<std::string>{"L", "n", "sum_r", "sum_g", "sum_b", "sum_rr", "sum_gg", "sum_bb",
            "density", "r", "g", "b"}));
    EXPECT_EQ(patch["sum_gg"], 195083);
    EXPECT_TRUE(object["report"].get<std::string>().starts_with("Dynamic range\n"));
}

TEST_F(TonalProgram, NeverChangesItsInput)
{
    const std::string faulty = File(SmallFaultyFile());
    const ProgramRun corrected = RunCli({"analyse", faulty});
    ASSERT_EQ(corrected.exitStatus, 0);
    EXPECT_EQ(corrected.Objects().at(0)["corrected_on_load"], true);
    EXPECT_EQ(corrected.Objects().at(0)["patches"][2]["n"], 100);
    EXPECT_EQ(TempFolder::Read(faulty), SmallFaultyFile());
    EXPECT_EQ(FilesInFolder(), 1U);

    const std::string unmeasured = File(TonalFileOf("ScannerName=Default\n"));
    for (const char* const command : {"analyse", "header", "identify"})
        RunCli({command, unmeasured});
    RefusalOf({"analyse", unmeasured});
    EXPECT_TRUE(std::filesystem::exists(unmeasured));
}

TEST_F(TonalProgram, RendersEachView)
{
    const std::string file = File(HandFile());
    const auto render = [&file](std::vector<std::string> options) {
        options.insert(options.end(), {"--size", "700x400"});
        return Rendered(file, options);
    };
    const QImage fit = render({});
    ASSERT_EQ(fit.size(), QSize(700, 400));
    EXPECT_EQ(render({"--view", "0"}), fit);
    const QImage difference = render({"--view", "1"});
    const QImage range = render({"--view", "2"});
    EXPECT_FALSE(difference.isNull() || range.isNull());
    EXPECT_NE(difference, fit);
    EXPECT_NE(range, difference);
    EXPECT_NE(render({"--color", "red"}), fit);
    EXPECT_EQ(RunCli({"render", file, "-o", "x.png", "--view", "3"}).exitStatus, 1);
    EXPECT_EQ(RunCli({"render", file, "-o", "x.png", "--color", "gray"}).exitStatus, 1);
    for (const char* const name : {"out.svg", "out.pdf"}) {
        const auto out = folder.Path() / name;
        ASSERT_EQ(RunCli({"render", file, "-o", Text(out), "--view", "2"}).exitStatus, 0);
        EXPECT_GT(std::filesystem::file_size(out), 1000U);
    }
}

TEST_F(TonalProgram, ExportsAndMeasures)
{
    const std::string file = File(HandFile());
    const auto out = folder.Path() / "out.csv";
    ASSERT_EQ(RunCli({"export", file, "-o", Text(out)}).exitStatus, 0);
    EXPECT_TRUE(TempFolder::Read(out).starts_with("patch,L,scan_red,"));
    const ProgramRun bench = RunBench({"plot", "tonal-resolution", file, "--repeat", "1"});
    ASSERT_EQ(bench.exitStatus, 0) << bench.error;
    EXPECT_EQ(bench.Objects().at(0)["points"], 72);
}

} // namespace
} // namespace vireo
