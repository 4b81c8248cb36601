#include "tests/TempFolder.h"
#include "tests/cli/Rendered.h"
#include "tests/viewers/startest/StarTestFiles.h"

#include <gtest/gtest.h>

#include <cmath>

namespace vireo {
namespace {

using Json = nlohmann::ordered_json;

class StarTestProgram : public testing::Test {
protected:
    std::string File(const std::string& bytes) { return Text(folder.Write("star.con", bytes)); }

    TempFolder folder;
};

TEST_F(StarTestProgram, AnalysesTheFileThatWasWorkedOutByHand)
{
    const std::string file = File(StarTestStart(1) + HandWorkedSweep());
    Json object = ObjectOf({"analyse", file});
    Json curves = object["sweeps"][0]["curves"];
    object["sweeps"][0].erase("curves");
    const Json expected{{"file", file}, {"kind", "startest"}, {"version", 1}, {"sweep_count", 1},
        {"repeat", 0}, {"selected_index", 0},
        {"sweeps",
            Json::array({Json{{"line_count", 6}, {"color", 0}, {"scan_speed_setting", 3},
                {"scan_width", 8.5}, {"resolution", 300}, {"xvib_start", 1}, {"xvib_end", 4},
                {"yvib_start", 1}, {"yvib_end", 3}, {"wideline_start", 0}, {"wideline_end", 6},
                {"scan_speed_index", 4}, {"scan_speed_width", 5100}, {"scan_speed_byte_per_pix", 3},
                {"avg_result", 0}}})}};
    EXPECT_EQ(object.dump(), expected.dump());
    EXPECT_EQ(KeysOf(curves),
        (std::vector<std::string>{"x_vibration", "y_vibration", "x_vibration_average",
            "y_vibration_average", "scan_speed", "wide_line", "wide_line_unsmoothed",
            "x_line_width", "y_line_width"}));
    EXPECT_EQ(curves["x_vibration"].dump(),
        (Json{{"min", -0.5}, {"max", 0.0}, {"mean", -0.125}, {"rms", 0.25}}).dump());
    EXPECT_EQ(curves["scan_speed"]["mean"], 7.0 / 6.0);
    EXPECT_EQ(curves["wide_line_unsmoothed"]["mean"], -14.0 / 6.0);
    EXPECT_NEAR(curves["wide_line"]["rms"].get<double>(), 314.0 / 81.0, 1e-6);
    EXPECT_EQ(curves["y_line_width"]["rms"], std::sqrt(2.0 / 3.0));
}

TEST_F(StarTestProgram, TellsWholeCurvesWhenAsked)
{
    const std::string file = File(StarTestStart(1) + HandWorkedSweep());
    const Json object = ObjectOf({"analyse", "--arrays", file});
    const Json curves = object["sweeps"][0]["curves"];
    EXPECT_EQ(curves["x_line_width"]["values"], (Json{4.0, -1.0, 1.0, 0.0, 0.0, 9.0}));
    for (const auto& curve : curves)
        EXPECT_EQ(curve["values"].size(), 6U);
}

TEST_F(StarTestProgram, WhatIsNoNumberIsNull)
{
    const Json object = ObjectOf({"analyse",
        File(StarTestStart(1)
            + "Length = 2\nXVib_Start = 0\nXVib_End = 1\n0 nan\n1 5\nEND_DATA\n")});
    const Json curve = object["sweeps"][0]["curves"]["x_vibration"];
    EXPECT_TRUE(curve["mean"].is_null());
}

TEST_F(StarTestProgram, AveragesRepeatedSweeps)
{
    std::string bytes = StarTestStart(9, 2);
    for (int i = 0; i < 6; ++i)
        bytes += PlainSweep(40, i);
    const Json object = ObjectOf({"analyse", File(bytes)});
    EXPECT_EQ(object["sweep_count"], 9);
    EXPECT_EQ(object["selected_index"], 7);
    EXPECT_EQ(object["sweeps"].size(), 9U);
    EXPECT_EQ(object["sweeps"][7]["avg_result"], 1);
}

TEST_F(StarTestProgram, RendersAndExportsTheSweepAskedFor)
{
    const std::string file = File(StarTestStart(2) + PlainSweep(400, 1.0) + PlainSweep(300, 3.0));
    const std::string picture = Text(folder.Path() / "out.png");
    const QImage first = Rendered(file, {"--size", "700x300"});
    ASSERT_EQ(first.size(), QSize(700, 300));
    for (const auto& [option, value] : {std::pair("--sweep", "1"), std::pair("--zoom", "4"),
             std::pair("--view", "1"), std::pair("--view", "4")}) {
        const QImage other = Rendered(file, {"--size", "700x300", option, value});
        EXPECT_EQ(other.size(), first.size()) << option;
        EXPECT_NE(other, first) << option;
    }

    const std::string table = Text(folder.Path() / "out.csv");
    ASSERT_EQ(RunCli({"export", file, "-o", table, "--sweep", "1"}).exitStatus, 0);
    const std::string text = TempFolder::Read(table);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 301);

    const std::vector<std::string> refused[] = {{"render", file, "-o", picture, "--sweep", "2"},
        {"export", file, "-o", table, "--sweep", "2"},
        {"render", file, "-o", picture, "--view", "9"}};
    for (const auto& arguments : refused) {
        const ProgramRun run = RunCli(arguments);
        EXPECT_EQ(run.exitStatus, 1);
        EXPECT_EQ(run.Errors().size(), 1U) << run.error;
    }
    EXPECT_EQ(RunCli({"render", file, "-o", picture, "--sweep", "-1"}).exitStatus, 2);
}

TEST_F(StarTestProgram, SaysOnceWhyAFileFails)
{
    for (const std::string& bytes : {StarTestStart(3), std::string("[StarTest]\n")}) {
        const std::string error = RefusalOf({"analyse", File(bytes)});
        EXPECT_NE(error.find("The star test has no sweeps"), std::string::npos);
    }
}

TEST_F(StarTestProgram, IsMeasured)
{
    const std::string file = File(StarTestStart(1) + PlainSweep(400, 1.0));
    const ProgramRun read = RunBench({"startest", file, "--repeat", "1"});
    ASSERT_EQ(read.exitStatus, 0) << read.error;
    EXPECT_EQ(read.Objects().at(0)["pixels_bytes"], 0);
    EXPECT_EQ(read.Objects().at(0)["file_bytes"], std::filesystem::file_size(file));
    const ProgramRun plot = RunBench({"plot", "startest", file, "--repeat", "1"});
    ASSERT_EQ(plot.exitStatus, 0) << plot.error;
    EXPECT_EQ(plot.Objects().at(0)["points"], 9 * 400);
    EXPECT_EQ(RunBench({"startest", Text(folder.Path() / "missing")}).exitStatus, 1);
}

} // namespace
} // namespace vireo
