#pragma once

#include "figures/FiguresResult.h"
#include "viewers/controls/PositionUnit.h"

#include <cstdint>
#include <optional>
#include <stop_token>

namespace vireo {

struct Subject;

/// What an analysis can be asked for besides the file.
struct AnalyseSettings {
    std::int64_t line = 0; ///< 0-based; the line whose figures are told, in kinds that have lines.
    std::optional<PositionUnit> unit; ///< Of positions on a noise line; else the viewer's.
    bool arrays = false;              ///< Tell whole curves, not only their figures.
    bool hashes = true;               ///< Of pixels; without them the figures are there sooner.
    /// Read the pixels of a TIFF file and the members of a dump. Without, there are no digests of
    /// them, and the result of a TIFF file is that of opening it.
    bool contents = true;
    std::stop_token stop = {}; ///< Gives up, with a failure, the reading of large files.
};

/// Every figure that the viewer of the file's kind shows. A kind that cannot be analysed gives a
/// failure; for an unknown file there is an object as well.
FiguresResult ComputeFigures(const Subject& subject, const AnalyseSettings& settings);

/// The same to be written.
FileResult AnalyseFile(const Subject& subject, const AnalyseSettings& settings);

} // namespace vireo
