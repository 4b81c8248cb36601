#pragma once

#include <cstdint>
#include <string_view>

namespace vireo {

/// What reading or writing an image file came to: 0x8447, the image files' family, above the
/// number.
enum class [[nodiscard]] ImageResult : std::uint32_t{
    Ok = 0,
    InvalidTiffArguments = 0x84470014,
    TifOutOfMemory = 0x84470015,
    CantOpenTif = 0x84470016,
    CantWriteTif = 0x84470017,
    CantSeekTif = 0x84470018,
    CantOpenIcc = 0x84470019,
    CantReadTif = 0x8447001a,
    CantWriteIcc = 0x8447001b,
    TifFormatError = 0x8447001c,
    TifReadTooLong = 0x8447001d,
    UnsupportedTifFormat = 0x8447001e,
    InvalidHuffmanCoderArguments = 0x84470028,
};

/// The text of a result, such as "Tif format error"; empty for Ok.
std::string_view Describe(ImageResult result);

} // namespace vireo
