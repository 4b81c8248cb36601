#include "platform/FileLines.h"
#include "tests/TempFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vireo {
namespace {

class FileLinesTest : public testing::Test {
protected:
    std::vector<std::string> LinesOf(const std::string& bytes)
    {
        PositionalFile file;
        EXPECT_EQ(file.Open(folder.Write("lines.txt", bytes)), FileStatus::Ok);
        FileLines reader(file);
        std::vector<std::string> lines;
        while (const auto line = reader.Next())
            lines.emplace_back(*line);
        EXPECT_FALSE(reader.Next());
        return lines;
    }

    TempFolder folder;
};

TEST_F(FileLinesTest, EndsLinesAtLineFeeds)
{
    using Lines = std::vector<std::string>;
    EXPECT_EQ(LinesOf(""), Lines());
    EXPECT_EQ(LinesOf("a"), Lines({"a"}));
    EXPECT_EQ(LinesOf("a\n"), Lines({"a"}));
    EXPECT_EQ(LinesOf("\n\nb\r\n\n"), Lines({"", "", "b\r", ""}));
    EXPECT_EQ(LinesOf(std::string("a\0b\nc", 5)), Lines({std::string("a\0b", 3), "c"}));
}

TEST_F(FileLinesTest, GivesLinesThatLieAcrossTheWindow)
{
    std::vector<std::string> lines;
    std::string bytes;
    // Lengths without a pattern, over several windows.
    for (std::size_t i = 0; bytes.size() < 5 * FileLines::kWindowBytes; ++i) {
        lines.push_back(std::string(i * 7919 % 1013, static_cast<char>('a' + i % 26)));
        bytes += lines.back() + '\n';
    }
    EXPECT_EQ(LinesOf(bytes), lines);
}

struct LongLine {
    std::size_t bytes;
    bool endsFile;
};

TEST_F(FileLinesTest, CutsLinesThatAreTooLong)
{
    constexpr std::size_t kMost = FileLines::kMostLineBytes;
    const LongLine rows[] = {{kMost - 1, false}, {kMost, false}, {kMost + 1, false},
        {FileLines::kWindowBytes, false}, {FileLines::kWindowBytes + 1, false},
        {3 * FileLines::kWindowBytes, false}, {3 * FileLines::kWindowBytes, true}};
    for (const LongLine& row : rows) {
        SCOPED_TRACE(row.bytes);
        std::vector<std::string> expected{"before", std::string(std::min(row.bytes, kMost), 'x')};
        if (!row.endsFile)
            expected.insert(expected.end(), {"behind", "last"});
        const std::string rest = row.endsFile ? "" : "\nbehind\nlast";
        EXPECT_EQ(LinesOf("before\n" + std::string(row.bytes, 'x') + rest), expected);
    }
}

} // namespace
} // namespace vireo
