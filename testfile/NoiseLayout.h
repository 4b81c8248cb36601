#pragma once

#include "testfile/TestFileHeader.h"

#include <cstdint>
#include <optional>
#include <string>

namespace vireo {

/// Where a noise test file, or any old binary file of a line, has its planes: one behind the other,
/// red, green, blue and, in some colour files, gray; a gray file has one.
struct NoiseLayout {
    static constexpr std::int64_t kColourPlanes = 3;
    /// An old file ends with the scanner's name in so many bytes.
    static constexpr std::uint64_t kTrailerBytes = 44;

    bool hasColour = false;
    bool hasGray = false;         ///< There is a fourth plane; never so in a gray file.
    std::uint64_t offset = 0;     ///< Of the first plane.
    std::int64_t planeBytes = 0;  ///< From the start of one plane to that of the next.
    std::int64_t lineLength = 0;  ///< As announced, unchecked: it may be negative.
    std::uint64_t dataLength = 0; ///< Bytes from the offset to the end of the planes.

    /// The text form: the length as "Length" says, else "Width", else as the data are long.
    static NoiseLayout Of(const TestFileHeader& header, std::uint64_t fileSize);
    /// The binary form. The planes of a colour file share what lies between header and trailer.
    static NoiseLayout Of(const OldFileHeader& header, std::uint64_t fileSize);

    std::int64_t PlaneCount() const;
    /// Where the trailer of the binary form begins.
    std::uint64_t TrailerOffset() const
    {
        return offset + static_cast<std::uint64_t>((hasColour ? kColourPlanes : 1) * planeBytes);
    }
};

/// The line length that a text header announces: "Length", else "Width".
std::optional<std::int64_t> AnnouncedLineLength(const TestFileHeader& header);

/// The scanner's name in the trailer of an old file: up to 43 characters, without line ends.
std::string ReadTrailerName(const PositionalFile& file, std::uint64_t offset);

} // namespace vireo
