#include "imagefile/ColorDepth.h"
#include "imagefile/ImageResult.h"

#include <gtest/gtest.h>

namespace vireo {

TEST(ImageResult, EveryCodeHasItsText)
{
    EXPECT_EQ("", Describe(ImageResult::Ok));
    EXPECT_EQ("Tif format error", Describe(static_cast<ImageResult>(0x8447001c)));
    EXPECT_EQ("Invalid huffman coder-arguments", Describe(static_cast<ImageResult>(0x84470028)));
}

TEST(ColorDepth, RowsAreWholeBytesAndDoNotWrap)
{
    EXPECT_EQ(2u, BytesPerRow(ColorDepth::Bilevel, 9));
    EXPECT_EQ(18u, BytesPerRow(ColorDepth::Rgb16, 3));
    EXPECT_EQ(std::uint64_t{6} * 0xffffffff, BytesPerRow(ColorDepth::Rgb16, 0xffffffff));
}

} // namespace vireo
