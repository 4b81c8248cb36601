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
    // Full scales of a tenth and less have no decades left, and the formula no answer.
    constexpr double kFewestDecades = 1e-3;
    const double decades = scale.full > 0.0 ? std::log10(scale.full) + 1.0 : 0.0;
    return scale.halfExtent / 2.0 / std::max(decades, kFewestDecades);
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
