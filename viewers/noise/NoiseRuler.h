#pragma once

#include "viewers/controls/PositionUnit.h"

#include <cstdint>
#include <string>

namespace vireo {

/// The positions of a line of `lineLength` pixels over a scan width of `widthFactor` times 4.24
/// inches.
struct NoiseRuler {
    std::int32_t lineLength = 0;
    double widthFactor = 0.0;
    PositionUnit unit = PositionUnit::Centimetre;

    /// The distance of a pixel's start from the line's start; 0 for an empty line.
    double PositionOf(double pixel) const;
    /// The inverse of PositionOf.
    double PixelOf(double position) const;
    /// The text at the mark of a pixel. It gives the position of the pixel before, as the tools
    /// have always written it; whole numbers in centimetres, else one decimal.
    std::string MarkLabel(std::int32_t pixel) const;

private:
    double LineWidth() const;
};

} // namespace vireo
