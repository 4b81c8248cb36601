#include "tests/TempFolder.h"
#include "tests/cli/Rendered.h"
#include "tests/viewers/lightprofile/LightProfileFiles.h"

#include <gtest/gtest.h>

namespace vireo {
namespace {

using Json = nlohmann::ordered_json;

class LightProfileProgram : public testing::Test {
protected:
    std::string File(const std::string& bytes) { return Text(folder.Write("file.con", bytes)); }
    std::string Out(const char* name) { return Text(folder.Path() / name); }
    static QImage Render(const std::string& file, std::vector<std::string> options = {})
    {
        options.insert(options.end(), {"--size", "400x200"});
        return Rendered(file, options);
    }

    TempFolder folder;
    const std::string signedLine = TextFile("[G3 Light Profile]",
        "IsSigned_32_Profile=TRUE\nColor=Red\nCameraCount=2\nCameraAPix=2\nCameraBPix=1\n"
        "ScannerWidth(1/1200)=144\n",
        Bytes32({-70'000, 5, 2'147'483'647}));
};

TEST_F(LightProfileProgram, AnalysesKeysAndLength)
{
    const std::string file = File(signedLine);
    const Json object = ObjectOf({"analyse", file});
    const Json expected{{"file", file}, {"kind", "light-profile"},
        {"keys",
            {{"IsSigned_32_Profile", true}, {"ScannerWidth(1/1200)", 144}, {"CameraCount", 2},
                {"CameraAPix", 2}, {"CameraBPix", 1}, {"Color", 0}}},
        {"data_length", 12}};
    EXPECT_EQ(object.dump(), expected.dump());
}

TEST_F(LightProfileProgram, ExportsEveryFormOfFile)
{
    const auto exported = [&](const std::string& bytes, const std::vector<std::string>& options) {
        std::vector<std::string> arguments{"export", File(bytes), "-o", Out("out.csv")};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const ProgramRun run = RunCli(arguments);
        return run.exitStatus == 0 ? TempFolder::Read(folder.Path() / "out.csv") : run.error;
    };
    EXPECT_EQ(exported(signedLine, {}),
        "pixel,position_mm,camera,red\r\n0,0,A,-70000\r\n"
        "1,1.016,A,5\r\n2,2.032,B,2147483647\r\n");
    // Noise whose last plane ends early, in the old form: its cells stay empty.
    const std::string noise =
        TextFile("[Noise Test]", "Color=3\nLength=2\nResolution=254\n", "RrGgB");
    EXPECT_EQ(exported(noise, {"--as", "light-profile"}),
        "pixel,position_mm,camera,red,green,blue\r\n0,0,,82,71,66\r\n"
        "1,0.09999999999999999,,114,103,\r\n");
    EXPECT_EQ(exported(OldHeader(16, 2, 2) + "abcd", {"--line", "1"}),
        "pixel,position_mm,camera,gray\r\n0,0,,99\r\n1,0.08466666666666667,,100\r\n");
    EXPECT_NE(exported(signedLine, {"--line", "1"}).find("There is no line 1"), std::string::npos);
}

TEST_F(LightProfileProgram, RendersPlotAndPage)
{
    const std::string file = File(signedLine);
    const QImage whole = Render(file);
    EXPECT_EQ(whole.size(), QSize(400, 200));
    EXPECT_NE(Render(file, {"--unit", "SU"}), whole);
    EXPECT_EQ(Render(file, {"--color", "all"}), whole);
    EXPECT_TRUE(Render(file, {"--color", "green"}).isNull()) << "there is only red";
    EXPECT_FALSE(Render(file, {"--camera", "B"}).isNull());
    EXPECT_TRUE(Render(file, {"--camera", "C"}).isNull());
    EXPECT_EQ(RunCli({"render", file, "-o", Out("page.pdf")}).exitStatus, 0);
}

TEST_F(LightProfileProgram, DrawsAdjustmentTestsAsTheirDataAre)
{
    const std::string tag = "[Adjust Center CCD]";
    const QImage profile = Render(File(TextFile(tag, "Width=4\nHeight=1\n", "adzA")));
    const QImage table = Render(File(TextFile(tag, "Width=4\nHeight=2\n", "adzA")));
    EXPECT_FALSE(profile.isNull());
    EXPECT_FALSE(table.isNull());
    EXPECT_NE(profile, table);
    const std::string gray =
        TextFile("[Mirror Carriage Adjustment]", "Width=2\nHeight=2\n", "\x14\xE6\xE6\x14");
    const QImage squares = Render(File(gray));
    EXPECT_EQ(squares.pixelColor(150, 50), QColor(0x14, 0x14, 0x14));
    EXPECT_EQ(squares.pixelColor(250, 50), QColor(0xE6, 0xE6, 0xE6));
    EXPECT_EQ(RunCli({"render", File(gray), "-o", Out("page.pdf")}).exitStatus, 0);
    EXPECT_EQ(RunCli({"analyse", File(gray)}).Objects().at(0)["data_length"], 4);
}

} // namespace
} // namespace vireo
