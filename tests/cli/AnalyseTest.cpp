#include "tests/TempFolder.h"
#include "tests/cli/ProgramRun.h"
#include "tests/cli/ScanFile.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vireo {

namespace {

using Json = nlohmann::ordered_json;

/// One object of a file that can be analysed.
Json Analyse(const std::filesystem::path& file, std::vector<std::string> options = {})
{
    options.insert(options.begin(), "analyse");
    options.push_back(Text(file));
    return ObjectOf(options);
}

/// The figures of the samples first <= i < end of a plane, summed up one by one.
void ExpectFigures(
    const Json& figures, const ScanFile& scan, int plane, int line, int first, int end)
{
    int lowest = 255;
    int highest = 0;
    long long sum = 0;
    for (int pixel = first; pixel < end; ++pixel) {
        lowest = std::min(lowest, scan.Sample(plane, line, pixel));
        highest = std::max(highest, scan.Sample(plane, line, pixel));
        sum += scan.Sample(plane, line, pixel);
    }
    EXPECT_EQ(figures["min"].get<int>(), lowest);
    EXPECT_EQ(figures["max"].get<int>(), highest);
    EXPECT_DOUBLE_EQ(figures["mean"].get<double>(), static_cast<double>(sum) / (end - first));
}

TEST(Analyse, TellsEverythingOfAnOscilloscopeFileInOrder)
{
    ScanFile scan;
    scan.lines = 2;
    const TempFolder folder;
    const auto file = folder.Write("scan.con", scan.Bytes());
    Json object = Analyse(file);
    object.erase("planes");
    const Json expected{{"file", Text(file)}, {"kind", "oscilloscope"}, {"color_scanner", true},
        {"color", 254}, {"camera_used", 255}, {"camera_count", 3}, {"corrected", true},
        {"scanner_width_factor", 10.0}, {"shown_color", 2}, {"date", "2026-03-01"},
        {"time", "13:05"}, {"scanner_name", "Bench 7"}, {"scanner_id", "4711"},
        {"scanner_family", 6}, {"generation", 4}, {"firmware_revision", 3},
        {"camera_pixels", {30, 20, 50, 0, 0, 0, 0, 0}}, {"magnification", {100, 101, 102}},
        {"center_lines", {-1, 2, 3}}, {"plane_length", 200}, {"line_width", 100}, {"line_count", 2},
        {"missing", Json::array()}};
    EXPECT_EQ(object.dump(), expected.dump());
}

TEST(Analyse, GivesFiguresOfTheLineAskedForByPlaneAndCamera)
{
    ScanFile scan;
    scan.lines = 3;
    scan.cameras = {30, 0, 50};
    const TempFolder folder;
    const Json object = Analyse(folder.Write("scan.con", scan.Bytes()), {"--line", "2"});
    EXPECT_EQ(KeysOf(object["planes"]), (std::vector<std::string>{"red", "green", "blue"}));
    int plane = 0;
    for (const Json& figures : object["planes"]) {
        EXPECT_EQ(KeysOf(figures), (std::vector<std::string>{"min", "max", "mean", "cameras"}));
        ExpectFigures(figures, scan, plane, 2, 0, 80);
        const Json& cameras = figures["cameras"];
        ASSERT_EQ(cameras.size(), 2U) << "a camera without pixels has no figures";
        EXPECT_EQ(KeysOf(cameras[0]), (std::vector<std::string>{"camera", "min", "max", "mean"}));
        EXPECT_EQ(cameras[0]["camera"], "A");
        ExpectFigures(cameras[0], scan, plane, 2, 0, 30);
        EXPECT_EQ(cameras[1]["camera"], "C");
        ExpectFigures(cameras[1], scan, plane, 2, 30, 80);
        ++plane;
    }
}

TEST(Analyse, TellsMissingItemsInTheirOrderAndDefaults)
{
    const TempFolder folder;
    const Json object = Analyse(folder.Write("bare.con",
        HeaderWith("[Oscilloscope]", "CameraCount=2\nCameraBPix=4\nCenterLines=1 2\n") + "abcd"));
    EXPECT_EQ(object["missing"].dump(),
        R"(["Is Color or B/W Scanner","Color","Camera Used","Is Corrected/Uncorrected","Date",)"
        R"("Time","Scanner Name","Get Camera A Pix","Magnification","Center Lines"])");
    EXPECT_EQ(object["scanner_width_factor"].dump(), "8.5");
    EXPECT_EQ(object["scanner_family"], 5);
    EXPECT_EQ(object["generation"], 0);
    EXPECT_EQ(KeysOf(object["planes"]), (std::vector<std::string>{"green"}));
    EXPECT_EQ(object["planes"]["green"]["mean"], 98.5);
}

TEST(Analyse, TellsTheLineOfAnMtfFileWithoutWhatFollowsIt)
{
    ScanFile scan;
    scan.tag = "[MTF]";
    scan.lines = 2; // An MTF file is one long line, whatever its cameras say.
    const std::size_t planeLength = 200;
    // Five planes, three values, and a table entry and a flag for each of three boundaries.
    const std::string extra(5 * planeLength + 12 + 9 * 3, '\xFF');
    const TempFolder folder;
    const Json object = Analyse(folder.Write("scan.con", scan.Bytes() + extra));
    EXPECT_EQ(object["kind"], "mtf");
    EXPECT_EQ(object["line_count"], 1);
    EXPECT_EQ(object["plane_length"], planeLength);
    ExpectFigures(object["planes"]["blue"], scan, 2, 0, 0, 100);
}

TEST(Analyse, TakesALineOfMoreSamplesThanFitAPiece)
{
    ScanFile scan;
    scan.cameras = {70'001, 65'537};
    scan.isColor = false;
    const TempFolder folder;
    const Json object = Analyse(folder.Write("long.con", scan.Bytes()));
    EXPECT_EQ(object["shown_color"], 4);
    const Json& green = object["planes"]["green"];
    ExpectFigures(green, scan, 1, 0, 0, scan.Width());
    ExpectFigures(green["cameras"][1], scan, 1, 0, 70'001, scan.Width());
}

TEST(Analyse, TellsKeysAndDataLengthOfPlainKinds)
{
    const TempFolder folder;
    const Json object = Analyse(
        folder.Write("a.con", HeaderWith("[Vertical Camera Verification]", "Width=3\n") + "12345"));
    EXPECT_EQ(KeysOf(object), (std::vector<std::string>{"file", "kind", "keys", "data_length"}));
    EXPECT_EQ(object["keys"].dump(), R"({"Width":3})");
    EXPECT_EQ(object["data_length"], 5);
}

TEST(Analyse, TakesAFileAsTheKindItIsTold)
{
    const TempFolder folder;
    const Json object = Analyse(
        folder.Write("a.con", HeaderWith("[Oscilloscope]", "") + "123"), {"--as", "light-profile"});
    EXPECT_EQ(object["kind"], "light-profile");
    EXPECT_EQ(object["data_length"], 3);
}

TEST(Analyse, FailsForAnUnknownFileButTellsSo)
{
    const TempFolder folder;
    const std::string file = Text(folder.Write("a.bin", "nothing known"));
    const ProgramRun run = RunCli({"analyse", file});
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(run.output, Json({{"file", file}, {"kind", "unknown"}}).dump() + "\n");
    EXPECT_EQ(run.Errors().size(), 1U);
}

TEST(Analyse, FailsWithoutAnObjectForALineThatIsNotThere)
{
    ScanFile scan;
    scan.lines = 2;
    const TempFolder folder;
    RefusalOf({"analyse", "--line", "2", Text(folder.Write("a.con", scan.Bytes()))});
}

TEST(Analyse, SurvivesEveryPrefixOfAFile)
{
    ScanFile scan;
    scan.cameras = {5, 4, 3};
    const std::string bytes = scan.Bytes();
    const TempFolder folder;
    std::vector<std::string> arguments{"analyse"};
    for (std::size_t length = 0; length < bytes.size(); ++length)
        arguments.push_back(
            Text(folder.Write(std::to_string(length), std::string_view(bytes).substr(0, length))));
    const ProgramRun run = RunCli(arguments);
    EXPECT_EQ(run.exitStatus, 1);
    // Each file gives an object, or a failure, or an unknown file both.
    std::size_t unknown = 0;
    for (const Json& object : run.Objects())
        unknown += object["kind"] == "unknown" ? 1 : 0;
    EXPECT_EQ(run.Objects().size() + run.Errors().size(), bytes.size() + unknown);
}

struct HostileRow {
    const char* name;
    std::string lines;
    std::string data;

    friend void PrintTo(const HostileRow& row, std::ostream* out) { *out << row.name; }
};

class HostileHeader : public testing::TestWithParam<HostileRow> { };

TEST_P(HostileHeader, IsAnalysedOrRefused)
{
    const TempFolder folder;
    const auto file =
        folder.Write("a.con", HeaderWith("[Oscilloscope]", GetParam().lines) + GetParam().data);
    for (const char* command : {"analyse", "header", "identify"}) {
        const ProgramRun run = RunCli({command, Text(file)});
        EXPECT_TRUE(run.exitStatus == 0 || run.exitStatus == 1) << command << run.error;
        EXPECT_EQ(run.Objects().size() + run.Errors().size(), 1U) << command;
    }
}

INSTANTIATE_TEST_SUITE_P(Headers, HostileHeader,
    testing::Values(HostileRow{"no keys, no data", "", ""},
        HostileRow{
            "huge cameras", "CameraCount=8\nCameraAPix=2147483647\nCameraEPix=2147483647\n", "abc"},
        HostileRow{"negative cameras", "CameraCount=2\nCameraAPix=-5\nCameraBPix=3\n", "abcdef"},
        HostileRow{"only negative cameras", "CameraCount=1\nCameraAPix=-2147483648\n", "abcdef"},
        HostileRow{"negative count", "CameraCount=-1\nCameraAPix=3\n", "abc"},
        HostileRow{"numbers without end", "CameraCount=99999999999999999999\nColor=99999\n", "abc"},
        HostileRow{"triplet cut off", "Color=Red:Green:Blue\nCameraCount=1\nCameraAPix=1\n", "ab"},
        HostileRow{"no line ends", "ScannerName=" + std::string(100'000, 'x'), "abc"}));

} // namespace

} // namespace vireo
