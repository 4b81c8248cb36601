#include "tests/TempFolder.h"
#include "tests/viewers/stitch/StitchFiles.h"
#include "viewers/controls/PictureRows.h"
#include "viewers/stitch/StitchData.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace vireo {
namespace {

std::string Pixels(const StitchData& data)
{
    const PictureRows& rows = *data.Picture();
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(rows.Width() * rows.Height()));
    rows.Read({0, 0, rows.Width(), rows.Height()}, bytes);
    std::string text;
    for (const std::uint8_t byte : bytes)
        text += byte == 0 ? '#' : byte == 255 ? '.' : static_cast<char>(byte);
    return text;
}

struct RunLengthCase {
    const char* name;
    std::string codes;
    const char* pixels; ///< Of 8 x 2: '#' black, '.' white.
};

TEST(StitchData, DrawsRunLengthCodes)
{
    using namespace std::string_literals;
    const RunLengthCase rows[] = {
        {"white and black", "\x83\x05\0\x02\0"s,
            "...#####"
            "##......"},
        {"80 draws nothing", "\x80\x01\x80\x81\x01\0"s,
            "#.#....."
            "........"},
        {"a run past the width", "\x7f\0\xff\x01"s,
            "########"
            "........"},
        {"rows past the height", "\x01\0\x01\0\x08\0\x08"s,
            "#......."
            "#......."},
        {"no codes", "",
            "........"
            "........"},
        {"no last row end", "\0\x82\x03"s,
            "........"
            "..###..."},
    };
    const TempFolder folder;
    for (const RunLengthCase& row : rows) {
        StitchData data;
        ASSERT_EQ(
            data.Read(folder.Write("a.con", OldStitchFile(kRunLengthStitchType, 8, 2, row.codes))),
            StitchResult::Ok);
        EXPECT_TRUE(data.m_bRunLength);
        EXPECT_EQ(data.m_iPhysicalResolution, 600) << "hundredths, cut off";
        EXPECT_EQ(Pixels(data), row.pixels) << row.name;
    }
}

TEST(StitchData, ShowsGrayPixelsAndWhiteWhereTheyEnd)
{
    const TempFolder folder;
    StitchData data;
    ASSERT_EQ(data.Read(folder.Write("a.con", OldStitchFile(kGrayStitchType, 4, 2, "abcdef"))),
        StitchResult::Ok);
    EXPECT_FALSE(data.m_bRunLength);
    EXPECT_EQ(Pixels(data), "abcdef..");
    EXPECT_TRUE(data.Complaints().empty()) << "only the text form announces a length";
}

TEST(StitchData, TellsWhatATextHeaderLacks)
{
    const TempFolder folder;
    StitchData data;
    ASSERT_EQ(data.Read(folder.Write("a.con", "[Stitch Test]\nDataPointer=0000000034\nxabcd")),
        StitchResult::Ok);
    const std::vector<std::string> all{
        "m_iMemoryDC_Height", "m_iMemoryDC_Width", "m_iPhysicalResolution"};
    EXPECT_EQ(data.Missing(), all);
    EXPECT_EQ(data.Complaints().size(), all.size() + 1) << "and the length does not fit";
}

TEST(StitchData, HoldsHostileSizes)
{
    const TempFolder folder;
    for (const std::uint32_t size : {0U, 0xffffffffU, 0x7fffffffU, 0x80000000U}) {
        for (const char type : {kRunLengthStitchType, kGrayStitchType}) {
            StitchData data;
            ASSERT_EQ(data.Read(folder.Write("a.con", OldStitchFile(type, size, size, "\x05"))),
                StitchResult::Ok);
            EXPECT_GE(data.Picture()->Width(), 0);
            EXPECT_GE(data.Picture()->Height(), 0);
            EXPECT_LE(data.Picture()->CoveredRows(), 1) << size;
        }
    }
}

TEST(StitchData, RefusesWhatIsTooShort)
{
    const TempFolder folder;
    const std::string whole = OldStitchFile(kGrayStitchType, 4, 2, "");
    for (std::size_t length = 0; length < whole.size(); ++length) {
        StitchData data;
        EXPECT_NE(data.Read(folder.Write("a.con", whole.substr(0, length))), StitchResult::Ok);
        EXPECT_EQ(data.Picture(), nullptr);
    }
}

} // namespace
} // namespace vireo
