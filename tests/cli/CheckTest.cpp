#include "limits/FigureNames.h"
#include "limits/LimitsFile.h"
#include "tests/TempFolder.h"
#include "tests/cli/ProgramRun.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

namespace vireo {

namespace {

using Json = nlohmann::ordered_json;

const std::filesystem::path kSamples = VIREO_SAMPLES;
const std::filesystem::path kFinalTest = kSamples / "limits" / "final-test.txt";

std::vector<std::string> Samples()
{
    std::set<std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(kSamples)) {
        const auto extension = entry.path().extension();
        if (extension == ".con" || extension == ".tif")
            files.insert(Text(entry.path()));
    }
    return {files.begin(), files.end()};
}

ProgramRun Check(const std::filesystem::path& limits, std::vector<std::string> rest)
{
    rest.insert(rest.begin(), {"check", "--limits", Text(limits)});
    return RunCli(rest);
}

/// Every figure of an object by its name, with the elements of lists as [*].
void ListFigures(const Json& figure, const FigurePath& path, std::set<std::string>& names)
{
    if (!path.steps.empty() && !figure.is_object())
        names.insert(path.Text());
    for (const auto& [key, value] : figure.items()) {
        FigurePath next = path;
        next.steps.push_back(
            figure.is_array() ? FigureStep{{}, FigureStep::kEveryElement} : FigureStep{key});
        if (figure.is_structured())
            ListFigures(value, next, names);
    }
}

} // namespace

TEST(Check, EveryFigureThatIsAnalysedCanBeLimitedAndNoOther)
{
    std::vector<std::string> arguments = Samples();
    arguments.insert(arguments.begin(), "analyse");
    std::map<std::string, std::set<std::string>> told;
    for (Json object : RunCli(arguments).Objects()) {
        const std::string kind = object["kind"];
        object.erase("file");
        object.erase("kind");
        ListFigures(object, {}, told[kind]);
    }
    told.erase("unknown");
    EXPECT_EQ(told.size(), AllFigures().size());
    for (const KindFigures& kind : AllFigures()) {
        std::set<std::string_view> matched;
        for (const std::string& name : told[std::string(kind.kind)]) {
            std::string_view rest = name;
            const auto path = FigurePath::Take(rest);
            ASSERT_TRUE(path && rest.empty()) << name;
            EXPECT_TRUE(FindFigure(kind, *path)) << kind.kind << ' ' << name;
            for (const FigureRow& row : kind.rows)
                if (FindFigure({kind.kind, {&row, 1}}, *path))
                    matched.insert(row.pattern);
        }
        // Not every kind has a sample that lacks something.
        for (const FigureRow& row : kind.rows)
            EXPECT_TRUE(matched.contains(row.pattern) || row.pattern == "missing[*]")
                << kind.kind << ' ' << row.pattern;
    }
}

TEST(Check, TheSamplesShowPassesAndFailures)
{
    const std::vector<std::string> files = Samples();
    const ProgramRun run = Check(kFinalTest, files);
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(run.Errors().size(), 1U); // Of a sample that no viewer recognises.
    std::vector<std::string> failed;
    const auto objects = run.Objects();
    ASSERT_EQ(objects.size(), files.size());
    for (std::size_t i = 0; i < files.size(); ++i) {
        EXPECT_EQ(KeysOf(objects[i]),
            (std::vector<std::string>{
                "file", "kind", "verdict", "failed", "failed_count", "checked"}));
        EXPECT_EQ(objects[i]["file"], files[i]);
        EXPECT_EQ(objects[i]["failed"].empty(), objects[i]["verdict"] != "fail");
        if (objects[i]["verdict"] != "pass")
            failed.push_back(std::filesystem::path(files[i]).filename().string());
    }
    EXPECT_EQ(failed,
        (std::vector<std::string>{"noise-four-planes.con", "oscilloscope-generation-9.con",
            "oscilloscope-gray.con", "oscilloscope-missing-items.con",
            "Oscil_Unadjusted_Color_300.con", "Oscil_Unadjusted_Gray_600.con",
            "picture-bilevel.tif", "picture-palette.tif", "picture-rgb.tif", "startest-repeats.con",
            "startest-sweeps.con", "stitch-binary.con", "stitch-run-length.con",
            "tonal-resolution-shadows.con"}));
}

TEST(Check, AFailureNamesFigureValueLimitAndLine)
{
    const TempFolder folder;
    const auto limits = folder.Write("limits.txt",
        "[noise]\naverages.red <= 200 # of 255\n\naverages.gray > 0\nmarks.red count < 9\n"
        "marks.red[*].value >= 133\nscanner_name = \"Heron 36\"\n");
    const ProgramRun run = Check(limits, {Text(kSamples / "noise-color.con")});
    EXPECT_EQ(run.exitStatus, 1);
    ASSERT_EQ(run.Objects().size(), 1U);
    const Json object = run.Objects()[0];
    EXPECT_EQ(object["verdict"], "fail");
    EXPECT_EQ(object["failed"][0].dump(),
        R"({"name":"averages.red","value":201,"limit":"<= 200","line":2})");
    EXPECT_EQ(object["failed"][1].dump(),
        R"({"name":"averages.gray","value":null,"limit":"> 0","line":4})");
}

TEST(Check, ElementsOfListsAreNamedByTheirNumber)
{
    const TempFolder folder;
    const auto limits = folder.Write("limits.txt",
        "[startest family=5]\nsweeps[*].line_count <= 1\nsweeps[7].line_count > 0\n"
        "sweeps count > 2\n");
    const Json object = Check(limits, {Text(kSamples / "startest-sweeps.con")}).Objects().at(0);
    std::vector<std::string> names;
    for (const Json& row : object["failed"])
        names.push_back(row["name"]);
    EXPECT_EQ(names,
        (std::vector<std::string>{"sweeps[0].line_count", "sweeps[1].line_count",
            "sweeps[2].line_count", "sweeps[7].line_count"}));
    EXPECT_EQ(object["checked"], 5);
    EXPECT_EQ(object["failed_count"], 4);
}

TEST(Check, WhatHasNoLimitsOrCannotBeReadHasNotPassed)
{
    const TempFolder folder;
    const auto limits = folder.Write("limits.txt",
        "[stitch]\nwidth > 0\n[oscilloscope family=9]\nline_count > 0\n"
        "[tiff]\npages > 0\nresult = \"0x00000000\"\n");
    const auto check = [&](const std::string& file) { return Check(limits, {file}); };

    const ProgramRun other = check(Text(kSamples / "noise-gray.con"));
    EXPECT_EQ(other.exitStatus, 1);
    EXPECT_EQ(other.error, "");
    EXPECT_EQ(other.Objects().at(0)["verdict"], "no limits");
    EXPECT_EQ(
        check(Text(kSamples / "oscilloscope-gray.con")).Objects().at(0)["verdict"], "no limits");
    EXPECT_EQ(check(Text(kSamples / "oscilloscope-generation-9.con")).exitStatus, 0);
    EXPECT_EQ(check(Text(kSamples / "stitch-gray.con")).exitStatus, 0);
    EXPECT_EQ(check(Text(kSamples / "picture-gray.tif")).exitStatus, 0);

    const ProgramRun missing = check("nothing.con");
    EXPECT_EQ(missing.exitStatus, 1);
    EXPECT_EQ(missing.output, "");
    EXPECT_EQ(missing.Errors().size(), 1U);
}

TEST(Check, RenderMarksTheLimits)
{
    const TempFolder folder;
    const auto picture = folder.Path() / "a.svg";
    const struct {
        const char* sample;
        const char* label;
        const char* view = "0";
    } cases[] = {{"oscilloscope-color.con", "max &lt;= 242"}, {"noise-gray.con", "green &gt;= 190"},
        {"startest-sweeps.con", "X-vib max &lt;= 2.5"},
        {"tonal-resolution.con", "max_dark_deviation &lt;= 2", "1"},
        {"tonal-resolution.con", "scanner_dynamic_range &gt;= 2.2", "2"}};
    for (const auto& row : cases) {
        std::vector<std::string> arguments{
            "render", Text(kSamples / row.sample), "-o", Text(picture), "--view", row.view};
        EXPECT_EQ(RunCli(arguments).exitStatus, 0);
        EXPECT_EQ(TempFolder::Read(picture).find(row.label), std::string::npos) << row.sample;
        arguments.insert(arguments.end(), {"--limits", Text(kFinalTest)});
        EXPECT_EQ(RunCli(arguments).exitStatus, 0);
        EXPECT_NE(TempFolder::Read(picture).find(row.label), std::string::npos) << row.sample;
    }
}

TEST(Check, ABadLimitsFileIsBadUsage)
{
    const TempFolder folder;
    const auto limits = folder.Write("limits.txt", "[noise]\n\nplanes.red.min > 1\n");
    const ProgramRun run = Check(limits, {Text(kSamples / "noise-gray.con")});
    EXPECT_EQ(run.exitStatus, 2);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.error,
        "vireo-cli: " + Text(limits)
            + ": Line 3: There is no figure planes.red.min of files of kind noise\n");
    EXPECT_EQ(Check(folder.Path() / "none.txt", {"a.con"}).exitStatus, 2);
    EXPECT_EQ(RunCli({"check", "a.con"}).exitStatus, 2);
}

} // namespace vireo
