#include "testfile/TestFileHeader.h"
#include "tests/TempFolder.h"

#include <gtest/gtest.h>

namespace vireo {

namespace {

/// Type 18, colour flag 1, mark 13900, 300 dpi (as 30099), 4000 pixels, -2 lines.
const unsigned char kBytes[48] = {0xFF, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 18, 0, 0, 0, 0, 0, 1, 0, 0,
    0x4C, 0x36, 0, 0, 0x93, 0x75, 0, 0, 0xA0, 0x0F, 0, 0, 0xFE, 0xFF, 0xFF, 0xFF};

TEST(OldFileHeader, Fields)
{
    OldFileHeader header;
    ASSERT_TRUE(header.Parse(kBytes));
    EXPECT_EQ(header.type, 18);
    EXPECT_EQ(header.colorFlag, 1);
    EXPECT_EQ(header.formatMark, 13900);
    EXPECT_EQ(header.resolution, 300) << "truncated";
    EXPECT_EQ(header.width, 4000);
    EXPECT_EQ(header.height, -2);
}

TEST(OldFileHeader, NegativeResolutionTruncatesTowardsZero)
{
    unsigned char bytes[48] = {};
    std::fill_n(bytes + 24, 4, static_cast<unsigned char>(0xFF)); // -1
    OldFileHeader header;
    ASSERT_TRUE(header.Parse(bytes));
    EXPECT_EQ(header.resolution, 0);
}

TEST(OldFileHeader, EveryShorterFileIsRefusedAndLeavesZeros)
{
    const TempFolder folder;
    const std::string_view whole(reinterpret_cast<const char*>(kBytes), sizeof kBytes);
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        PositionalFile file;
        ASSERT_EQ(file.Open(folder.Write("old.con", whole.substr(0, length))), FileStatus::Ok);
        OldFileHeader header;
        header.type = 99;
        EXPECT_EQ(header.Load(file), length == 48) << length;
        EXPECT_EQ(header.type, length == 48 ? 18 : 0) << length;
    }
}

} // namespace

} // namespace vireo
