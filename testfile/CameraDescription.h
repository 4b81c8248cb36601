#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vireo {

/// Pixels a line that each of the cameras A to H delivered; 0 for one that is not there.
using CameraCounts = std::array<std::int32_t, 8>;

/// Reads the camera counts from the image description of a TIFF file: "TQX", then "m_iA=5412" and
/// so on to H, each on a line of its own. Nothing when the text does not begin so. As with the C
/// library's scanning, any white space does for a line end; what follows the last count is ignored.
std::optional<CameraCounts> ParseCameraDescription(std::string_view description);

/// The image description that tells the camera counts.
std::string CameraDescription(const CameraCounts& counts);

} // namespace vireo
