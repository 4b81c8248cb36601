#include "imagefile/TifEntry.h"

#include <algorithm>
#include <array>

namespace vireo {

std::uint64_t TifBytes::BytesFrom(std::uint64_t offset) const
{
    return m_file.Size() - std::min(m_file.Size(), offset);
}

bool TifBytes::Hold(std::uint64_t offset, std::uint64_t count) const
{
    return offset <= m_file.Size() && count <= m_file.Size() - offset;
}

std::size_t TifBytes::ReadAt(std::uint64_t offset, std::span<std::uint8_t> into) const
{
    return m_file.ReadAt(offset, into);
}

bool TifBytes::ReadAll(std::uint64_t offset, std::span<std::uint8_t> into) const
{
    return ReadAt(offset, into) == into.size();
}

bool TifBytes::ReadEntry(std::uint64_t offset, TifEntry& entry) const
{
    constexpr std::size_t kValueField = 8; // Behind tag, type and count.
    std::array<std::uint8_t, TifEntry::kBytes> bytes;
    if (!ReadAll(offset, bytes))
        return false;
    ByteReader reader(bytes, m_order);
    entry.tag = static_cast<TifTag>(*reader.ReadU16());
    entry.type = static_cast<TifType>(*reader.ReadU16());
    entry.count = *reader.ReadU32();
    entry.value = *reader.ReadU32();
    reader.Seek(kValueField);
    entry.shortValue = *reader.ReadU16();
    entry.fieldOffset = offset + kValueField;
    return true;
}

bool TifBytes::ReadRational(std::uint64_t offset, TifRational& rational) const
{
    std::array<std::uint8_t, 8> bytes;
    if (!ReadAll(offset, bytes))
        return false;
    ByteReader reader(bytes, m_order);
    rational.numerator = *reader.ReadU32();
    rational.denominator = *reader.ReadU32();
    return true;
}

} // namespace vireo
