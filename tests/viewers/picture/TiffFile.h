#pragma once

#include "imagefile/ColorDepth.h"
#include "platform/ByteReader.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace vireo {

/// One page of a TIFF file, put together by hand: its pixels as they lie in the file.
struct TiffPageBytes {
    std::uint32_t width = 4;
    std::uint32_t height = 3;
    ColorDepth depth = ColorDepth::Gray8;
    std::string pixels;            ///< All rows, one behind the other, in the file's byte order.
    std::uint16_t compression = 1; ///< 1, or 32773: the rows become PackBits literals.
    std::uint16_t photometric = 1;
    std::uint16_t predictor = 1;
    std::uint32_t rowsPerStrip = 1'000'000;
    std::uint32_t dotsPerInch = 300;
    std::string description;
    std::vector<std::uint16_t> colorMap; ///< 768 values, or none.
};

/// Puts pages together as a file of a byte order.
class TiffFile {
public:
    explicit TiffFile(ByteOrder order = ByteOrder::Little) : m_order(order)
    {
        m_bytes = order == ByteOrder::Little ? "II" : "MM";
        Put16(m_bytes, 42);
        Put32(m_bytes, 0);
    }

    /// The entries come before the pixels, so that a file that is cut off still tells of its page.
    TiffFile& Add(const TiffPageBytes& page)
    {
        const std::size_t rowBytes = BytesPerRow(page.depth, page.width);
        std::string pixels;
        std::vector<std::uint32_t> offsets;
        for (std::uint32_t row = 0; row < page.height; ++row) {
            if (row * rowBytes >= page.pixels.size()) {
                offsets.push_back(0); // With a strip a row.
                continue;
            }
            if (row % page.rowsPerStrip == 0)
                offsets.push_back(static_cast<std::uint32_t>(pixels.size()));
            pixels += CodedRow(page.pixels.substr(row * rowBytes, rowBytes), page.compression);
        }
        TiffFile measured = *this;
        measured.AddEntries(page, offsets);
        for (std::uint32_t& offset : offsets)
            offset += static_cast<std::uint32_t>(measured.m_bytes.size());
        AddEntries(page, offsets);
        m_bytes += pixels;
        return *this;
    }

    const std::string& Bytes() const { return m_bytes; }
    /// Where the link to the page behind the last one lies.
    std::size_t LinkOffset() const { return m_link; }

private:
    void Put(std::string& to, std::uint32_t value, int bytes) const
    {
        for (int i = 0; i < bytes; ++i) {
            const int shift = 8 * (m_order == ByteOrder::Little ? i : bytes - 1 - i);
            to += static_cast<char>(value >> shift & 0xFF);
        }
    }
    void Put16(std::string& to, std::uint32_t value) const { Put(to, value, 2); }
    void Put32(std::string& to, std::uint32_t value) const { Put(to, value, 4); }

    static std::string CodedRow(const std::string& row, std::uint16_t compression)
    {
        if (compression == 1)
            return row;
        std::string coded;
        for (std::size_t done = 0; done < row.size(); done += 128) {
            const std::string part = row.substr(done, 128);
            coded += static_cast<char>(part.size() - 1);
            coded += part;
        }
        return coded;
    }

    void AddEntry(std::uint16_t tag, std::uint16_t type, const std::string& values, int valueBytes)
    {
        Put16(m_entries, tag);
        Put16(m_entries, type);
        Put32(m_entries, static_cast<std::uint32_t>(values.size()) / valueBytes);
        if (values.size() <= 4) {
            m_entries += values + std::string(4 - values.size(), '\0');
        } else {
            Put32(m_entries, static_cast<std::uint32_t>(m_bytes.size()));
            m_bytes += values;
        }
        ++m_entryCount;
    }
    void AddShort(std::uint16_t tag, std::vector<std::uint16_t> values)
    {
        std::string bytes;
        for (const std::uint16_t value : values)
            Put16(bytes, value);
        AddEntry(tag, 3, bytes, 2);
    }
    void AddLong(std::uint16_t tag, const std::vector<std::uint32_t>& values)
    {
        std::string bytes;
        for (const std::uint32_t value : values)
            Put32(bytes, value);
        AddEntry(tag, 4, bytes, 4);
    }

    void AddEntries(const TiffPageBytes& page, const std::vector<std::uint32_t>& offsets)
    {
        m_entries.clear();
        m_entryCount = 0;
        const unsigned bits = BitsPerPixel(page.depth);
        AddLong(256, {page.width});
        AddLong(257, {page.height});
        if (bits % 24 == 0)
            AddShort(258, std::vector<std::uint16_t>(3, static_cast<std::uint16_t>(bits / 3)));
        else
            AddShort(258, {static_cast<std::uint16_t>(bits)});
        AddShort(259, {page.compression});
        AddShort(262, {page.photometric});
        if (!page.description.empty())
            AddEntry(270, 2, page.description + '\0', 1);
        AddLong(273, offsets);
        AddLong(278, {page.rowsPerStrip});
        std::string resolution;
        Put32(resolution, page.dotsPerInch);
        Put32(resolution, 1);
        AddEntry(282, 5, resolution, 8);
        if (page.predictor != 1)
            AddShort(317, {page.predictor});
        if (!page.colorMap.empty())
            AddShort(320, page.colorMap);
        std::string link;
        Put32(link, static_cast<std::uint32_t>(m_bytes.size()));
        m_bytes.replace(m_link, 4, link);
        Put16(m_bytes, static_cast<std::uint32_t>(m_entryCount));
        m_bytes += m_entries;
        m_link = m_bytes.size();
        Put32(m_bytes, 0);
    }

    ByteOrder m_order;
    std::string m_bytes;
    std::string m_entries;
    int m_entryCount = 0;
    std::size_t m_link = 4;
};

/// Bytes that repeat only after a long while.
inline std::string VariedBytes(std::size_t count, std::uint32_t seed = 1)
{
    std::string bytes(count, '\0');
    for (char& byte : bytes) {
        seed = seed * 1664525U + 1013904223U;
        byte = static_cast<char>(seed >> 24);
    }
    return bytes;
}

} // namespace vireo
