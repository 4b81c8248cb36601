#include "tests/TempFolder.h"
#include "tests/cli/ProgramRun.h"
#include "tests/cli/ScanFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <ostream>
#include <sstream>

namespace vireo {

namespace {

const std::filesystem::path kSamples = VIREO_SAMPLES;

ProgramRun Report(const std::filesystem::path& output, std::vector<std::string> rest)
{
    rest.insert(rest.begin(), {"report", "-o", Text(output)});
    return RunCli(rest);
}

/// The words of the pages, each page by itself.
std::vector<std::string> PagesOf(const std::filesystem::path& pdf)
{
    std::vector<std::string> pages;
    std::string text = RunTool("pdftotext", {"-layout", Text(pdf), "-"}).output;
    for (std::size_t end; (end = text.find('\f')) != std::string::npos; text.erase(0, end + 1))
        pages.push_back(text.substr(0, end));
    return pages;
}

/// A word on a page, its edges in points from the upper left corner.
struct Word {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;
    std::string text;
};

constexpr double kMargin = 36.0;

struct Page {
    double width = 0.0;
    double height = 0.0;
    std::vector<Word> words;
};

std::vector<Page> WordsOf(const std::filesystem::path& pdf)
{
    std::vector<Page> pages;
    std::istringstream lines(RunTool("pdftotext", {"-bbox", Text(pdf), "-"}).output);
    for (std::string line; std::getline(lines, line);) {
        const auto number = [&line](const std::string& name) {
            const std::size_t at = line.find(' ' + name + "=\"");
            return at == std::string::npos ? 0.0 : std::stod(line.substr(at + name.size() + 3));
        };
        if (line.find("<page ") != std::string::npos)
            pages.push_back({number("width"), number("height"), {}});
        if (line.find("<word ") == std::string::npos)
            continue;
        const std::size_t text = line.find('>') + 1;
        pages.back().words.push_back({number("xMin"), number("yMin"), number("xMax"),
            number("yMax"), line.substr(text, line.rfind('<') - text)});
    }
    return pages;
}

/// All that stands below a heading of the first page's table, from top to bottom and without
/// blanks, as far as to the left edge of the next heading.
std::string ColumnOf(
    const std::filesystem::path& pdf, const std::string& heading, const std::string& next)
{
    Page page = WordsOf(pdf).at(0);
    std::erase_if(
        page.words, [&page](const Word& word) { return word.top > page.height - kMargin; });
    std::ranges::stable_sort(page.words, {}, &Word::left);
    std::ranges::stable_sort(page.words, {}, [](const Word& word) { return std::round(word.top); });
    const auto first = std::ranges::find(page.words, heading, &Word::text);
    const auto behind = std::ranges::find(page.words, next, &Word::text);
    if (first == page.words.end())
        return {};
    const double right = behind == page.words.end() ? page.width : behind->left - 1.0;
    std::string text;
    for (auto word = std::next(first); word != page.words.end(); ++word)
        if (word->left >= first->left - 1.0 && word->right <= right)
            text += word->text;
    return text;
}

/// No word runs off the paper, or into the foot of the page.
void ExpectWithinMargins(const std::filesystem::path& pdf)
{
    constexpr double kRounding = 1.0;
    constexpr double kFoot = 16.0;
    for (const Page& page : WordsOf(pdf)) {
        for (const Word& word : page.words) {
            EXPECT_GE(word.left, kMargin - kRounding) << word.text;
            EXPECT_LE(word.right, page.width - kMargin + kRounding) << word.text;
            const bool isFoot = word.top > page.height - kMargin;
            EXPECT_LE(word.bottom, page.height - (isFoot ? kFoot : kMargin + kFoot)) << word.text;
        }
    }
}

std::string LineWith(const std::string& page, const std::string& word)
{
    const std::size_t at = page.find(word);
    if (at == std::string::npos)
        return {};
    const std::size_t begin = page.rfind('\n', at) + 1;
    return page.substr(begin, page.find('\n', at) - begin);
}

class ReportTest : public testing::Test {
protected:
    void SetUp() override
    {
        if (!HasTool("pdftotext"))
            GTEST_SKIP() << "pdftotext is not installed";
    }

    const TempFolder m_folder;
    const std::filesystem::path m_pdf = m_folder.Path() / "report.pdf";
};

TEST_F(ReportTest, HasATableAndAPageForEveryFileThatIsDrawn)
{
    const std::string picture = TempFolder::Read(kSamples / "picture-gray.tif");
    const ProgramRun run = Report(m_pdf,
        {"--limits", Text(kSamples / "limits" / "final-test.txt"),
            Text(kSamples / "noise-color.con"), "missing.con", Text(kSamples / "stitch-binary.con"),
            Text(kSamples / "dump" / "test-run.con"), Text(m_folder.Write("other.txt", "none")),
            Text(m_folder.Write("cut.tif", picture.substr(0, picture.size() / 2)))});
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.Errors().size(), 3U);
    const auto pages = PagesOf(m_pdf);
    ASSERT_EQ(pages.size(), 3U);
    // What the rows say is what is counted.
    EXPECT_NE(pages[0].find("6 files: 2 pass, 2 fail, 2 cannot be read"), std::string::npos)
        << pages[0];
    EXPECT_EQ(
        ColumnOf(m_pdf, "Verdict", "Page"), "passcannotbereadfail:1of3passcannotbereadfail:2of3");
    const std::string figures = ColumnOf(m_pdf, "Figures", "Verdict");
    EXPECT_TRUE(figures.starts_with("averageR201G198B192Nosuchfile320x200pixels")) << figures;
    EXPECT_EQ(ColumnOf(m_pdf, "Scanner", "Date"), "Heron36");
    EXPECT_EQ(ColumnOf(m_pdf, "Page", ""), "23");
    for (std::size_t i = 0; i < pages.size(); ++i)
        EXPECT_NE(pages[i].find("Page " + std::to_string(i + 1) + " of 3"), std::string::npos);
    EXPECT_NE(LineWith(pages[2], "Page 3 of 3").find("stitch-binary.con"), std::string::npos);
}

struct TableRow {
    const char* paper;
    const char* heading;
    const char* next;
    const char* text; ///< Without blanks; longer than the column or nearly so.

    friend void PrintTo(const TableRow& row, std::ostream* out)
    {
        *out << row.heading << " on " << row.paper;
    }
};

class ReportCells : public ReportTest, public testing::WithParamInterface<TableRow> { };

TEST_P(ReportCells, ShowWholeTexts)
{
    const TableRow& row = GetParam();
    EXPECT_EQ(Report(m_pdf,
                  {"--limits", Text(kSamples / "limits" / "final-test.txt"), "--page", row.paper,
                      "--line", "7", Text(kSamples / "vertical-camera-verification.con"),
                      Text(kSamples / "noise-four-planes.con"), Text(kSamples / "noise-gray.con"),
                      Text(kSamples / "oscilloscope-set" / "Oscil_Unadjusted_Color_300.con")})
                  .exitStatus,
        1);
    const std::string column = ColumnOf(m_pdf, row.heading, row.next);
    EXPECT_NE(column.find(row.text), std::string::npos) << column;
}

constexpr const char* kLongName = "oscilloscope-set/Oscil_Unadjusted_Color_300.con";
constexpr const char* kLongReason = "Thereisnoline7:thefilehas1,countedfrom0";

INSTANTIATE_TEST_SUITE_P(All, ReportCells,
    testing::Values(TableRow{"A4", "File", "Kind", kLongName},
        TableRow{"A4", "Kind", "Scanner", "verticalcameraverification"},
        TableRow{"A4", "Scanner", "Date", "Heron36Mono"},
        TableRow{"A4", "Figures", "Verdict", "averageR201G198B192gray196"},
        TableRow{"Letter", "File", "Kind", kLongName},
        TableRow{"Letter", "Figures", "Verdict", kLongReason}));

TEST_F(ReportTest, ALongTableGoesOnOverPagesAndEveryFileStandsInItOnce)
{
    constexpr int kFiles = 180;
    std::vector<std::string> files;
    // Of every third file the name takes several lines.
    for (int i = 0; i < kFiles; ++i)
        files.push_back(Text(m_folder.Write(
            "number" + std::to_string(i) + "-" + std::string(i % 3 ? 4 : 90, 'x'), "no test")));
    EXPECT_EQ(Report(m_pdf, files).exitStatus, 1);
    ExpectWithinMargins(m_pdf);
    std::string table;
    for (const std::string& page : PagesOf(m_pdf))
        table += page;
    for (int i = 0; i < kFiles; ++i) {
        const std::string name = "number" + std::to_string(i) + "-";
        const std::size_t first = table.find(name);
        ASSERT_NE(first, std::string::npos) << name;
        EXPECT_EQ(table.find(name, first + 1), std::string::npos) << name;
    }
}

TEST_F(ReportTest, LongNamesAreCutInTheMiddle)
{
    const std::string name = "begin" + std::string(180, 'x') + "end.";
    ScanFile scan;
    scan.scannerName = std::string(200, 'y') + "z";
    std::vector<std::string> files{Text(m_folder.Write(name + "con", scan.Bytes()))};
    for (const char* const sample : {"stitch-gray.con", "picture-gray.tif"})
        files.push_back(Text(m_folder.Write(name + sample, TempFolder::Read(kSamples / sample))));
    EXPECT_EQ(Report(m_pdf, files).exitStatus, 0);
    ExpectWithinMargins(m_pdf);
    const auto pages = PagesOf(m_pdf);
    ASSERT_EQ(pages.size(), 4U);
    EXPECT_NE(LineWith(pages[1], "Scanner Name").find("yz"), std::string::npos) << pages[1];
    EXPECT_NE(LineWith(pages[2], "File:").find("stitch-gray.con"), std::string::npos) << pages[2];
    EXPECT_NE(LineWith(pages[3], "Picture:").find("gray.tif"), std::string::npos) << pages[3];
}

TEST_F(ReportTest, APageTellsWhyItsFileCannotBeDrawn)
{
    // The page's description is sound, its compressed rows are not.
    std::string bytes = TempFolder::Read(kSamples / "picture-rgb.tif");
    ASSERT_GT(bytes.size(), 30000U);
    std::fill_n(bytes.begin() + 20000, 10000, '\xFF');
    const auto picture = m_folder.Write("bad.tif", bytes);
    const ProgramRun run = Report(m_pdf, {Text(picture), Text(kSamples / "noise-gray.con")});
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(run.Errors().size(), 1U);
    const auto pages = PagesOf(m_pdf);
    ASSERT_EQ(pages.size(), 3U);
    EXPECT_NE(pages[1].find("cannot be drawn: Tif format error"), std::string::npos) << pages[1];
}

TEST_F(ReportTest, CountsFilesAndThenPagesWhilePeopleLookOn)
{
    if (!HasTool("script"))
        GTEST_SKIP() << "script is not installed";
    // More than is done before the first time that the progress is shown.
    constexpr int kFiles = 120;
    std::string command = Text(VIREO_CLI) + " report -o " + Text(m_pdf);
    for (int i = 0; i < kFiles; ++i)
        command += " " + Text(kSamples / (i % 4 ? "oscilloscope-color.con" : "dump/test-run.con"));
    std::string shown = RunTool("script", {"-qec", command, "/dev/null"}).output;
    EXPECT_NE(shown.find(" of 90 pages"), std::string::npos) << shown;
    std::replace(shown.begin(), shown.end(), '\r', '\n');
    std::istringstream lines(shown);
    for (std::string line; std::getline(lines, line);) {
        int done = 0;
        int all = 0;
        if (std::sscanf(line.c_str(), "%d of %d", &done, &all) == 2) {
            EXPECT_LE(done, all) << line;
        }
    }
}

TEST_F(ReportTest, IsAbsentWhereItCannotBeComplete)
{
    const auto input = m_folder.Write("input.pdf", ScanFile().Bytes());
    const auto before = std::filesystem::file_size(input);
    EXPECT_EQ(Report(input, {Text(input)}).exitStatus, 1);
    EXPECT_EQ(std::filesystem::file_size(input), before);
    const ProgramRun nowhere =
        Report(m_folder.Path() / "none" / "a.pdf", {Text(kSamples / "noise-gray.con")});
    EXPECT_EQ(nowhere.exitStatus, 1);
    EXPECT_EQ(nowhere.Errors().size(), 1U);
    EXPECT_EQ(Report(m_folder.Path() / "a.txt", {Text(input)}).exitStatus, 2);
    const auto limits = m_folder.Write("limits.txt", "[nothing]\n");
    EXPECT_EQ(Report(m_pdf, {"--limits", Text(limits), Text(input)}).exitStatus, 2);
    EXPECT_FALSE(std::filesystem::exists(m_pdf));
}

} // namespace

} // namespace vireo
