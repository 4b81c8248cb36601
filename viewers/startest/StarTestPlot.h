#pragma once

#include "viewers/startest/StarTestPlotContent.h"

#include <QRectF>
#include <QSizeF>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class QPainter;

namespace vireo {

class StarTestData;

/// Draws the plot of a size, in logical units, from the painter's origin onto a white ground: the
/// curves with their axes, the list of the sweeps, the application factor, the centimetre scale and
/// the result symbols. Asks no window, clock or setting.
void DrawStarTestPlot(QPainter& painter, QSizeF size, const StarTestPlotContent& content);

/// The same on its own white ground with a frame, as a control shows it.
void DrawStarTestPicture(QPainter& painter, QSizeF size, const StarTestPlotContent& content);

/// Draws the cursor at a line over a plot drawn before: the line's number and distance, and the
/// values of the visible curves.
void DrawStarTestCursor(
    QPainter& painter, QSizeF size, const StarTestPlotContent& content, std::int64_t line);

/// Draws a printed page into its printable rectangle: the header lines (Windows-1252) and below
/// them the plot, laid out at `plotSize`.
void DrawStarTestPage(QPainter& painter, const QRectF& page, const std::vector<std::string>& header,
    QSizeF plotSize, const StarTestPlotContent& content);

/// The list of the sweeps at the left edge: which rows it has and where. A list that is too long
/// shows the stretch about the selected sweep.
struct SweepList {
    std::size_t first = 0; ///< The sweep in the first row.
    std::size_t count = 0; ///< Rows.
    double top = 0.0;
    double rowHeight = 1.0;

    static SweepList Of(const StarTestData& data, QSizeF size);
    double RowTop(std::size_t sweep) const
    {
        return top + static_cast<double>(sweep - first) * rowHeight;
    }
    /// The sweep of the row at a height; nothing above and below the rows.
    std::optional<std::size_t> SweepAt(double y) const;
};

} // namespace vireo
