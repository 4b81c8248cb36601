#include "tests/TempFolder.h"
#include "tests/cli/ProgramRun.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace vireo {

namespace {

using Json = nlohmann::ordered_json;

TEST(TiffAnalyse, AnalysesAPageAndItsPixels)
{
    const std::string file = std::string(VIREO_SAMPLES) + "/picture-bilevel.tif";
    const Json object = ObjectOf({"analyse", file});
    EXPECT_EQ(KeysOf(object),
        (std::vector<std::string>{"file", "kind", "pages", "page", "width", "height",
            "color_depth_code", "resolution", "compression", "photometric", "predictor",
            "description", "row_bytes", "result", "pixels_sha256"}));
    EXPECT_EQ(object["result"], "0x00000000");
    EXPECT_EQ(object["color_depth_code"], 0);
}

TEST(TiffAnalyse, TellsWhatItCanOfAFileThatFails)
{
    const TempFolder folder;
    const ProgramRun run = RunCli({"analyse", Text(folder.Write("empty.tif", ""))});
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_NE(run.error.find("Can't read tif-file"), std::string::npos) << run.error;
    const Json object = run.Objects().at(0);
    EXPECT_EQ(object["result"], "0x8447001a");
    EXPECT_EQ(object["photometric"], nullptr);
    EXPECT_EQ(object["pixels_sha256"], nullptr);
}

#ifndef _WIN32
TEST(TiffConvert, AWriteThatFailsLeavesTheOldFileAndOneMessage)
{
    const TempFolder folder;
    const auto target = folder.Write("out.tif", "old");
    const ProgramRun run = RunTool("sh",
        {"-c", "ulimit -f 8; exec \"$@\"", "sh", VIREO_CLI, "convert",
            std::string(VIREO_SAMPLES) + "/picture-rgb.tif", "-o", Text(target), "--compression",
            "none"});
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(run.Errors().size(), 1U) << run.error;
    EXPECT_NE(run.error.find("Can't write tif-file"), std::string::npos) << run.error;
    EXPECT_EQ(TempFolder::Read(target), "old");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}
#endif

/// A folder of TIFF files from the wild, with EXPECTED.jsonl: a line a file, whose "expect" names
/// members of what analyse says. Of the result, "any" and "error" leave the code open, and a list
/// gives codes of which any will do.
std::filesystem::path WildFolder()
{
    const char* const named = std::getenv("VIREO_TIFF_CORPUS");
    return named ? named : "";
}

bool IsExpected(const std::string& key, const Json& expected, const Json& found)
{
    if (key != "result")
        return found == expected;
    if (expected == "any")
        return true;
    if (expected == "error")
        return found != "0x00000000";
    return expected.is_array()
        ? std::find(expected.begin(), expected.end(), found) != expected.end()
        : found == expected;
}

TEST(TiffAnalyse, FilesFromTheWildAreAnsweredAsExpected)
{
    std::ifstream lines(WildFolder() / "EXPECTED.jsonl");
    if (!lines)
        GTEST_SKIP() << "No folder of TIFF files; VIREO_TIFF_CORPUS names one.";
    std::vector<Json> expected;
    std::vector<std::string> arguments{"analyse", "--"};
    for (std::string line; std::getline(lines, line);) {
        expected.push_back(Json::parse(line));
        arguments.push_back(Text(WildFolder() / expected.back()["file"].get<std::string>()));
    }
    const ProgramRun run = RunCli(arguments);
    EXPECT_EQ(run.exitStatus, 1);
    const std::vector<Json> found = run.Objects();
    ASSERT_EQ(found.size(), expected.size()) << run.error;
    for (std::size_t i = 0; i < found.size(); ++i) {
        for (const auto& [key, value] : expected[i]["expect"].items()) {
            if (key == "kind_any")
                continue;
            EXPECT_PRED3(IsExpected, key, value, found[i][key]) << found[i].dump();
        }
    }
}

} // namespace

} // namespace vireo
