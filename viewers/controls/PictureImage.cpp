#include "viewers/controls/PictureImage.h"

namespace vireo {

bool DrawPicture(
    const PictureContent& content, const PictureView& view, QImage& image, PictureQuality quality)
{
    constexpr std::ptrdiff_t kPixelBytes = sizeof(std::uint32_t);
    const PixelTarget target{reinterpret_cast<std::uint32_t*>(image.bits()), image.width(),
        image.height(), image.bytesPerLine() / kPixelBytes};
    return DrawPicture(content, view, target, quality);
}

} // namespace vireo
