#include "viewers/picture/PictureForms.h"

#include "imagefile/TifPage.h"

namespace vireo {

std::vector<PictureForm> PictureForms(ColorDepth depth)
{
    constexpr std::uint16_t kNoPredictor = 1;
    std::vector<PictureForm> forms{{"Uncompressed", TifCompression::kNone, kNoPredictor},
        {"PackBits", TifCompression::kPackBits, kNoPredictor},
        {"LZW", TifCompression::kLzw, kNoPredictor}};
    // Differences of palette indexes mean nothing.
    if (depth == ColorDepth::Bilevel) {
        forms.push_back({"CCITT modified Huffman", TifCompression::kModifiedHuffman, kNoPredictor});
        forms.push_back({"CCITT Group 4", TifCompression::kGroup4, kNoPredictor});
    } else if (depth != ColorDepth::Palette8) {
        forms.push_back({"LZW with horizontal differencing", TifCompression::kLzw,
            TifPage::kHorizontalDifferencing});
    }
    return forms;
}

} // namespace vireo
