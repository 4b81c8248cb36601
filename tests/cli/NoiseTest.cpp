#include "tests/TempFolder.h"
#include "tests/cli/Rendered.h"
#include "tests/viewers/noise/NoiseFiles.h"

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
    const Json object = ObjectOf({"analyse", "--unit", "Inch", file});
    const Json expected{{"file", file}, {"kind", "noise"}, {"line_length", 1001},
        {"has_color", true}, {"has_gray", false},
        {"averages", {{"red", 100}, {"green", 200}, {"blue", 100}, {"gray", nullptr}}},
        {"width_factor", 8.5}, {"scanner_name", "Heron 36"}, {"unit", "Inch"},
        {"marks",
            {{"red",
                 {{{"type", "dip"}, {"index", 250}, {"value", 90}, {"label", "9.0"}},
                     {{"type", "peak"}, {"index", 600}, {"value", 120}, {"label", "21.6"}}}},
                {"green", Json::array()}, {"blue", Json::array()}}}};
    EXPECT_EQ(object.dump(), expected.dump());
}

TEST_F(NoiseProgram, TakesABinaryFileAsNoiseWhenToldTo)
{
    const std::string file =
        File(BinaryNoiseHeader(1001, true) + Planes() + NoiseTrailer("Heron 24"));
    const Json object = ObjectOf({"analyse", "--as", "noise", file});
    EXPECT_EQ(object["scanner_name"], "Heron 24");
    EXPECT_EQ(object["averages"]["green"], 200);
    RefusalOf({"analyse", "--as", "noise", File(BinaryNoiseHeader(1 << 30, true) + Planes())});
}

TEST_F(NoiseProgram, RendersThePlaneAndUnitAskedFor)
{
    const std::string file = ColourFile();
    const QImage green = Rendered(file, {"--size", "700x300"});
    ASSERT_EQ(green.size(), QSize(700, 300));
    for (const auto& [option, value] :
        {std::pair("--color", "red"), std::pair("--unit", "SU"), std::pair("--zoom", "4")}) {
        const QImage other = Rendered(file, {"--size", "700x300", option, value});
        ASSERT_EQ(other.size(), QSize(700, 300)) << option;
        EXPECT_NE(other, green) << option;
    }
    const std::string missing =
        RefusalOf({"render", file, "-o", Text(folder.Path() / "a.png"), "--color", "gray"});
    EXPECT_NE(missing.find("There is no plane Gray"), std::string::npos);
}

} // namespace
} // namespace vireo
