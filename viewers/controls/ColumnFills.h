#pragma once

#include <QColor>

#include <span>
#include <vector>

class QPainter;

namespace vireo {

/// What one column of a raster has to cover, in device pixels; `end` lies behind the last.
struct ColumnFill {
    int x;
    int top;
    int end;
};

/// A curve as a raster shows it: at most one fill a column, from left to right.
struct FilledCurve {
    QColor colour; ///< Opaque.
    std::vector<ColumnFill> columns;
};

/// Draws curves, later ones over earlier ones, with a painter whose unit is the device's pixel.
void DrawFilledCurves(QPainter& painter, std::span<const FilledCurve> curves);

} // namespace vireo
