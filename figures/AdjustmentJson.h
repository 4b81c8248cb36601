#pragma once

#include <cstdint>
#include <string>

namespace vireo {

class AdjustmentData;
struct Subject;

/// Opens the file of an adjustment test of which line `line` (0-based) is wanted; gives the reason
/// when it cannot be read or has no such line, else an empty text.
std::string OpenAdjustment(const Subject& subject, std::int64_t line, AdjustmentData& data);

} // namespace vireo
