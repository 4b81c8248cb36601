#pragma once

#include <cstdint>

namespace vireo {

/// The entries of a page that are read and written, by their numbers in the file.
enum class TifTag : std::uint16_t {
    ImageWidth = 256,
    ImageLength = 257,
    BitsPerSample = 258,
    Compression = 259,
    Photometric = 262,
    ImageDescription = 270,
    StripOffsets = 273,
    SamplesPerPixel = 277, ///< Written only: the bits per sample tell it too.
    RowsPerStrip = 278,
    StripByteCounts = 279,
    XResolution = 282,
    YResolution = 283,
    PlanarConfiguration = 284,
    ResolutionUnit = 296,
    Predictor = 317,
    ColorMap = 320,
    IccProfile = 34675,
};

/// Types of an entry's values.
enum class TifType : std::uint16_t { Ascii = 2, Short = 3, Long = 4, Rational = 5, Undefined = 7 };

} // namespace vireo
