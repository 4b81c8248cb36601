#include "platform/ByteReader.h"
#include "testfile/TestFileHeader.h"

namespace vireo {

namespace {

constexpr std::size_t kTypeAt = 11;
constexpr std::size_t kColorFlagAt = 17;
constexpr std::size_t kFormatMarkAt = 20;

} // namespace

bool OldFileHeader::Parse(std::span<const std::uint8_t> bytes)
{
    *this = {};
    if (bytes.size() < kBytes)
        return false;
    type = bytes[kTypeAt];
    colorFlag = bytes[kColorFlagAt];

    ByteReader reader(bytes.subspan(kFormatMarkAt, 4 * sizeof(std::int32_t)));
    formatMark = reader.ReadI32().value_or(0);
    resolution = reader.ReadI32().value_or(0) / 100; // Kept as dots per inch times 100.
    width = reader.ReadI32().value_or(0);
    height = reader.ReadI32().value_or(0);
    return true;
}

bool OldFileHeader::Load(const PositionalFile& file)
{
    std::array<std::uint8_t, kBytes> bytes{};
    const std::size_t count = file.ReadAt(0, bytes);
    return Parse(std::span(bytes).first(count));
}

} // namespace vireo
