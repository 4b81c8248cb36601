#include "viewers/picture/PictureCameras.h"

#include <algorithm>

namespace vireo {

std::optional<char> CameraOfColumn(const CameraCounts& counts, std::int64_t column)
{
    if (column < 0)
        return std::nullopt;
    char letter = 'A';
    for (const std::int32_t count : counts) {
        column -= std::max(count, 0);
        if (column < 0)
            return letter;
        ++letter;
    }
    return std::nullopt;
}

std::vector<CameraBoundary> CameraBoundaries(const CameraCounts& counts, std::int64_t width)
{
    std::vector<CameraBoundary> boundaries;
    std::optional<char> left;
    std::int64_t column = 0;
    char letter = 'A';
    for (const std::int32_t count : counts) {
        if (count > 0) {
            if (left && column < width)
                boundaries.push_back({*left, letter, column});
            left = letter;
            column += count;
        }
        ++letter;
    }
    return boundaries;
}

} // namespace vireo
