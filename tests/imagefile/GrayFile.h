#pragma once

#include "tests/imagefile/ReadTif.h"
#include "tests/imagefile/TifFile.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>

namespace vireo {

// Short names for tables.
using F = TifFile;
using E = TifEntry;
inline constexpr std::uint16_t kShort = E::kShort, kLong = E::kLong, kRational = E::kRational;
inline constexpr ImageResult kOk = ImageResult::Ok;
inline constexpr ImageResult kCantRead = ImageResult::CantReadTif;
inline constexpr ImageResult kFormat = ImageResult::TifFormatError;
inline constexpr ImageResult kUnsupported = ImageResult::UnsupportedTifFormat;

using TifEntries = std::map<std::uint16_t, TifEntry>;

/// Takes an entry away.
const TifEntry kAbsent{0, {}};

/// A page of 2 x 2 gray pixels, with changed entries.
inline std::string GrayFile(const TifEntries& changes = {})
{
    TifFile file;
    TifEntries entries = TifFile::Page(2, 2, 8, TifCompression::kNone);
    entries[TifFile::kStripOffsets] = {TifEntry::kLong, {file.Strip("abcd")}};
    entries[TifFile::kStripByteCounts] = {TifEntry::kLong, {4}};
    for (const auto& [tag, entry] : changes) {
        entries[tag] = entry;
        if (entry.type == kAbsent.type)
            entries.erase(tag);
    }
    file.AddPage(entries);
    return file.Bytes();
}

/// A reader of a file, and the sink that it reads into.
struct OpenedTif {
    explicit OpenedTif(const std::filesystem::path& file, const std::filesystem::path& profile = {},
        std::uint32_t page = 1)
    {
        reader.SetReceiver(sink);
        reader.SetPage(page);
        Again(file, profile);
    }
    void Again(const std::filesystem::path& file, const std::filesystem::path& profile = {})
    {
        reader.SetFile(file);
        result = reader.Open(rows, profile);
    }

    RowSink sink;
    CTIFReader reader;
    std::uint32_t rows = 0;
    ImageResult result = ImageResult::Ok;
};

} // namespace vireo
