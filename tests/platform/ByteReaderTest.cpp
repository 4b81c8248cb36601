#include "platform/ByteReader.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace vireo {
namespace {

constexpr std::array<std::uint8_t, 19> kBytes = {0x01, 0x02, 0x03, 0x84, 0x85, 0x86, 0x87, 0x11,
    0x12, 0x13, 0x14, 0x15, 0x16, 0x17, 0x98, 0xFE, 0xFF, 0xFF, 0xFF};

TEST(ByteReader, LittleEndian)
{
    ByteReader reader(kBytes);
    EXPECT_EQ(reader.ReadU8(), 0x01);
    EXPECT_EQ(reader.ReadU16(), 0x0302);
    EXPECT_EQ(reader.ReadU32(), 0x87868584U);
    EXPECT_EQ(reader.ReadU64(), 0x9817161514131211U);
    EXPECT_EQ(reader.ReadI32(), -2);
    EXPECT_EQ(reader.Remaining(), 0U);
}

TEST(ByteReader, BigEndian)
{
    ByteReader reader(kBytes, ByteOrder::Big);
    EXPECT_EQ(reader.ReadU8(), 0x01);
    EXPECT_EQ(reader.ReadU16(), 0x0203);
    EXPECT_EQ(reader.ReadU32(), 0x84858687U);
    EXPECT_EQ(reader.ReadU64(), 0x1112131415161798U);
    EXPECT_EQ(reader.ReadI32(), -0x01000001);
}

TEST(ByteReader, EveryPrefixGivesWholeNumbersOrNothing)
{
    for (std::size_t length = 0; length <= kBytes.size(); ++length) {
        ByteReader reader({kBytes.data(), length});
        EXPECT_EQ(reader.ReadU8().has_value(), length >= 1);
        EXPECT_EQ(reader.ReadU16().has_value(), length >= 3);
        EXPECT_EQ(reader.ReadU32().has_value(), length >= 7);
        const std::size_t before = reader.Position();
        EXPECT_EQ(reader.ReadU64().has_value(), length >= 15) << length;
        // A failed read stays where it is.
        EXPECT_EQ(reader.Position(), before + (length >= 15 ? 8U : 0U)) << length;
    }
}

TEST(ByteReader, HugeCountsDoNotWrapAround)
{
    constexpr std::size_t kHuge = std::numeric_limits<std::size_t>::max();
    ByteReader reader(kBytes);
    ASSERT_TRUE(reader.Skip(5));
    EXPECT_FALSE(reader.Skip(kHuge));
    EXPECT_FALSE(reader.Skip(kHuge - 4));
    EXPECT_FALSE(reader.ReadBytes(kHuge - 4));
    EXPECT_FALSE(reader.Seek(kBytes.size() + 1));
    EXPECT_EQ(reader.Position(), 5U);
    ASSERT_TRUE(reader.Seek(kBytes.size()));
    EXPECT_FALSE(reader.ReadU8());
    EXPECT_EQ(reader.ReadBytes(0)->size(), 0U);
}

} // namespace
} // namespace vireo
