#pragma once

#include "imagefile/TifTags.h"
#include "platform/ByteReader.h"
#include "platform/PositionalFile.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace vireo {

/// One entry of a page's directory, as it stands in the file.
struct TifEntry {
    static constexpr std::size_t kBytes = 12;

    TifTag tag{};
    TifType type{};
    std::uint32_t count = 0;       ///< Values, not bytes.
    std::uint64_t fieldOffset = 0; ///< Where the value field lies in the file.
    std::uint32_t value = 0;       ///< The value field as a 32-bit number,
    std::uint16_t shortValue = 0;  ///< and its first half as a 16-bit number.

    bool IsOneShort() const { return type == TifType::Short && count == 1; }
    bool IsShortOrLong() const { return type == TifType::Short || type == TifType::Long; }
    bool IsOneRational() const { return type == TifType::Rational && count == 1; }
    std::uint32_t Number() const { return type == TifType::Short ? shortValue : value; }
};

/// A resolution; as it is where a page does not say.
struct TifRational {
    std::uint32_t numerator = 300;
    std::uint32_t denominator = 1;
};

/// The bytes of a TIFF file, read at any offset in its byte order.
class TifBytes {
public:
    /// The file is not owned.
    TifBytes(const PositionalFile& file, ByteOrder order) : m_file(file), m_order(order) { }

    ByteOrder Order() const { return m_order; }
    /// How many bytes there are from an offset to the end; 0 behind the end.
    std::uint64_t BytesFrom(std::uint64_t offset) const;
    bool Hold(std::uint64_t offset, std::uint64_t count) const;

    /// Returns how many bytes there were: fewer only at the end of the file.
    std::size_t ReadAt(std::uint64_t offset, std::span<std::uint8_t> into) const;
    /// Returns whether the buffer was filled, as do the next two.
    bool ReadAll(std::uint64_t offset, std::span<std::uint8_t> into) const;
    bool ReadEntry(std::uint64_t offset, TifEntry& entry) const;
    bool ReadRational(std::uint64_t offset, TifRational& rational) const;

private:
    const PositionalFile& m_file;
    ByteOrder m_order;
};

} // namespace vireo
