#pragma once

#include "limits/LimitsFile.h"
#include "viewers/controls/ProfileView.h"
#include "viewers/noise/NoiseRuler.h"

#include <QRectF>
#include <QSizeF>

#include <cstdint>
#include <span>
#include <string>
#include <vector>

class QPainter;

namespace vireo {

class NoiseData;

/// Everything that a noise plot shows. The data are not owned and must be summarised; null, an
/// empty line or a missing plane draw an empty plot.
struct NoisePlotContent {
    const NoiseData* data = nullptr;
    ProfileView view; ///< The stretch drawn.
    PositionUnit unit = PositionUnit::Centimetre;
    /// Those of the shown plane's average are marked; not owned.
    std::span<const Limit> limits = {};

    NoiseRuler Ruler() const;
};

/// Where a plot of a size has its plot area, and the mapping of pixels and values. The area is 256
/// levels high, value 0 at its bottom.
ProfileScale NoiseScaleOf(const NoisePlotContent& content, QSizeF size);

/// Draws a noise plot of a size, in logical units, with its top left corner at the painter's
/// origin: frame, axes, the shown plane's curve, its average and the band of +-5 % around it, and a
/// triangle with its position at every stretch that leaves the band. Asks no window, clock or
/// setting: screen, paper and files get the same plot, each at its device's resolution.
void DrawNoisePlot(QPainter& painter, QSizeF size, const NoisePlotContent& content);

/// Draws the cursor's hairline and reading over a plot drawn before.
void DrawNoiseCursor(
    QPainter& painter, QSizeF size, const NoisePlotContent& content, std::int64_t pixel);

/// Draws a printed page into its printable rectangle: the header lines (Windows-1252) and below
/// them the plot, laid out at `plotSize`.
void DrawNoisePage(QPainter& painter, const QRectF& page, const std::vector<std::string>& header,
    QSizeF plotSize, const NoisePlotContent& content);

} // namespace vireo
