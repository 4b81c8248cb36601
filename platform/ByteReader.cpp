#include "platform/ByteReader.h"

namespace vireo {

bool ByteReader::Seek(std::size_t position)
{
    if (position > m_bytes.size())
        return false;
    m_position = position;
    return true;
}

bool ByteReader::Skip(std::size_t count)
{
    if (count > Remaining())
        return false;
    m_position += count;
    return true;
}

template <typename Number>
std::optional<Number> ByteReader::ReadNumber()
{
    const auto bytes = ReadBytes(sizeof(Number));
    if (!bytes)
        return std::nullopt;
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < sizeof(Number); ++i) {
        const std::size_t shift = m_order == ByteOrder::Little ? i : sizeof(Number) - 1 - i;
        value |= std::uint64_t{(*bytes)[i]} << (8 * shift);
    }
    return static_cast<Number>(value);
}

std::optional<std::uint8_t> ByteReader::ReadU8()
{
    return ReadNumber<std::uint8_t>();
}

std::optional<std::uint16_t> ByteReader::ReadU16()
{
    return ReadNumber<std::uint16_t>();
}

std::optional<std::uint32_t> ByteReader::ReadU32()
{
    return ReadNumber<std::uint32_t>();
}

std::optional<std::uint64_t> ByteReader::ReadU64()
{
    return ReadNumber<std::uint64_t>();
}

std::optional<std::int32_t> ByteReader::ReadI32()
{
    return ReadNumber<std::int32_t>();
}

std::optional<std::span<const std::uint8_t>> ByteReader::ReadBytes(std::size_t count)
{
    if (count > Remaining())
        return std::nullopt;
    const auto bytes = m_bytes.subspan(m_position, count);
    m_position += count;
    return bytes;
}

} // namespace vireo
