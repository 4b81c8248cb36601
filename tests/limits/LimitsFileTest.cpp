#include "limits/LimitsFile.h"
#include "tests/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vireo {
namespace {

const char* const kSound = "\xEF\xBB\xBF# Limits of the final test.\r\n"
                           "[noise]\r\n"
                           "averages.red<=4.5 # of 256\r\n"
                           "\n"
                           "scanner_name = \"Heron #36\"   # blue one\n"
                           "marks.red count between 0 and 3\n"
                           "[startest family=G6]\n"
                           "  sweeps[*].curves.x_vibration.rms < -1e3\n"
                           "[oscilloscope]\n"
                           "missing Is Empty\n"
                           "optional corrected = true";

TEST(LimitsFileTest, ReadsEveryFormOfLimit)
{
    LimitsFile file;
    ASSERT_FALSE(file.Parse(kSound));
    ASSERT_EQ(file.Sections().size(), 3U);

    const auto& noise = file.Sections()[0].limits;
    ASSERT_EQ(noise.size(), 3U);
    EXPECT_EQ(noise[0].relation, Relation::AtMost);
    EXPECT_EQ(noise[0].number.value, 4.5);
    EXPECT_FALSE(noise[0].number.whole);
    EXPECT_EQ(noise[0].wording, "<=4.5");
    EXPECT_EQ(noise[0].line, 3);
    EXPECT_EQ(noise[1].text, "Heron #36");
    EXPECT_EQ(noise[1].line, 5);
    EXPECT_TRUE(noise[2].isOfCount);
    EXPECT_EQ(noise[2].Lowest(), 0.0);
    EXPECT_EQ(noise[2].Highest(), 3.0);

    EXPECT_EQ(file.Sections()[1].family, 6);
    const Limit& vibration = file.Sections()[1].limits[0];
    EXPECT_EQ(vibration.number.value, -1000.0);
    EXPECT_EQ(vibration.figure.Text(), "sweeps[*].curves.x_vibration.rms");
    EXPECT_EQ(vibration.Highest(), -1000.0);
    EXPECT_FALSE(vibration.Lowest());

    EXPECT_EQ(file.Sections()[2].limits[0].relation, Relation::Empty);
    EXPECT_EQ(file.Sections()[2].limits[1].flag, true);
    EXPECT_TRUE(file.Sections()[2].limits[1].isOptional);
    EXPECT_EQ(file.Sections()[2].limits[1].figure.Text(), "corrected");
}

TEST(LimitsFileTest, EveryBeginningIsReadOrRefusedInItsLastLine)
{
    const std::string_view sound = kSound;
    for (std::size_t length = 0; length < sound.size(); ++length) {
        LimitsFile file;
        const auto fault = file.Parse(sound.substr(0, length));
        const auto lines = std::count(sound.begin(), sound.begin() + length, '\n');
        EXPECT_TRUE(!fault || fault->line == lines + 1) << length;
        EXPECT_TRUE(!fault || file.Sections().empty()) << length;
    }
}

struct FaultCase {
    const char* line;
    const char* reason; ///< How it begins.
};

class LimitsFaultTest : public testing::TestWithParam<FaultCase> { };

TEST_P(LimitsFaultTest, IsToldWithItsLine)
{
    LimitsFile file;
    const auto fault = file.Parse(std::string("[noise]\n\n") + GetParam().line + "\nline_length=1");
    ASSERT_TRUE(fault);
    EXPECT_TRUE(fault->Text().starts_with(std::string("Line 3: ") + GetParam().reason))
        << fault->Text();
    EXPECT_EQ(fault->Text().find('\n'), std::string::npos);
    EXPECT_TRUE(file.Sections().empty());
}

INSTANTIATE_TEST_SUITE_P(Faults, LimitsFaultTest,
    testing::Values(FaultCase{"averages.purple <= 4", "There is no figure averages.purple of"},
        FaultCase{
            "planes.red.min <= 4", "There is no figure planes.red.min of files of kind noise"},
        FaultCase{"<= 4", "A limit begins"},
        FaultCase{"averages.red", "Behind the name stands one"},
        FaultCase{"averages.red == 4", "Behind = stands"},
        FaultCase{"averages.red != 4", "Behind the name"},
        FaultCase{"averages.red <=", "Behind <= stands a number"},
        FaultCase{"averages.red <= 4,5", "Behind <= stands a number"},
        FaultCase{"averages.red <= 0x10", "Behind <= stands a number"},
        FaultCase{"averages.red <= nan", "Behind <= stands a number"},
        FaultCase{"averages.red <= inf", "Behind <= stands a number"},
        FaultCase{"averages.red <= 1e999", "Behind <= stands a number"},
        FaultCase{"averages.red <= 4 5", "Nothing may follow"},
        FaultCase{"averages.red between 1", "A range is written"},
        FaultCase{"averages.red between 1 and", "A range is written"},
        FaultCase{"averages.red between 2 and 1", "Between: the first"},
        FaultCase{"averages.red is empty", "averages.red is a number"},
        FaultCase{"averages.red = \"x\"", "averages.red is a number"},
        FaultCase{"averages.red count = 1", "averages.red is a number"},
        FaultCase{"marks.red <= 1", "marks.red is a list"},
        FaultCase{"marks.red count is empty", "A count is a number"},
        FaultCase{"marks.red is full", "Behind \"is\" stands"},
        FaultCase{"scanner_name <= 4", "scanner_name is a text"},
        FaultCase{"scanner_name = \"x", "Behind = stands"},
        FaultCase{"scanner_name = \"H\xE9\"", "The line is not UTF-8"},
        FaultCase{"has_color = 1", "has_color is true or false"},
        FaultCase{"has_color = truely", "Behind = stands"}, FaultCase{"[noise", "A section is"},
        FaultCase{"[]", "There is no kind \"\""},
        FaultCase{"[Noise]", "There is no kind \"Noise\""},
        FaultCase{"[unknown]", "There is no kind"},
        FaultCase{"[noise family=]", "The family of a scanner is a whole number"},
        FaultCase{"[noise family=6x]", "The family of a scanner is a whole number"},
        FaultCase{"[noise camera=6]", "Only family=NUMBER"}));

TEST(LimitsFileTest, LimitsBeforeTheFirstSectionHaveNoKind)
{
    LimitsFile file;
    EXPECT_EQ(file.Parse("\naverages.red <= 4")->Text(), "Line 2: Limits stand behind a [KIND]");
}

TEST(LimitsFileTest, ThereIsAnEndToLimits)
{
    std::string text = "[noise]\n";
    for (std::size_t i = 0; i < LimitsFile::kMostLimits; ++i)
        text += "line_length > 0\n";
    LimitsFile file;
    EXPECT_FALSE(file.Parse(text));
    EXPECT_EQ(file.Parse(text + "line_length > 0")->line, 10'002);

    const TempFolder folder;
    const auto path = folder.Write("limits.txt", std::string(LimitsFile::kMostBytes + 1, '\n'));
    EXPECT_EQ(file.Read(path)->line, 0);
    EXPECT_EQ(file.Read(folder.Path() / "missing.txt")->line, 0);
}

TEST(LimitsFileTest, AFamilysLimitsTakeThePlaceOfGeneralOnes)
{
    LimitsFile file;
    ASSERT_FALSE(file.Parse("[startest family=6]\nsweeps count <= 6\n"
                            "[startest]\nrepeat <= 1\nsweeps count <= 1\nsweep_count > 0\n"
                            "[noise]\nline_length > 0\n[startest]\nrepeat > 0\n"));
    const auto linesOf = [&file](std::optional<int> family) {
        std::vector<int> lines;
        for (const Limit* limit : file.LimitsOf("startest", family))
            lines.push_back(limit->line);
        return lines;
    };
    EXPECT_EQ(linesOf(6), (std::vector<int>{2, 4, 6, 10}));
    EXPECT_EQ(linesOf(5), (std::vector<int>{4, 5, 6, 10}));
    EXPECT_EQ(linesOf(std::nullopt), (std::vector<int>{4, 5, 6, 10}));
    EXPECT_TRUE(file.LimitsOf("mtf", 6).empty());
}

} // namespace
} // namespace vireo
