#include "viewers/controls/GaugeScale.h"

#include <algorithm>
#include <cmath>

namespace vireo {

namespace {

/// How far from zero a value lies, in units of the room that the first +-1 takes.
double UnitsOf(double value)
{
    const double size = std::abs(value);
    return size < 1.0 ? value : std::copysign(std::log10(size) + 1.0, value);
}

double UnitExtent(const GaugeScale& scale)
{
    // A full scale of 1 or less has no decade; its units fill the room alone.
    return scale.halfExtent / 2.0 / (std::log10(std::max(scale.full, 1.0)) + 1.0);
}

} // namespace

int GaugeScale::PositionOf(double value) const
{
    if (std::isnan(value))
        return centre;
    const double offset = std::clamp(UnitsOf(value) * UnitExtent(*this),
        -static_cast<double>(halfExtent), static_cast<double>(halfExtent));
    return centre - static_cast<int>(std::lround(offset));
}

double GaugeScale::ValueAt(int position) const
{
    const double extent = UnitExtent(*this);
    if (extent <= 0.0)
        return 0.0;
    const double units = (centre - position) / extent;
    const double size = std::abs(units);
    return size < 1.0 ? units : std::copysign(std::pow(10.0, size - 1.0), units);
}

} // namespace vireo
