#include "fuzz/FuzzInput.h"
#include "viewers/stitch/StitchData.h"

#include <algorithm>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    using namespace vireo;
    StitchData data;
    const StitchResult result = data.Read(InputFile({bytes, size}));
    Require(data.DescribeFailure(result).empty() == (result == StitchResult::Ok));
    Require((data.Picture() != nullptr) == (result == StitchResult::Ok));
    if (result != StitchResult::Ok)
        return 0;
    const PictureRows& picture = *data.Picture();
    Require(picture.Width() >= 0 && picture.Height() >= 0);
    Require(picture.CoveredRows() >= 0 && picture.CoveredRows() <= picture.Height());
    // Every code or pixel takes a byte, so no more rows can be covered.
    Require(static_cast<std::uint64_t>(picture.CoveredRows()) <= size);
    data.Complaints();

    // Both ends of the first and last covered rows, and one behind them, which is white.
    const std::int64_t width = std::min<std::int64_t>(picture.Width(), 300);
    std::vector<std::uint8_t> pixels(static_cast<std::size_t>(width));
    const std::int64_t covered = picture.CoveredRows();
    for (const std::int64_t row : {std::int64_t{0}, covered - 1, covered}) {
        if (width == 0 || row < 0 || row >= picture.Height())
            continue;
        picture.Read({picture.Width() - width, row, width, 1}, pixels);
        picture.Read({0, row, width, 1}, pixels);
        const auto isWhite = [](std::uint8_t pixel) { return pixel == PictureRows::kWhite; };
        Require(row < covered || std::ranges::all_of(pixels, isWhite));
    }
    constexpr std::int64_t kQuicklyHashed = 1 << 20;
    if (picture.Width() <= kQuicklyHashed && picture.Width() * picture.Height() <= kQuicklyHashed)
        Require(data.PictureSha256().has_value() == data.IsWorkable());
    return 0;
}
