#pragma once

#include "imagefile/ColorDepth.h"
#include "tests/imagefile/TifFile.h"

#include <cstdint>
#include <map>
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
    std::vector<std::size_t> lostStrips; ///< 0-based; the file does not reach to where they are.
    std::uint32_t dotsPerInch = 300;
    std::string description;
    std::vector<std::uint16_t> colorMap; ///< 768 values, or none.
};

/// Puts pages together as a file of a byte order.
class TiffFile : public TifFile {
public:
    using TifFile::TifFile;

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
        measured.AddPage(EntriesOf(page, offsets));
        for (std::uint32_t& offset : offsets)
            offset += static_cast<std::uint32_t>(measured.Bytes().size());
        for (const std::size_t strip : page.lostStrips)
            offsets.at(strip) = 0x7FFFFFFF;
        AddPage(EntriesOf(page, offsets));
        Strip(pixels);
        return *this;
    }

private:
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

    static std::map<std::uint16_t, TifEntry> EntriesOf(
        const TiffPageBytes& page, const std::vector<std::uint32_t>& offsets)
    {
        const unsigned bits = BitsPerPixel(page.depth);
        auto entries = Page(page.width, page.height, bits, page.compression);
        if (bits % 24 == 0)
            entries[kBits].values.assign(3, bits / 3);
        entries[kPhotometric].values = {page.photometric};
        entries[kRowsPerStrip].values = {page.rowsPerStrip};
        entries[kStripOffsets] = {TifEntry::kLong, offsets};
        entries[kXResolution] = {TifEntry::kRational, {page.dotsPerInch, 1}};
        if (!page.description.empty()) {
            entries[kDescription] = {
                TifEntry::kAscii, {page.description.begin(), page.description.end()}};
            entries[kDescription].values.push_back(0);
        }
        if (page.predictor != 1)
            entries[kPredictor] = {TifEntry::kShort, {page.predictor}};
        if (!page.colorMap.empty())
            entries[kColorMap] = {TifEntry::kShort, {page.colorMap.begin(), page.colorMap.end()}};
        return entries;
    }
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
