#include "tests/TempFolder.h"
#include "tests/cli/ProgramRun.h"
#include "tests/cli/ScanFile.h"

#include <QImage>

#include <gtest/gtest.h>

#include <ostream>

namespace vireo {

namespace {

/// Renders a file with options; the picture's path.
std::filesystem::path Render(const TempFolder& folder, const ScanFile& scan, const char* name,
    std::vector<std::string> options = {})
{
    const auto picture = folder.Path() / name;
    const std::string file = Text(folder.Write("scan.con", scan.Bytes()));
    options.insert(options.begin(), {"render", file, "-o", Text(picture)});
    const ProgramRun run = RunCli(options);
    EXPECT_EQ(run.exitStatus, 0) << run.error;
    EXPECT_EQ(run.output + run.error, "");
    return picture;
}

QImage Png(const std::filesystem::path& picture)
{
    return QImage(QString::fromStdString(Text(picture)));
}

/// How many pixels of a picture are nearly of a colour.
int CountNear(const QImage& image, const QColor& colour)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            constexpr int kNear = 40;
            if (std::abs(pixel.red() - colour.red()) < kNear
                && std::abs(pixel.green() - colour.green()) < kNear
                && std::abs(pixel.blue() - colour.blue()) < kNear)
                ++count;
        }
    }
    return count;
}

TEST(Render, DrawsAPngOfTheSize)
{
    const TempFolder folder;
    EXPECT_EQ(Png(Render(folder, {}, "a.png")).size(), QSize(1600, 500));
    EXPECT_EQ(Png(Render(folder, {}, "a.png", {"--size", "333x222"})).size(), QSize(333, 222));
    EXPECT_EQ(Png(Render(folder, {}, "a.PNG", {"--size", "1x1"})).size(), QSize(1, 1));
}

TEST(Render, ScalesLinesAndTextOfAPng)
{
    const TempFolder folder;
    const QImage plain = Png(Render(folder, {}, "a.png", {"--size", "400x200"}));
    const QImage scaled = Png(Render(folder, {}, "a.png", {"--size", "400x200", "--scale", "3"}));
    ASSERT_EQ(scaled.size(), QSize(1200, 600));
    // The left end of the axis line: the first column that is dark over half of its height.
    const auto axis = [](const QImage& image) {
        int x = 0;
        for (int dark = 0; dark < image.height() / 2 && x < image.width(); ++x) {
            dark = 0;
            for (int y = 0; y < image.height(); ++y)
                dark += image.pixelColor(x, y).lightness() < 160 ? 1 : 0;
        }
        return x;
    };
    EXPECT_GT(axis(plain), 10);
    EXPECT_NEAR(axis(scaled), 3 * axis(plain), 4);
    const auto svg = Render(folder, {}, "a.svg");
    EXPECT_EQ(
        TempFolder::Read(Render(folder, {}, "b.svg", {"--scale", "3"})), TempFolder::Read(svg));
}

TEST(Render, DrawsTextInPagesInsteadOfThePlot)
{
    const TempFolder folder;
    const std::string file = VIREO_SAMPLES "/tonal-resolution.con";
    const auto page = [&](const char* number) {
        const auto out = folder.Path() / "list.svg";
        const ProgramRun run =
            RunCli({"render", file, "-o", Text(out), "--list", number, "--size", "500x150"});
        EXPECT_EQ(run.exitStatus, 0) << run.error;
        return TempFolder::Read(out);
    };
    EXPECT_NE(page("1").find("IT8 dynamic range"), std::string::npos);
    EXPECT_EQ(page("2").find("IT8 dynamic range"), std::string::npos);
    EXPECT_NE(page("2").find("Light color"), std::string::npos);
    const ProgramRun behind =
        RunCli({"render", file, "-o", Text(folder.Path() / "no.svg"), "--list", "99"});
    EXPECT_EQ(behind.exitStatus, 1);
    EXPECT_EQ(behind.error, "vireo-cli: " + file + ": The list has 1 page\n");
}

TEST(Render, DrawsThePlaneAskedFor)
{
    const TempFolder folder;
    const QImage red = Png(Render(folder, {}, "a.png", {"--color", "red"}));
    const QImage green = Png(Render(folder, {}, "a.png", {"--color", "green"}));
    const QImage blue = Png(Render(folder, {}, "a.png"));
    const QColor kRed(200, 30, 30);
    const QColor kBlue(20, 70, 220);
    EXPECT_GT(CountNear(red, kRed), 1000);
    EXPECT_LT(CountNear(blue, kRed), 100);
    EXPECT_GT(CountNear(blue, kBlue), 1000) << "corrected colour data are shown by their blue";
    EXPECT_NE(green, red);
}

TEST(Render, ShowsOtherPixelsForAnotherLineCameraOrZoom)
{
    ScanFile scan;
    scan.lines = 2;
    const TempFolder folder;
    const QImage whole = Png(Render(folder, scan, "a.png"));
    EXPECT_EQ(Png(Render(folder, scan, "a.png", {"--line", "0", "--zoom", "1"})), whole);
    EXPECT_NE(Png(Render(folder, scan, "a.png", {"--line", "1"})), whole);
    EXPECT_NE(Png(Render(folder, scan, "a.png", {"--zoom", "4"})), whole);
    const QImage camera = Png(Render(folder, scan, "a.png", {"--camera", "C"}));
    EXPECT_NE(camera, whole);
    EXPECT_NE(Png(Render(folder, scan, "a.png", {"--camera", "A"})), camera);
}

TEST(Render, WritesTextAsTextInSvg)
{
    const TempFolder folder;
    const std::string svg = TempFolder::Read(Render(folder, {}, "a.svg", {"--size", "800x300"}));
    EXPECT_NE(svg.find("viewBox=\"0 0 800 300\""), std::string::npos);
    EXPECT_NE(svg.find(">200</text>"), std::string::npos) << "a value of the axis";
    EXPECT_NE(svg.find(">B</text>"), std::string::npos) << "a camera's letter";
}

TEST(Render, SvgHasAWhiteGroundAsPngHas)
{
    const TempFolder folder;
    const auto target = folder.Path() / "a.svg";
    const auto sample = std::filesystem::path(VIREO_SAMPLES) / "mirror-carriage-adjustment.con";
    ASSERT_EQ(RunCli({"render", Text(sample), "-o", Text(target)}).exitStatus, 0);
    const std::string svg = TempFolder::Read(target);
    EXPECT_LT(svg.find("#ffffff"), svg.find("<image")) << "beside the picture there is nothing";
}

TEST(Render, SvgStaysXmlWhateverAFileIsCalled)
{
    const TempFolder folder;
    const auto odd = folder.Write("a\x01<&>.con", ScanFile().Bytes());
    const auto picture = folder.Path() / "a.svg";
    ASSERT_EQ(RunCli({"render", Text(odd), "-o", Text(picture)}).exitStatus, 0);
    EXPECT_NE(TempFolder::Read(picture).find("/a\xEF\xBF\xBD&lt;&amp;&gt;.con</title>"),
        std::string::npos);
}

TEST(Render, DrawsInSvgWhatItDrawsInPng)
{
    if (!HasTool("rsvg-convert"))
        GTEST_SKIP() << "needs librsvg2-bin";
    const TempFolder folder;
    const std::vector<std::string> options{"--size", "800x300"};
    const QImage png = Png(Render(folder, {}, "a.png", options));
    const auto drawn = folder.Path() / "drawn.png";
    const auto svg = Render(folder, {}, "a.svg", options);
    ASSERT_EQ(RunTool("rsvg-convert", {Text(svg), "-o", Text(drawn)}).exitStatus, 0);
    const auto blurred = [](const QImage& image) {
        constexpr int kBlock = 10; // Fonts and thin lines differ by less than that.
        return image.convertToFormat(QImage::Format_RGB32)
            .scaled(image.size() / kBlock, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    };
    const QImage expected = blurred(png);
    const QImage actual = blurred(Png(drawn));
    ASSERT_EQ(actual.size(), expected.size());
    for (int y = 0; y < actual.height(); ++y) {
        for (int x = 0; x < actual.width(); ++x) {
            const int difference =
                actual.pixelColor(x, y).lightness() - expected.pixelColor(x, y).lightness();
            EXPECT_LT(std::abs(difference), 60) << x << ' ' << y;
        }
    }
}

TEST(Render, PrintsAPageWithItsHeaderAsPdf)
{
    if (!HasTool("pdftotext") || !HasTool("pdfinfo"))
        GTEST_SKIP() << "needs poppler-utils";
    ScanFile scan;
    scan.scannerName = "M\xFCller"; // One byte of code page 1252.
    const TempFolder folder;
    struct Row {
        const char* paper;
        const char* size;
    };
    for (const Row& row :
        {Row{"A4", "595 x 842"}, Row{"A3", "842 x 1191"}, Row{"Letter", "612 x 792"}}) {
        const auto page = Render(folder, scan, "a.pdf", {"--page", row.paper, "--camera", "B"});
        const std::string info = RunTool("pdfinfo", {Text(page)}).output;
        EXPECT_NE(info.find(row.size), std::string::npos) << info;
        const std::string text = RunTool("pdftotext", {"-layout", Text(page), "-"}).output;
        EXPECT_NE(text.find("Scanner Name:"), std::string::npos) << text;
        EXPECT_NE(text.find("M\xC3\xBCller"), std::string::npos) << text;
        EXPECT_NE(text.find("2026-03-01"), std::string::npos) << text;
        EXPECT_NE(text.find("Camera B"), std::string::npos) << "the details are on the page";
    }
}

struct RefusalRow {
    const char* name;
    bool isColor;
    std::vector<std::string> options;

    friend void PrintTo(const RefusalRow& row, std::ostream* out) { *out << row.name; }
};

class RenderRefuses : public testing::TestWithParam<RefusalRow> { };

TEST_P(RenderRefuses, WhatTheFileHasNot)
{
    ScanFile scan;
    scan.isColor = GetParam().isColor;
    const TempFolder folder;
    const auto picture = folder.Path() / "a.png";
    std::vector<std::string> arguments{
        "render", Text(folder.Write("scan.con", scan.Bytes())), "-o", Text(picture)};
    arguments.insert(arguments.end(), GetParam().options.begin(), GetParam().options.end());
    const ProgramRun run = RunCli(arguments);
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(run.Errors().size(), 1U) << run.error;
    EXPECT_FALSE(std::filesystem::exists(picture));
}

struct MissingRow {
    const char* command;
    const char* sample;
    const char* option;
    const char* value;
    const char* reason;

    friend void PrintTo(const MissingRow& row, std::ostream* out)
    {
        *out << row.command << ' ' << row.sample << ' ' << row.option << ' ' << row.value;
    }
};

class Refuses : public testing::TestWithParam<MissingRow> { };

TEST_P(Refuses, WhatFilesOfTheKindHaveNot)
{
    const MissingRow& row = GetParam();
    const TempFolder folder;
    const auto out = folder.Path() / "out.png";
    const std::string file = std::string(VIREO_SAMPLES) + '/' + row.sample;
    EXPECT_EQ(RefusalOf({row.command, file, "-o", Text(out), row.option, row.value}),
        "vireo-cli: " + file + ": There is no " + row.reason + '\n');
    EXPECT_FALSE(std::filesystem::exists(out));
}

INSTANTIATE_TEST_SUITE_P(Kinds, Refuses,
    testing::Values(MissingRow{"render", "noise-color.con", "--camera", "H", "camera H"},
        MissingRow{"render", "adjust-center-ccd.con", "--camera", "H", "camera H"},
        MissingRow{"render", "tonal-resolution.con", "--camera", "A", "camera A"},
        MissingRow{"render", "startest-sweeps.con", "--color", "blue", "plane Blue"},
        MissingRow{"render", "picture-gray.tif", "--color", "blue", "plane Blue"},
        MissingRow{"render", "stitch-gray.con", "--line", "420",
            "line 420: the file has 420, counted from 0"},
        MissingRow{"render", "picture-rgb.tif", "--line", "99999",
            "line 99999: the file has 420, counted from 0"},
        MissingRow{"render", "oscilloscope-color.con", "--view", "1",
            "view 1: the file has 1, counted from 0"},
        MissingRow{"render", "tonal-resolution.con", "--view", "3",
            "view 3: the file has 3, counted from 0"},
        MissingRow{
            "render", "noise-gray.con", "--sweep", "0", "sweep 0: the file has 0, counted from 0"},
        MissingRow{
            "export", "noise-color.con", "--line", "1", "line 1: the file has 1, counted from 0"},
        MissingRow{"export", "startest-sweeps.con", "--line", "88888",
            "line 88888: the file has 700, counted from 0"},
        MissingRow{"export", "oscilloscope-color.con", "--sweep", "77",
            "sweep 77: the file has 0, counted from 0"}));

TEST(RefusesNothing, OfWhatAKindHasOrAReportAsksOfOthers)
{
    const TempFolder folder;
    const std::string out = Text(folder.Path() / "out.pdf");
    const std::string samples = VIREO_SAMPLES "/";
    for (const std::vector<std::string>& arguments :
        {std::vector<std::string>{"report", samples + "noise-gray.con",
             samples + "tonal-resolution.con", samples + "stitch-gray.con", "--line", "7000"},
            std::vector<std::string>{"render", samples + "stitch-gray.con", "--line", "419"},
            std::vector<std::string>{"render", samples + "picture-gray.tif", "--color", "all"},
            std::vector<std::string>{"render", samples + "startest-sweeps.con", "--view", "5"}}) {
        std::vector<std::string> whole = arguments;
        whole.insert(whole.end(), {"-o", out});
        EXPECT_EQ(RunCli(whole).error, "") << arguments[1];
    }
}

INSTANTIATE_TEST_SUITE_P(Choices, RenderRefuses,
    testing::Values(RefusalRow{"a camera without pixels", true, {"--camera", "D"}},
        RefusalRow{"a line behind the last", true, {"--line", "1"}},
        RefusalRow{"red of a gray file", false, {"--color", "red"}},
        RefusalRow{"gray of a colour file", true, {"--color", "gray"}},
        RefusalRow{"a kind that is not there", true, {"--as", "noise"}}));

} // namespace

} // namespace vireo
