#pragma once

#include "limits/LimitsFile.h"

#include <string>
#include <string_view>

namespace vireo {

struct KindFigures;

/// A line of a limits file without its comment and the blanks at its ends.
std::string_view WithoutComment(std::string_view line);

/// Reads "[noise]" or "[noise family=6]"; the reason when it cannot, else an empty text.
std::string ParseSection(std::string_view line, LimitsSection& section);

/// Reads the limit of a figure that files of a kind have; the reason when it cannot, else an empty
/// text.
std::string ParseLimit(std::string_view line, const KindFigures& kind, Limit& limit);

} // namespace vireo
