#pragma once

#include "viewers/controls/ProfileLine.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vireo {

struct Settings;

/// What a file has of that which options choose from: what each kind has, unless it tells. What is
/// nothing is looked for elsewhere.
struct FileParts {
    std::optional<std::int64_t> lines = 1;
    std::array<int, ProfileCameras::kCameras> cameraPixels{}; ///< 0 for a camera that is not there.
    /// The planes that can be asked for by themselves.
    std::optional<std::vector<ShownColour>> planes{std::in_place};
    std::int64_t sweeps = 0;
    int views = 1;
};

/// Why a choice of the settings is refused, which the file has not got; empty when it has them all.
/// The first line and view are no choice. A report takes files of many kinds, so its line is asked
/// only of those whose page shows one.
std::string RefuseMissing(const Settings& settings, const FileParts& parts);

} // namespace vireo
