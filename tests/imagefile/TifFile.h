#pragma once

#include "platform/ByteReader.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace vireo {

/// One entry of a page. Values are put where they belong: into the entry or behind it.
struct TifEntry {
    static constexpr std::uint16_t kByte = 1, kAscii = 2, kShort = 3, kLong = 4, kRational = 5,
                                   kUndefined = 7;
    std::uint16_t type = kShort;
    std::vector<std::uint32_t> values; ///< Of a rational two each.
    std::uint32_t claimedCount = 0;    ///< When not 0, said instead of the number of values.
};

/// Puts a TIFF file together, byte by byte, with whatever entries a test wants.
class TifFile {
public:
    static constexpr std::uint16_t kWidth = 256, kHeight = 257, kBits = 258, kCompression = 259,
                                   kPhotometric = 262, kDescription = 270, kStripOffsets = 273,
                                   kRowsPerStrip = 278, kStripByteCounts = 279, kXResolution = 282,
                                   kYResolution = 283, kPlanar = 284, kResolutionUnit = 296,
                                   kPredictor = 317, kColorMap = 320, kIccProfile = 34675;

    explicit TifFile(ByteOrder order = ByteOrder::Little) : m_order(order)
    {
        m_bytes = order == ByteOrder::Little ? "II" : "MM";
        PutShort(42);
        PutLong(0);
    }

    /// The usual entries of a page of one strip.
    static std::map<std::uint16_t, TifEntry> Page(
        std::uint32_t width, std::uint32_t height, std::uint32_t bits, std::uint32_t compression)
    {
        std::map<std::uint16_t, TifEntry> entries;
        entries[kWidth] = {TifEntry::kLong, {width}};
        entries[kHeight] = {TifEntry::kLong, {height}};
        entries[kBits] = {TifEntry::kShort, {bits}};
        entries[kCompression] = {TifEntry::kShort, {compression}};
        entries[kPhotometric] = {TifEntry::kShort, {1}};
        entries[kRowsPerStrip] = {TifEntry::kLong, {height}};
        return entries;
    }

    /// Appends a strip's bytes and returns their offset.
    std::uint32_t Strip(const std::string& bytes)
    {
        const auto offset = static_cast<std::uint32_t>(m_bytes.size());
        m_bytes += bytes;
        return offset;
    }

    /// Appends a page, to which the page before points, with entries in ascending order.
    void AddPage(const std::map<std::uint16_t, TifEntry>& entries)
    {
        std::string behind;
        const std::size_t page = m_bytes.size();
        const std::size_t behindOffset = page + 2 + 12 * entries.size() + 4;
        PatchLong(m_link, static_cast<std::uint32_t>(page));
        PutShort(static_cast<std::uint32_t>(entries.size()));
        for (const auto& [tag, entry] : entries) {
            const std::string values = ValueBytes(entry);
            const std::size_t perCount = entry.type == TifEntry::kRational ? 2 : 1;
            PutShort(tag);
            PutShort(entry.type);
            PutLong(entry.claimedCount != 0
                    ? entry.claimedCount
                    : static_cast<std::uint32_t>(entry.values.size() / perCount));
            if (values.size() <= 4) {
                m_bytes += values + std::string(4 - values.size(), '\0');
            } else {
                PutLong(static_cast<std::uint32_t>(behindOffset + behind.size()));
                behind += values;
            }
        }
        m_link = m_bytes.size();
        PutLong(0);
        m_bytes += behind;
    }

    /// Makes the last page point to an offset.
    void LinkTo(std::uint32_t offset) { PatchLong(m_link, offset); }

    const std::string& Bytes() const { return m_bytes; }

private:
    std::string Number(std::uint32_t value, std::size_t size) const
    {
        std::string bytes;
        for (std::size_t i = 0; i < size; ++i) {
            const std::size_t place = m_order == ByteOrder::Little ? i : size - 1 - i;
            bytes += static_cast<char>(value >> (8 * place));
        }
        return bytes;
    }
    std::string ValueBytes(const TifEntry& entry) const
    {
        const bool isLong = entry.type == TifEntry::kLong || entry.type == TifEntry::kRational;
        const std::size_t size = entry.type == TifEntry::kShort ? 2 : isLong ? 4 : 1;
        std::string bytes;
        for (const std::uint32_t value : entry.values)
            bytes += Number(value, size);
        return bytes;
    }
    void PutShort(std::uint32_t value) { m_bytes += Number(value, 2); }
    void PutLong(std::uint32_t value) { m_bytes += Number(value, 4); }
    void PatchLong(std::size_t at, std::uint32_t value)
    {
        m_bytes.replace(at, 4, Number(value, 4));
    }

    ByteOrder m_order;
    std::string m_bytes;
    std::size_t m_link = 4; ///< Where the offset of the next page stands.
};

} // namespace vireo
