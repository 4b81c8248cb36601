#pragma once

#include "platform/PositionalFile.h"
#include "testfile/TestFileHeader.h"
#include "viewers/startest/StarTestSweep.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace vireo {

/// Takes the text of a file piece by piece.
using StarTestSink = std::function<FileStatus(std::string_view text)>;

/// The start of a star-test file up to its data: the tag, how many records and rounds there are,
/// and the common keys.
std::string StarTestFileStart(
    const TestFileHeader& header, std::size_t sweepCount, std::int32_t repeat);

/// Writes one record: its settings, its lines and the mark of its end.
FileStatus WriteStarTestSweep(const StarTestSweep& sweep, const StarTestSink& sink);

} // namespace vireo
