#pragma once

#include "figures/FileResult.h"

namespace vireo {

struct Subject;

/// The common keys of a file's text header as interpreted; none for a file without a text header.
FileResult DescribeHeader(const Subject& subject);

/// The same and the length of the data block in bytes: all that is known of the kinds whose data
/// no viewer here interprets.
FileResult DescribeHeaderAndLength(const Subject& subject);

} // namespace vireo
