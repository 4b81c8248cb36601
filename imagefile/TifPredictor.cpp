#include "imagefile/TifPredictor.h"

namespace vireo {

namespace {

void AddBytes(std::uint8_t* row, std::size_t count, std::size_t stride)
{
    for (std::size_t i = stride; i < count; ++i)
        row[i] = static_cast<std::uint8_t>(row[i] + row[i - stride]);
}

void AddWords(std::uint8_t* row, std::size_t count, std::size_t stride)
{
    for (std::size_t i = 2 * stride; i < 2 * count; i += 2) {
        const std::uint8_t* const left = row + i - 2 * stride;
        const unsigned sum = row[i] + row[i + 1] * 256U + left[0] + left[1] * 256U;
        row[i] = static_cast<std::uint8_t>(sum);
        row[i + 1] = static_cast<std::uint8_t>(sum >> 8);
    }
}

} // namespace

void UndoDifferencing(ColorDepth depth, std::uint8_t* row, std::size_t width)
{
    switch (depth) {
    case ColorDepth::Bilevel:
        break;
    case ColorDepth::Gray8:
    case ColorDepth::Palette8:
        AddBytes(row, width, 1);
        break;
    case ColorDepth::Rgb8:
        AddBytes(row, 3 * width, 3);
        break;
    case ColorDepth::Gray16:
        AddWords(row, width, 1);
        break;
    case ColorDepth::Rgb16:
        AddWords(row, 3 * width, 3);
        break;
    }
}

} // namespace vireo
