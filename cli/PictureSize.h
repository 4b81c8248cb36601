#pragma once

#include <optional>
#include <string>

namespace vireo {

class CommandOptions;

/// A picture's size in pixels.
struct PictureSize {
    int width = 0;
    int height = 0;
};
/// The longest side of a picture. A painter's coordinates end at 32767; 16 Ki squared is a picture
/// of 1 GiB.
inline constexpr int kLongestSide = 16384;

/// Adds --size WIDTHxHEIGHT.
void AddSizeOption(
    CommandOptions& command, const std::string& description, std::optional<PictureSize>& size);

} // namespace vireo
