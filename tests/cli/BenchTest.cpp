#include "tests/TempFolder.h"
#include "tests/cli/ProgramRun.h"
#include "tests/cli/ScanFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <ostream>

namespace vireo {

namespace {

using Json = nlohmann::ordered_json;

/// The one object of a run that must succeed.
Json Measure(const std::vector<std::string>& arguments)
{
    const ProgramRun run = RunBench(arguments);
    EXPECT_EQ(run.exitStatus, 0) << run.error;
    EXPECT_EQ(run.error, "");
    const auto objects = run.Objects();
    return objects.size() == 1 ? objects[0] : Json();
}

TEST(Bench, LoadCountsTheFile)
{
    const TempFolder folder;
    const std::string bytes = ScanFile().Bytes();
    const Json figures =
        Measure({"load", Text(folder.Write("a.con", bytes)), "--repeat", "3", "--threads", "0"});
    EXPECT_EQ(KeysOf(figures),
        (std::vector<std::string>{
            "mb_per_s", "seconds_min", "seconds_median", "pixels_bytes", "file_bytes", "threads"}));
    EXPECT_EQ(figures["file_bytes"], bytes.size());
    EXPECT_EQ(figures["pixels_bytes"], 0);
    EXPECT_EQ(figures["threads"], 1);
    EXPECT_GT(figures["seconds_min"], 0.0);
    EXPECT_GE(figures["seconds_median"], figures["seconds_min"]);
    EXPECT_DOUBLE_EQ(figures["mb_per_s"].get<double>() * figures["seconds_median"].get<double>(),
        static_cast<double>(bytes.size()) / 1e6);
}

TEST(Bench, PlotDrawsTheLine)
{
    ScanFile scan;
    scan.lines = 2;
    const TempFolder folder;
    const std::string file = Text(folder.Write("a.con", scan.Bytes()));
    const Json figures = Measure({"plot", "oscilloscope", file, "--repeat", "1"});
    EXPECT_EQ(KeysOf(figures),
        (std::vector<std::string>{
            "first_ms", "redraw_ms", "zoom_ms", "scroll_ms", "points", "width", "height"}));
    EXPECT_EQ(figures["points"], scan.Width());
    EXPECT_EQ(figures["width"], 1600);
    EXPECT_EQ(figures["height"], 500);
    EXPECT_GT(figures["redraw_ms"], 0.0);
    const Json sized = Measure({"plot", "mtf", file, "--size", "300x200", "--repeat", "1"});
    EXPECT_EQ(sized["width"], 300);
    EXPECT_EQ(sized["height"], 200);
}

struct BenchPlotRow {
    const char* kind;
    const char* sample;
    int points;
};

class BenchPlots : public testing::TestWithParam<BenchPlotRow> { };

TEST_P(BenchPlots, EveryKind)
{
    const BenchPlotRow& row = GetParam();
    const std::string file = std::string(VIREO_SAMPLES) + "/" + row.sample;
    const Json figures =
        Measure({"plot", row.kind, file, "--size", "200x100", "--repeat", "1", "--threads", "0"});
    EXPECT_EQ(figures["points"], row.points);
    for (const char* const time : {"first_ms", "redraw_ms", "zoom_ms", "scroll_ms"})
        EXPECT_GT(figures[time], 0.0) << time;
}

INSTANTIATE_TEST_SUITE_P(Kinds, BenchPlots,
    testing::Values(BenchPlotRow{"light-profile", "light-profile-signed.con", 3600},
        BenchPlotRow{"noise", "noise-gray.con", 10200},
        BenchPlotRow{"adjust-center-ccd", "adjust-center-ccd.con", 1200},
        BenchPlotRow{"vertical-camera-verification", "mirror-carriage-adjustment.con", 28800},
        BenchPlotRow{"tonal-resolution", "tonal-resolution.con", 72},
        BenchPlotRow{"startest", "startest-sweeps.con", 6300},
        BenchPlotRow{"stitch", "stitch-gray.con", 302400},
        BenchPlotRow{"tiff", "picture-rgb.tif", 268800}),
    [](const auto& plot) { return "Row" + std::to_string(plot.index); });

TEST(Bench, FirstFrameShowsTheMainDialogOrTheViewer)
{
    const TempFolder folder;
    const std::string file = Text(folder.Write("a.con", ScanFile().Bytes()));
    // A file that lacks header items must not wait for somebody to close its message boxes.
    const std::string bare = Text(folder.Write("b.con", HeaderWith("[Oscilloscope]", "") + "abc"));
    for (const std::vector<std::string>& arguments :
        {std::vector<std::string>{"first-frame"}, {"first-frame", file}, {"first-frame", bare}}) {
        const Json figures = Measure(arguments);
        EXPECT_EQ(KeysOf(figures), (std::vector<std::string>{"first_frame_ms", "peak_rss_kb"}));
        EXPECT_GT(figures["first_frame_ms"], 0.0);
        EXPECT_GT(figures["peak_rss_kb"], 1000);
    }
}

TEST(Bench, FirstFrameLeavesAFileThatTheViewerCorrectsAsItIs)
{
    const TempFolder folder;
    const std::string bytes =
        TempFolder::Read(std::filesystem::path(VIREO_SAMPLES) / "tonal-resolution-version-1.con");
    const auto file = folder.Write("a.con", bytes);
    Measure({"first-frame", Text(file)});
    EXPECT_EQ(TempFolder::Read(file), bytes);
    const std::filesystem::directory_iterator files(folder.Path());
    EXPECT_EQ(std::distance(begin(files), end(files)), 1);
}

struct FailureRow {
    const char* name;
    int exitStatus;
    std::vector<std::string> arguments;

    friend void PrintTo(const FailureRow& row, std::ostream* out) { *out << row.name; }
};

class BenchFails : public testing::TestWithParam<FailureRow> { };

TEST_P(BenchFails, InOneLine)
{
    const ProgramRun run = RunBench(GetParam().arguments);
    EXPECT_EQ(run.exitStatus, GetParam().exitStatus);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.Errors().size(), 1U) << run.error;
    EXPECT_TRUE(run.error.starts_with("vireo-bench: ")) << run.error;
}

INSTANTIATE_TEST_SUITE_P(CommandLines, BenchFails,
    testing::Values(FailureRow{"nothing", 2, {}}, FailureRow{"unknown command", 2, {"draw"}},
        FailureRow{"no file", 2, {"load"}}, FailureRow{"no run", 2, {"load", "--repeat", "0", "a"}},
        FailureRow{"unknown kind", 2, {"plot", "scan", "a.con"}},
        FailureRow{"bad size", 2, {"plot", "mtf", "a.con", "--size", "10"}},
        FailureRow{"missing file", 1, {"load", "no-such-file"}},
        FailureRow{"missing file to plot", 1, {"plot", "mtf", "no-such-file"}},
        FailureRow{"a kind without a plot", 1,
            {"plot", "kitbag", std::string(VIREO_SAMPLES) + "/dump/test-run.con"}},
        FailureRow{"missing file to show", 1, {"first-frame", "no-such-file"}}));

struct DamagedRow {
    const char* name;
    const char* sample;
    std::size_t kept;        ///< Bytes of the sample.
    const char* text;        ///< Of the sample, and
    const char* replacement; ///< what stands there instead.
    const char* reason;      ///< Begins so.

    friend void PrintTo(const DamagedRow& row, std::ostream* out) { *out << row.name; }
};

class BenchShowsNothing : public testing::TestWithParam<DamagedRow> { };

TEST_P(BenchShowsNothing, OfDamagedFiles)
{
    const DamagedRow& row = GetParam();
    const std::filesystem::path sample(row.sample);
    std::string bytes = TempFolder::Read(std::filesystem::path(VIREO_SAMPLES) / sample);
    const std::string text(row.text);
    for (std::size_t at = 0; !text.empty() && (at = bytes.find(text, at)) != std::string::npos;)
        bytes.replace(at, text.size(), row.replacement);
    const TempFolder folder;
    const std::string file =
        Text(folder.Write("a" + sample.extension().string(), bytes.substr(0, row.kept)));
    const ProgramRun run = RunBench({"first-frame", file});
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.Errors().size(), 1U) << run.error;
    EXPECT_TRUE(run.error.starts_with("vireo-bench: " + file + ": " + row.reason)) << run.error;
}

constexpr std::size_t kAll = std::string::npos;

INSTANTIATE_TEST_SUITE_P(Viewers, BenchShowsNothing,
    testing::Values(DamagedRow{"picture", "picture-rgb.tif", 20, "", "", "Can't read tif-file"},
        DamagedRow{"noise", "noise-gray.con", 3000, "", "", "The file ends before its line does"},
        DamagedRow{
            "star test", "startest-sweeps.con", kAll, "Length = ", "Nength = ", "No sweep"}));

} // namespace

} // namespace vireo
