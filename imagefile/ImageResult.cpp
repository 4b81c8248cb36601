#include "imagefile/ImageResult.h"

namespace vireo {

std::string_view Describe(ImageResult result)
{
    switch (result) {
    case ImageResult::Ok:
        return "";
    case ImageResult::InvalidTiffArguments:
        return "Invalid tiff-arguments";
    case ImageResult::TifOutOfMemory:
        return "tif out of memory";
    case ImageResult::CantOpenTif:
        return "Can't open tif-file";
    case ImageResult::CantWriteTif:
        return "Can't write tif-file";
    case ImageResult::CantSeekTif:
        return "Can't seek tif-file";
    case ImageResult::CantOpenIcc:
        return "Can't open icc-file";
    case ImageResult::CantReadTif:
        return "Can't read tif-file";
    case ImageResult::CantWriteIcc:
        return "Can't write icc-file";
    case ImageResult::TifFormatError:
        return "Tif format error";
    case ImageResult::TifReadTooLong:
        return "Tif read too long";
    case ImageResult::UnsupportedTifFormat:
        return "Unsupported tif format";
    case ImageResult::InvalidHuffmanCoderArguments:
        return "Invalid huffman coder-arguments";
    }
    return "";
}

} // namespace vireo
