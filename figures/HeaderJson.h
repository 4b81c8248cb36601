#pragma once

#include "figures/FiguresResult.h"

#include <optional>

namespace vireo {

struct Subject;

/// The common keys of a file's text header as interpreted; none for a file without a text header.
FileResult DescribeHeader(const Subject& subject);

/// The same as values.
FiguresResult DescribeKeys(const Subject& subject);

/// The same and the length of the data block in bytes: all that is known of the kinds whose data
/// no viewer here interprets.
FiguresResult DescribeHeaderAndLength(const Subject& subject);

/// The family of the scanner as the file's header has it, or else its generation.
std::optional<int> ScannerFamilyOf(const Subject& subject);

} // namespace vireo
