#include "imagefile/TifStream.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace vireo {
namespace {

constexpr std::size_t kSourceBytes = 300'000;

std::uint8_t ByteAt(std::uint64_t offset)
{
    return static_cast<std::uint8_t>(offset * 7 + offset / 251);
}

std::size_t ReadSource(std::uint64_t offset, std::span<std::uint8_t> into)
{
    std::size_t count = 0;
    for (; count < into.size() && offset + count < kSourceBytes; ++count)
        into[count] = ByteAt(offset + count);
    return count;
}

/// Short reads go through the window, long ones straight into buffers that lie well; mixed in any
/// order, and with steps back, the bytes are the same.
TEST(TifStream, ReadsTheSameIntoBuffersThatLieAnywhere)
{
    constexpr std::size_t kPage = 4096;
    const std::size_t counts[] = {10, 9000, 20'000, 1, 140'000, 8192, 8191, 50'000, 100'000};
    for (std::size_t shift = 0; shift < kPage; shift += 509) {
        TifStream stream(ReadSource);
        stream.Seek(3);
        std::uint64_t at = 3;
        std::vector<std::uint8_t> buffer(200'000);
        for (const std::size_t count : counts) {
            const std::span into = std::span(buffer).subspan(shift, count);
            const std::size_t read = stream.Read(into);
            ASSERT_EQ(read, std::min<std::size_t>(count, kSourceBytes - at)) << shift;
            for (std::size_t i = 0; i < read; ++i)
                ASSERT_EQ(into[i], ByteAt(at + i)) << shift << ", " << at + i;
            at += read;
            if (count == 8191) {
                at -= 100;
                stream.Seek(at);
            }
        }
        std::uint8_t none = 0;
        EXPECT_EQ(stream.Read({&none, 1}), 0U);
        EXPECT_FALSE(stream.Refill());
    }
}

} // namespace
} // namespace vireo
