#include "tests/TempFolder.h"
#include "tests/cli/ProgramRun.h"
#include "tests/viewers/noise/NoiseFiles.h"

#include <QImage>

#include <gtest/gtest.h>

namespace vireo {
namespace {

using Json = nlohmann::ordered_json;

/// Red with a dip and a peak, green and blue flat; an odd line whose last pixel is outside the
/// view.
std::string Planes()
{
    std::string red = FlatPlane(1001, 100);
    red[250] = 90;
    red[600] = 120;
    std::string blue = FlatPlane(1001, 100);
    blue[1000] = 50;
    return red + FlatPlane(1001, 200) + blue;
}

class NoiseProgram : public testing::Test {
protected:
    std::string File(const std::string& bytes) { return Text(folder.Write("noise.con", bytes)); }
    std::string ColourFile()
    {
        return File(
            TextNoiseFile("ScannerName=Heron 36\nColor=Red:Green:Blue\nLength=1001\n", Planes()));
    }

    TempFolder folder;
};

TEST_F(NoiseProgram, AnalysesTheRecordAndItsMarks)
{
    const std::string file = ColourFile();
    const ProgramRun run = RunCli({"analyse", "--unit", "Inch", file});
    ASSERT_EQ(run.exitStatus, 0) << run.error;
    const Json expected{{"file", file}, {"kind", "noise"}, {"line_length", 1001},
        {"has_color", true}, {"has_gray", false},
        {"averages", {{"red", 100}, {"green", 200}, {"blue", 100}, {"gray", nullptr}}},
        {"width_factor", 8.5}, {"scanner_name", "Heron 36"}, {"unit", "Inch"},
        {"marks",
            {{"red",
                 {{{"type", "dip"}, {"index", 250}, {"value", 90}, {"label", "9.0"}},
                     {{"type", "peak"}, {"index", 600}, {"value", 120}, {"label", "21.6"}}}},
                {"green", Json::array()}, {"blue", Json::array()}}}};
    EXPECT_EQ(run.Objects().at(0).dump(), expected.dump());
}

TEST_F(NoiseProgram, TakesABinaryFileAsNoiseWhenToldTo)
{
    const std::string file =
        File(BinaryNoiseHeader(1001, true) + Planes() + NoiseTrailer("Heron 24"));
    const ProgramRun run = RunCli({"analyse", "--as", "noise", file});
    ASSERT_EQ(run.exitStatus, 0) << run.error;
    EXPECT_EQ(run.Objects().at(0)["scanner_name"], "Heron 24");
    EXPECT_EQ(run.Objects().at(0)["averages"]["green"], 200);
    const ProgramRun damaged =
        RunCli({"analyse", "--as", "noise", File(BinaryNoiseHeader(1 << 30, true) + Planes())});
    EXPECT_EQ(damaged.exitStatus, 1);
    EXPECT_EQ(damaged.output, "");
    EXPECT_EQ(damaged.Errors().size(), 1U);
}

TEST_F(NoiseProgram, RendersThePlaneAndUnitAskedFor)
{
    const std::string file = ColourFile();
    const std::string first = Text(folder.Path() / "first.png");
    const std::string second = Text(folder.Path() / "second.png");
    const auto render = [&](const std::string& out, const std::vector<std::string>& options) {
        std::vector<std::string> arguments{"render", file, "-o", out, "--size", "700x300"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return RunCli(arguments).exitStatus == 0 ? QImage(QString::fromStdString(out)) : QImage();
    };
    const QImage green = render(first, {});
    ASSERT_EQ(green.size(), QSize(700, 300));
    for (const std::vector<std::string>& options : std::vector<std::vector<std::string>>{
             {"--color", "red"}, {"--unit", "SU"}, {"--zoom", "4"}}) {
        const QImage other = render(second, options);
        ASSERT_EQ(other.size(), QSize(700, 300)) << options[0];
        EXPECT_NE(other, green) << options[0];
    }
    const ProgramRun missing = RunCli({"render", file, "-o", second, "--color", "gray"});
    EXPECT_EQ(missing.exitStatus, 1);
    EXPECT_NE(missing.error.find("There is no plane Gray"), std::string::npos);
}

} // namespace
} // namespace vireo
