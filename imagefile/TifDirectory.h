#pragma once

#include "imagefile/CTIFOutput.h"
#include "imagefile/TifTags.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace vireo {

/// Collects the entries of one page, in ascending order of their tags, and writes them: first the
/// values that do not fit their entries, then the directory. All numbers are little-endian.
class TifDirectory {
public:
    void AddShort(TifTag tag, std::uint16_t value) { AddShorts(tag, {&value, 1}); }
    void AddShorts(TifTag tag, std::span<const std::uint16_t> values);
    void AddLong(TifTag tag, std::uint32_t value) { AddLongs(tag, {&value, 1}); }
    void AddLongs(TifTag tag, std::span<const std::uint32_t> values);
    void AddRational(TifTag tag, std::uint32_t numerator, std::uint32_t denominator);
    /// The text gets the zero byte at its end that it may lack.
    void AddText(TifTag tag, std::string_view text);
    /// Bytes that lie in the file already.
    void AddWritten(TifTag tag, std::uint32_t offset, std::uint32_t bytes);

    /// The offset of the directory in the file. It and all values begin at even offsets.
    std::uint32_t Write(CTIFOutput& output);

private:
    struct Entry {
        TifTag tag;
        TifType type;
        std::uint32_t count;
        std::vector<std::uint8_t> value; ///< Empty: it lies in the file already.
        std::uint32_t offset = 0;
    };

    void Add(TifTag tag, TifType type, std::uint32_t count, std::vector<std::uint8_t> value);

    std::vector<Entry> m_entries;
};

/// Numbers as they stand in a little-endian file.
void AppendShort(std::vector<std::uint8_t>& bytes, std::uint16_t value);
void AppendLong(std::vector<std::uint8_t>& bytes, std::uint32_t value);

} // namespace vireo
