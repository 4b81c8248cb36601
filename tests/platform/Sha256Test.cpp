#include "platform/Sha256.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace vireo {

namespace {

std::span<const std::uint8_t> BytesOf(std::string_view text)
{
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

} // namespace

// The values are FIPS 180-4's own examples.
TEST(Sha256, GivesThePublishedDigests)
{
    EXPECT_EQ(
        "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855", Sha256().HexDigest());

    Sha256 shortText;
    shortText.Add(BytesOf("abc"));
    EXPECT_EQ(
        "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad", shortText.HexDigest());
}

TEST(Sha256, PiecesMakeTheSameDigestAsTheWhole)
{
    const std::string million(1'000'000, 'a');
    Sha256 digest;
    for (std::size_t at = 0; at < million.size(); at += 4321)
        digest.Add(BytesOf(std::string_view(million).substr(at, 4321)));
    EXPECT_EQ(
        "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0", digest.HexDigest());
}

} // namespace vireo
