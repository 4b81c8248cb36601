#pragma once

#include <cstddef>
#include <string>

namespace vireo {

class TonalResolutionData;

/// Reads the record from the text of a file, with the rules of settings files; a missing key gives
/// its default. Of the figures only the light colour's bit depths are taken as they stand there:
/// they tell a fault of the file, and all the others are worked out anew. False, and no change,
/// when there is no section "[Tonal Resolution]".
bool ParseTonalText(const std::string& text, TonalResolutionData& data);

/// The record as a file holds it, lines ended by "\n".
std::string FormatTonalText(const TonalResolutionData& data);

/// "GS07": the name of a patch on the target, which is also its key.
std::string TonalPatchName(std::size_t index);

} // namespace vireo
