#include "tests/TempFolder.h"
#include "tests/cli/ProgramRun.h"
#include "tests/cli/ScanFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
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
    const ProgramRun run = Report(m_pdf,
        {"--limits", Text(kSamples / "limits" / "final-test.txt"),
            Text(kSamples / "noise-color.con"), "missing.con", Text(kSamples / "stitch-binary.con"),
            Text(kSamples / "dump" / "test-run.con")});
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.Errors().size(), 1U);
    const auto pages = PagesOf(m_pdf);
    ASSERT_EQ(pages.size(), 3U);
    EXPECT_NE(pages[0].find("4 files: 2 pass, 1 fail, 1 cannot be read"), std::string::npos)
        << pages[0];
    const std::string noise = LineWith(pages[0], "color.con");
    EXPECT_NE(noise.find("average R 201 G 198 B 192"), std::string::npos) << noise;
    EXPECT_NE(noise.find("Heron 36"), std::string::npos) << noise;
    EXPECT_TRUE(noise.ends_with(" 2")) << noise;
    EXPECT_NE(LineWith(pages[0], "missing.con").find("No such file"), std::string::npos);
    EXPECT_NE(LineWith(pages[0], "binary.con").find("fail: 1 of 3"), std::string::npos);
    for (std::size_t i = 0; i < pages.size(); ++i)
        EXPECT_NE(pages[i].find("Page " + std::to_string(i + 1) + " of 3"), std::string::npos);
    EXPECT_NE(LineWith(pages[2], "Page 3 of 3").find("stitch-binary.con"), std::string::npos);
}

TEST_F(ReportTest, ALongTableGoesOnOverPagesAndEveryFileStandsInItOnce)
{
    constexpr int kFiles = 180;
    std::vector<std::string> files;
    for (int i = 0; i < kFiles; ++i)
        files.push_back(Text(m_folder.Write("number" + std::to_string(i) + ".con", "no test")));
    EXPECT_EQ(Report(m_pdf, files).exitStatus, 1);
    std::string table;
    for (const std::string& page : PagesOf(m_pdf))
        table += page;
    for (int i = 0; i < kFiles; ++i) {
        const std::string name = "number" + std::to_string(i) + ".con";
        const std::size_t first = table.find(name);
        ASSERT_NE(first, std::string::npos) << name;
        EXPECT_EQ(table.find(name, first + 1), std::string::npos) << name;
    }
}

TEST_F(ReportTest, LongNamesAreCutInTheMiddle)
{
    const std::string name = "begin" + std::string(150, 'x') + "end.con";
    ScanFile scan;
    const auto file = m_folder.Write(name, scan.Bytes());
    EXPECT_EQ(Report(m_pdf, {Text(file)}).exitStatus, 0);
    const auto pages = PagesOf(m_pdf);
    ASSERT_EQ(pages.size(), 2U);
    for (const std::string& page : pages)
        EXPECT_NE(page.find("xend.con"), std::string::npos) << page;
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
