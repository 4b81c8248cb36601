#include "viewers/noise/NoiseRuler.h"

#include "platform/Text.h"

#include <cmath>

namespace vireo {

double NoiseRuler::LineWidth() const
{
    return UnitsPerWidthUnit(unit) * widthFactor;
}

double NoiseRuler::PositionOf(double pixel) const
{
    return lineLength > 0 ? LineWidth() * pixel / lineLength : 0.0;
}

double NoiseRuler::PixelOf(double position) const
{
    return widthFactor > 0.0 ? position * lineLength / LineWidth() : 0.0;
}

std::string NoiseRuler::MarkLabel(std::int32_t pixel) const
{
    const double position = PositionOf(pixel - 1.0);
    return unit == PositionUnit::Centimetre ? Format("%ld", std::lround(position))
                                            : Format("%1.1f", position);
}

} // namespace vireo
