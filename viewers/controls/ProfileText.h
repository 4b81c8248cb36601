#pragma once

#include "viewers/controls/PositionUnit.h"
#include "viewers/controls/ProfileLine.h"
#include "viewers/controls/ProfileView.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vireo {

/// The texts that the dialogs of scan lines share. All are Windows-1252.

/// The unit of positions as plots and read-outs take it.
ProfileUnit ProfileUnitOf(PositionUnit unit);

/// A printed header line: the label, padded to 15 characters, and the value.
std::string LabelledLine(std::string_view label, std::string_view value);

/// The cursor over the overview, as "1234 (200)": the pixel and the value there.
std::string PositionText(const CursorReading& reading);

/// The cursor over any plot in words: "Pixel 1234   52.27 mm   Camera B   Green 200". Values of all
/// planes are named when all are shown.
std::string CursorText(const CursorReading& reading, const ProfileLine& line, ShownColour shown,
    const ProfileUnit& unit = {});

/// Lowest, highest and mean value of a plane.
struct ProfileFigures {
    std::int32_t lowest = 0;
    std::int32_t highest = 0;
    double mean = 0.0;
};
/// The figures of the shown plane, green for all; nothing for an empty one.
std::optional<ProfileFigures> FiguresOf(const ProfileLine& line, ShownColour shown);
/// The figures in three lines; "No data" without.
std::string FiguresText(const std::optional<ProfileFigures>& figures);

/// "of 24" beside the number of the line shown.
std::string LineCountText(std::int64_t lineCount);

} // namespace vireo
