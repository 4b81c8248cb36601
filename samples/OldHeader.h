#pragma once

#include "testfile/TestFileHeader.h"

#include <cstdint>
#include <string>

namespace vireo {

/// The 48-byte binary header of an old file with these fields; what it does not name is 0.
inline std::string OldHeaderBytes(const OldFileHeader& fields)
{
    constexpr std::size_t kTypeAt = 11;
    constexpr std::size_t kColorFlagAt = 17;
    constexpr std::size_t kResolutionAt = 24;
    std::string header(OldFileHeader::kBytes, '\0');
    header[kTypeAt] = static_cast<char>(fields.type);
    header[kColorFlagAt] = static_cast<char>(fields.colorFlag);
    std::size_t at = kResolutionAt;
    for (const std::int32_t value : {fields.resolution * 100, fields.width, fields.height}) {
        for (std::size_t byte = 0; byte < sizeof(value); ++byte)
            header[at++] = static_cast<char>(value >> (8 * byte) & 0xFF);
    }
    return header;
}

} // namespace vireo
